// What editing a state costs by the number of its layers: from the press, the click or the key to the moment at which
// the program has nothing left to do. Each figure is the best of three.
//   edit_bench [a part of a figure's name]
#include <afxwin.h>
#include <afxcmn.h>

#include "BenchHost.h"
#include "DrawingGenerator.h"
#include "GrowthTable.h"
#include "Input.h"
#include "KelDbDatabase.h"
#include "ScriptedApp.h"
#include "resource.h"

#include <cstring>

namespace {

bench::ScriptedApp theApp;

constexpr std::size_t kSizes[] = {1250, 2500, 5000, 10000};
/// The first state matches the drawing; the second one has other values for some layers.
constexpr int kEditedRow = 1;

HWND grid() {
    return GetDlgItem(GetActiveWindow(), IDC_LAYER_GRID);
}

int rowCount() {
    return ListView_GetItemCount(grid());
}

bool isEditDialog() {
    return grid() && GetDlgItem(GetActiveWindow(), IDC_REMOVE_LAYERS) && IsWindowVisible(grid());
}

bool isAddDialog() {
    return grid() && !GetDlgItem(GetActiveWindow(), IDC_REMOVE_LAYERS) && IsWindowVisible(grid());
}

CString text(int row, int column) {
    CString text;
    constexpr int kLongest = 300;
    ListView_GetItemText(grid(), row, column, text.GetBuffer(kLongest), kLongest);
    text.ReleaseBuffer();
    return text;
}

POINT cell(int row, int column) {
    RECT rect{};
    ListView_GetSubItemRect(grid(), row, column, LVIR_BOUNDS, &rect);
    POINT middle = ui::middleOf(rect);
    ClientToScreen(grid(), &middle);
    return middle;
}

void expectRows(std::size_t count) {
    theApp.act([count] {
        if (rowCount() != static_cast<int>(count))
            bench::fail("the grid doesn't have as many rows as it should");
    });
}

void pressEdit() {
    theApp.act([] {
        ListView_SetItemState(theApp.list(), -1, 0, LVIS_SELECTED);
        ListView_SetItemState(theApp.list(), kEditedRow, LVIS_SELECTED, LVIS_SELECTED);
    });
    theApp.act([] { bench::press(theApp.manager(), IDC_LSTATE_RES_EDIT); });
}

void edit() {
    pressEdit();
    theApp.wait(isEditDialog);
}

void end(int button) {
    theApp.act([button] { bench::press(GetActiveWindow(), button); });
}

void cancel() {
    end(IDCANCEL);
    theApp.wait([] { return GetActiveWindow() == theApp.manager(); });
}

void selectAll(double& ms) {
    theApp.act([] { ui::pressKey('A', ui::holdControl); });
    theApp.measure(ms, [] { return static_cast<int>(ListView_GetSelectedCount(grid())) == rowCount(); });
}

/// Clicks the lock of a selected row, which changes all of them as it changes the first one.
void clickLock(double& ms) {
    constexpr int kLock = 3;
    static CString wanted;
    theApp.wait([] { return ui::pointerRestsAt(cell(ListView_GetTopIndex(grid()), kLock)); });
    theApp.act([] {
        wanted = text(0, kLock) == L"0" ? L"1" : L"0";
        ui::click();
    });
    theApp.measure(ms, [] { return text(0, kLock) == wanted && text(rowCount() - 1, kLock) == wanted; });
}

void clickColumn(int column, double& ms) {
    theApp.act([column] {
        RECT rect{};
        Header_GetItemRect(ListView_GetHeader(grid()), column, &rect);
        bench::clickHeading(grid(), ui::middleOf(rect));
    });
    theApp.measure(ms, [] { return true; });
}

void expectNames(int direction) {
    theApp.act([direction] {
        for (int row = 1; row < rowCount(); ++row)
            if (direction * text(row - 1, 0).Collate(text(row, 0)) > 0)
                bench::fail("the rows aren't sorted by name");
    });
}

/// Draws as many rows as a high dialog shows at once.
void drawPage(double& ms) {
    constexpr int kRows = 40;
    static RECT place; // which the dialog keeps for the next time
    theApp.act([] {
        GetWindowRect(GetActiveWindow(), &place);
        RECT screen{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
        SetWindowPos(GetActiveWindow(), nullptr, 0, 0, screen.right, screen.bottom, SWP_NOZORDER);
    });
    theApp.act([] {
        if (ListView_GetCountPerPage(grid()) < kRows)
            bench::fail("the grid doesn't show as many rows as are to be drawn");
        RECT first{};
        RECT last{};
        ListView_GetItemRect(grid(), 0, &first, LVIR_BOUNDS);
        ListView_GetItemRect(grid(), kRows - 1, &last, LVIR_BOUNDS);
        UnionRect(&first, &first, &last);
        InvalidateRect(grid(), &first, TRUE);
    });
    theApp.measure(ms, [] { return true; });
    theApp.act([] {
        SetWindowPos(GetActiveWindow(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER);
    });
}

/// Takes every second layer out of all states.
void halveStates() {
    KelDbDatabase& drawing = *keldbHostApplicationServices()->workingDatabase();
    KelDbLayerStateManager& states = *drawing.getLayerStateManager();
    for (int row = 0; row < ListView_GetItemCount(theApp.list()); ++row) {
        wchar_t name[300] = L"";
        ListView_GetItemText(theApp.list(), row, 0, name, 300);
        KelArray<KelString> layers(0, 8);
        KelArray<KelString> half(0, 8);
        if (states.getLayerStateLayers(layers, name, false) != Vorn::eOk)
            bench::fail("a state's layers can't be read");
        bool odd = false;
        for (const KelString& layer : layers)
            if ((odd = !odd))
                half.append(layer);
        if (states.removeLayerStateLayers(name, half) != Vorn::eOk)
            bench::fail("layers can't be taken out of a state");
    }
}

void openAddDialog(double& ms) {
    theApp.act(halveStates);
    edit();
    theApp.act([] { bench::press(GetActiveWindow(), IDC_ADD_LAYERS); });
    theApp.measure(ms, isAddDialog);
}

struct Figure : GrowthFigure {
    /// Adds the steps, the last of which leaves the manager standing there alone.
    void (*steps)(std::size_t layers, double& ms);
};

const Figure kFigures[] = {
    {{"open the edit dialog", 1000},
     [](std::size_t layers, double& ms) {
         pressEdit();
         theApp.measure(ms, isEditDialog);
         expectRows(layers);
         cancel();
     }},
    {{"sort by name", 300},
     [](std::size_t, double& ms) {
         edit();
         clickColumn(0, ms);
         expectNames(1);
         cancel();
     }},
    {{"sort by name, the other way", 300},
     [](std::size_t, double& ms) {
         edit();
         clickColumn(0, ms);
         clickColumn(0, ms);
         expectNames(-1);
         cancel();
     }},
    {{"sort by color", 300},
     [](std::size_t, double& ms) {
         edit();
         clickColumn(4, ms);
         cancel();
     }},
    {{"sort by linetype", 300},
     [](std::size_t, double& ms) {
         edit();
         clickColumn(5, ms);
         cancel();
     }},
    {{"select all rows", 500},
     [](std::size_t, double& ms) {
         edit();
         selectAll(ms);
         cancel();
     }},
    {{"lock all selected layers", 500},
     [](std::size_t, double& ms) {
         edit();
         selectAll(ms);
         clickLock(ms);
         cancel();
     }},
    {{"draw 40 rows", 16},
     [](std::size_t, double& ms) {
         edit();
         drawPage(ms);
         cancel();
     }},
    {{"OK, all layers changed", 500},
     [](std::size_t, double& ms) {
         edit();
         selectAll(ms);
         clickLock(ms);
         end(IDOK);
         theApp.measure(ms);
     }},
    {{"remove all layers", 500},
     [](std::size_t, double& ms) {
         edit();
         selectAll(ms);
         theApp.act([] { bench::press(GetActiveWindow(), IDC_REMOVE_LAYERS); });
         theApp.measure(ms, [] { return rowCount() == 0; });
         cancel();
     }},
    {{"open the add layers dialog", 500},
     [](std::size_t layers, double& ms) {
         openAddDialog(ms);
         expectRows(layers / 2);
         end(IDCANCEL);
         theApp.wait(isEditDialog);
         cancel();
     }},
    {{"add the other half of the layers", 500},
     [](std::size_t layers, double& ms) {
         openAddDialog(ms);
         theApp.act([] { ListView_SetItemState(grid(), -1, LVIS_SELECTED, LVIS_SELECTED); });
         end(IDOK);
         theApp.measure(ms, isEditDialog);
         expectRows(layers);
         cancel();
     }},
};

} // namespace

int main(int argc, char** argv) {
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWNORMAL))
        bench::fail("the framework doesn't start");
    runtime::ModuleLoader modules;
    const KelEdCommand& command = bench::loadLayerStateCommand(modules);

    printGrowthHeading("milliseconds, by the number of layers", kSizes);
    for (const Figure& figure : kFigures) {
        if (argc > 1 && !std::strstr(figure.name, argv[1]))
            continue;
        printGrowth(figure, kSizes, [&](std::size_t layers) {
            zdr::GeneratorOptions options;
            options.layers = layers;
            options.states = 2;
            return theApp.best(command, zdr::generateDrawing(options), [&](double& ms) { figure.steps(layers, ms); });
        });
    }
    modules.unloadAll();
    return 0;
}
