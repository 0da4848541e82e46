#include "EditClicksTest.h"

#include "CResourceScope.h"
#include "ModuleHandles.h"

#include <algorithm>

using testing::ElementsAreArray;
using ui::Script;
using ui::TestDrawing;
using ui::View;

HINSTANCE g_resourceModule = nullptr;

namespace {

constexpr int kRows = 10;
constexpr int kLastRow = kRows - 1;

std::ptrdiff_t buttonsOf(const View& view) {
    const std::vector<HWND> controls = ui::visibleControls(view.window());
    return std::count_if(controls.begin(), controls.end(), [](HWND control) {
        wchar_t name[16] = L"";
        GetClassNameW(control, name, 16);
        return std::wstring_view(name) == WC_BUTTONW;
    });
}

} // namespace

CLayerRcd& OpenEditDialog::recordAt(int row) const {
    return *reinterpret_cast<CLayerRcd*>(m_layerGrid.GetItemData(row));
}

void EditClicksTest::SetUp() {
    EditTest::SetUp();
    g_resourceModule = LoadLibraryW(L"KelLayerAppsRes.dll");
    ASSERT_NE(g_resourceModule, nullptr);
}

void EditClicksTest::TearDown() {
    FreeLibrary(g_resourceModule);
    g_resourceModule = nullptr;
    EditTest::TearDown();
}

TestDrawing EditClicksTest::tenRows() {
    return tenRows({});
}

TestDrawing EditClicksTest::tenRows(const std::function<void(zdr::LayerColumns&)>& change) {
    TestDrawing drawing;
    for (int row = kLastRow - 1; row >= 0; --row)
        drawing.layer(L"Row " + std::to_wstring(row));
    return drawing.state(L"State", MaskAllProperties, L"", change);
}

std::size_t EditClicksTest::indexOfRow(int row) {
    return static_cast<std::size_t>(kLastRow - row);
}

bool EditClicksTest::run(Script script) {
    Script whole;
    whole.waitForControl(grid).then(script).ifStillOpen().press(VK_ESCAPE);
    return ui::perform(std::move(whole), [this] {
        const CResourceScope resources;
        OpenEditDialog dialog(nullptr);
        m_dialog = &dialog;
        dialog.m_stateName = L"State";
        dialog.DoModal();
        m_dialog = nullptr;
    });
}

Script EditClicksTest::look(std::string what, std::function<void()> see) {
    return Script().look(std::move(what), [see = std::move(see)](const View&) { see(); });
}

Script EditClicksTest::select(const std::vector<int>& rows) {
    Script script;
    script.clickEmptySpace(grid);
    for (const int row : rows)
        script.clickCell(grid, row, nameGridColumn, row == rows.front() ? ui::holdNothing : ui::holdControl);
    std::vector<int> selected = rows;
    std::sort(selected.begin(), selected.end());
    return script.then(expectSelected(selected));
}

Script EditClicksTest::expectSelected(const std::vector<int>& rows) {
    return Script().look("the selection",
                         [rows](const View& view) { EXPECT_THAT(view.selectedRows(grid), ElementsAreArray(rows)); });
}

std::vector<int> EditClicksTest::rowsOf(const std::function<bool(int row)>& has) const {
    std::vector<int> rows;
    for (int row = 0; row < m_dialog->m_layerGrid.GetItemCount(); ++row)
        if (has(row))
            rows.push_back(row);
    return rows;
}

std::vector<int> EditClicksTest::markedRows() const {
    return rowsWith(&CLayerRcd::m_isModified);
}

std::vector<int> EditClicksTest::rowsWith(bool CLayerRcd::*flag) const {
    return rowsOf([&](int row) { return record(row).*flag; });
}

std::vector<int> EditClicksTest::rowsShowing(int column, const std::wstring& text) const {
    return rowsOf([&](int row) { return m_dialog->m_layerGrid.GetItemText(row, column) == text.c_str(); });
}

Calls EditClicksTest::callsBesideDrawing() {
    Calls calls = instruments::trace();
    std::erase_if(calls, [](const std::string& line) {
        for (const char* operation : {"SetUseTips(", "keledGetRGB(", "keledGetVar(\"LWDEFAULT\")", "plotStyleMode(",
                                      "tilemode(", "keldbGetReservedString(7, true)"})
            if (line.starts_with(operation))
                return true;
        return false;
    });
    return calls;
}

std::vector<COLORREF> EditClicksTest::cellPixels(const View& view, int row, int column) {
    const RECT area = view.rect(grid);
    const RECT cell = view.cellRect(grid, row, column).value_or(RECT{});
    const std::vector<COLORREF> all = view.pixels(grid);
    std::vector<COLORREF> found;
    for (LONG y = cell.top - area.top; y < cell.bottom - 1 - area.top; ++y)
        for (LONG x = cell.left - area.left; x < cell.right - area.left; ++x)
            found.push_back(all[static_cast<std::size_t>(y * (area.right - area.left) + x)]);
    return found;
}

Script EditClicksTest::refusalIsShown(unsigned int textId) {
    return Script()
        .waitForText(resourceText(textId))
        .look("the message",
              [](const View& view) {
                  EXPECT_EQ(view.icon(), LoadIconW(nullptr, IDI_EXCLAMATION));
                  EXPECT_EQ(buttonsOf(view), 1);
                  EXPECT_TRUE(View(GetWindow(view.window(), GW_OWNER)).has(grid));
              })
        .press(VK_RETURN)
        .waitForControl(grid);
}
