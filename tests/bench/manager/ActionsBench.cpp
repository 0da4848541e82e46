// What the manager's actions cost with many states: from the click to the moment at which the manager stands there
// again with nothing left to do. Each figure is the best of three.
//   actions_bench [layers]
#include <afxwin.h>
#include <afxcmn.h>

#include "BenchHost.h"
#include "DrawingGenerator.h"
#include "GrowthTable.h"
#include "ScriptedApp.h"
#include "resource.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

bench::ScriptedApp theApp;

constexpr std::size_t kSizes[] = {125, 250, 500, 1000};

/// Waits for a dialog over the manager that has the control, and presses it there.
void answer(int control) {
    theApp.wait([control] {
        const HWND dialog = GetActiveWindow();
        return dialog != theApp.manager() && GetDlgItem(dialog, control) != nullptr;
    });
    theApp.act([control] { bench::press(GetActiveWindow(), control); });
}

void clickNameHeading() {
    theApp.act([] { bench::clickHeading(theApp.list(), {20, 8}); });
}

void selectRows(int count) {
    theApp.act([count] {
        ListView_SetItemState(theApp.list(), -1, 0, LVIS_SELECTED);
        for (int row = 0; row < count; ++row)
            ListView_SetItemState(theApp.list(), row, LVIS_SELECTED, LVIS_SELECTED);
    });
}

void expectRows(std::size_t count) {
    theApp.act([count] {
        if (ListView_GetItemCount(theApp.list()) != static_cast<int>(count))
            bench::fail("the list doesn't have as many rows as it should");
    });
}

void expectAscending() {
    theApp.act([] {
        wchar_t before[300] = L"";
        wchar_t text[300] = L"";
        for (int row = 0; row < ListView_GetItemCount(theApp.list()); ++row) {
            ListView_GetItemText(theApp.list(), row, 0, text, 300);
            if (wcscmp(before, text) > 0)
                bench::fail("the rows aren't sorted");
            wcscpy(before, text);
        }
    });
}

struct Figure : GrowthFigure {
    /// Adds the steps, the last of which writes the milliseconds.
    void (*steps)(std::size_t states, double& ms);
    bool shuffled = false;
};

const Figure kFigures[] = {
    {{"sort by name", 300},
     [](std::size_t, double& ms) {
         clickNameHeading();
         theApp.measure(ms);
         expectAscending();
     },
     true},
    {{"sort by name, sorted already", 300},
     [](std::size_t, double& ms) {
         clickNameHeading();
         theApp.measure(ms);
         expectAscending();
     }},
    {{"delete half of the states", 1000},
     [](std::size_t states, double& ms) {
         selectRows(static_cast<int>(states / 2));
         theApp.act([] { bench::press(theApp.manager(), IDC_LSTATE_RES_DELETE); });
         answer(IDC_LSTATE_DEL_ALL);
         theApp.measure(ms);
         expectRows(states - states / 2);
     }},
    {{"new", 300},
     [](std::size_t states, double& ms) {
         theApp.act([] { bench::press(theApp.manager(), IDC_LSTATE_RES_NEW); });
         theApp.wait([] { return GetDlgItem(GetActiveWindow(), IDC_LSTATE_SAVE_NAME) != nullptr; });
         theApp.act([] { SetDlgItemTextW(GetActiveWindow(), IDC_LSTATE_SAVE_NAME, L"One more"); });
         answer(IDOK);
         theApp.measure(ms);
         expectRows(states + 1);
     }},
    {{"update", 300},
     [](std::size_t states, double& ms) {
         theApp.act([] { bench::press(theApp.manager(), IDC_LSTATE_RES_UPDATE); });
         answer(IDYES);
         theApp.measure(ms);
         expectRows(states);
     }},
};

double best(const Figure& figure, const KelEdCommand& command, zdr::Drawing drawing) {
    std::sort(drawing.states.begin(), drawing.states.end(),
              [](const zdr::LayerState& a, const zdr::LayerState& b) { return a.name < b.name; });
    if (figure.shuffled)
        std::shuffle(drawing.states.begin(), drawing.states.end(), std::mt19937(1));
    return theApp.best(command, drawing, [&](double& ms) { figure.steps(drawing.states.size(), ms); });
}

} // namespace

int main(int argc, char** argv) {
    const std::size_t layers = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10000;
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWNORMAL))
        bench::fail("the framework doesn't start");
    runtime::ModuleLoader modules;
    const KelEdCommand& command = bench::loadLayerStateCommand(modules);

    std::printf("milliseconds, over %zu layers, by the number of ", layers);
    printGrowthHeading("states", kSizes);
    for (const Figure& figure : kFigures)
        printGrowth(figure, kSizes, [&](std::size_t states) {
            zdr::GeneratorOptions options;
            options.layers = layers;
            options.states = states;
            return best(figure, command, zdr::generateDrawing(options));
        });
    modules.unloadAll();
    return 0;
}
