// What the manager's actions cost with many states: from the click to the moment at which the manager stands there
// again with nothing left to do. Each figure is the best of three.
//   actions_bench [layers]
#include <afxwin.h>
#include <afxcmn.h>

#include "BenchHost.h"
#include "Documents.h"
#include "DrawingGenerator.h"
#include "Exponent.h"
#include "resource.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using bench::Clock;

constexpr int kTurns = 3;
constexpr std::size_t kSizes[] = {125, 250, 500, 1000};
constexpr UINT kTimerMs = 10;

/// Does one step after the other whenever the program is idle, also while a message box of the system's waits.
class BenchApp : public CWinApp {
  public:
    BOOL OnIdle(LONG count) override {
        advance();
        return CWinApp::OnIdle(count);
    }

    void act(std::function<void()> action) {
        m_steps.push_back([this, action = std::move(action)] {
            m_start = Clock::now();
            action();
            return true;
        });
    }
    void wait(std::function<bool()> seen) { m_steps.push_back(std::move(seen)); }
    /// Waits until the manager has the input again, and notes how long that took since the last act.
    void measure(double& ms) {
        wait([this, &ms] {
            if (GetActiveWindow() != m_manager || !IsWindowEnabled(m_manager))
                return false;
            ms = bench::milliseconds(Clock::now() - m_start);
            return true;
        });
    }

    void run(const KelEdCommand& command) {
        m_steps.push_front([this] {
            m_manager = GetActiveWindow();
            return m_manager && GetDlgItem(m_manager, IDC_LSTATE_RES_LIST) && IsWindowVisible(m_manager);
        });
        act([this] { PostMessage(m_manager, WM_COMMAND, IDC_LSTATE_RES_CLOSE, 0); });
        const UINT_PTR timer = SetTimer(nullptr, 0, kTimerMs, onTimer);
        command.function()();
        KillTimer(nullptr, timer);
        if (!m_steps.empty())
            bench::fail("the manager ended before everything was done");
    }

    HWND manager() const { return m_manager; }
    HWND list() const { return GetDlgItem(m_manager, IDC_LSTATE_RES_LIST); }

  private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD);

    void advance() {
        // One step each time: the next one is to find the program idle again.
        if (!m_steps.empty() && m_steps.front()())
            m_steps.pop_front();
    }

    std::deque<std::function<bool()>> m_steps;
    HWND m_manager = nullptr;
    Clock::time_point m_start;
};

BenchApp theApp;

void BenchApp::onTimer(HWND, UINT, UINT_PTR, DWORD) {
    theApp.advance();
}

void press(HWND dialog, int button) {
    PostMessage(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

/// Waits for a dialog over the manager that has the control, and presses it there.
void answer(int control) {
    theApp.wait([control] {
        const HWND dialog = GetActiveWindow();
        return dialog != theApp.manager() && GetDlgItem(dialog, control) != nullptr;
    });
    theApp.act([control] { press(GetActiveWindow(), control); });
}

void clickNameHeading() {
    theApp.act([] {
        const HWND header = ListView_GetHeader(theApp.list());
        constexpr LPARAM kInName = MAKELPARAM(20, 8);
        PostMessage(header, WM_LBUTTONDOWN, MK_LBUTTON, kInName);
        PostMessage(header, WM_LBUTTONUP, 0, kInName);
    });
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

struct Figure {
    const char* name;
    double aimMs; ///< with 1,000 states
    /// Adds the steps, the last of which writes the milliseconds.
    void (*steps)(std::size_t states, double& ms);
    bool shuffled = false;
};

const Figure kFigures[] = {
    {"sort by name", 300,
     [](std::size_t, double& ms) {
         clickNameHeading();
         theApp.measure(ms);
         expectAscending();
     },
     true},
    {"sort by name, sorted already", 300,
     [](std::size_t, double& ms) {
         clickNameHeading();
         theApp.measure(ms);
         expectAscending();
     }},
    {"delete half of the states", 1000,
     [](std::size_t states, double& ms) {
         selectRows(static_cast<int>(states / 2));
         theApp.act([] { press(theApp.manager(), IDC_LSTATE_RES_DELETE); });
         answer(IDC_LSTATE_DEL_ALL);
         theApp.measure(ms);
         expectRows(states - states / 2);
     }},
    {"new", 300,
     [](std::size_t states, double& ms) {
         theApp.act([] { press(theApp.manager(), IDC_LSTATE_RES_NEW); });
         theApp.wait([] { return GetDlgItem(GetActiveWindow(), IDC_LSTATE_SAVE_NAME) != nullptr; });
         theApp.act([] { SetDlgItemTextW(GetActiveWindow(), IDC_LSTATE_SAVE_NAME, L"One more"); });
         answer(IDOK);
         theApp.measure(ms);
         expectRows(states + 1);
     }},
    {"update", 300,
     [](std::size_t states, double& ms) {
         theApp.act([] { press(theApp.manager(), IDC_LSTATE_RES_UPDATE); });
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
    double least = 0;
    for (int turn = 0; turn < kTurns; ++turn) {
        bench::openDrawing(drawing);
        double ms = 0;
        figure.steps(drawing.states.size(), ms);
        theApp.run(command);
        runtime::closeDocument(*runtime::currentDocument());
        least = turn == 0 ? ms : std::min(least, ms);
    }
    return least;
}

} // namespace

int main(int argc, char** argv) {
    const std::size_t layers = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10000;
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWNORMAL))
        bench::fail("the framework doesn't start");
    runtime::ModuleLoader modules;
    const KelEdCommand& command = bench::loadLayerStateCommand(modules);

    std::printf("milliseconds, over %zu layers, by the number of states\n%-34s", layers, "");
    for (const std::size_t size : kSizes)
        std::printf(" %8zu", size);
    std::printf(" %9s %6s  %s\n", "exponent", "aim", "met?");
    for (const Figure& figure : kFigures) {
        std::printf("%-34s", figure.name);
        std::vector<double> sizes;
        std::vector<double> times;
        for (const std::size_t size : kSizes) {
            zdr::GeneratorOptions options;
            options.layers = layers;
            options.states = size;
            sizes.push_back(static_cast<double>(size));
            times.push_back(best(figure, command, zdr::generateDrawing(options)));
            std::printf(" %8.1f", times.back());
            std::fflush(stdout);
        }
        std::printf(" %9.2f %6.0f  %s\n", exponent(sizes, times), figure.aimMs,
                    times.back() <= figure.aimMs ? "yes" : "no");
    }
    modules.unloadAll();
    return 0;
}
