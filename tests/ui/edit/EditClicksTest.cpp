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

/// The colours of a part of the grid, which is given in coordinates of the screen.
std::vector<COLORREF> pixelsOf(const View& view, const RECT& part) {
    const RECT area = view.rect(grid);
    const std::vector<COLORREF> all = view.pixels(grid);
    std::vector<COLORREF> found;
    for (LONG y = part.top - area.top; y < part.bottom - area.top; ++y)
        for (LONG x = part.left - area.left; x < part.right - area.left; ++x)
            found.push_back(all[static_cast<std::size_t>(y * (area.right - area.left) + x)]);
    return found;
}

} // namespace

CLayerRcd& OpenEditDialog::recordAt(int row) const {
    return *reinterpret_cast<CLayerRcd*>(m_layerGrid.GetItemData(row));
}

BOOL OpenEditDialog::OnNotify(WPARAM control, LPARAM header, LRESULT* result) {
    if (const auto* key = reinterpret_cast<const NMLVKEYDOWN*>(header); key->hdr.code == LVN_KEYDOWN)
        keysOfGrid.push_back(key->wVKey);
    notifications.push_back(reinterpret_cast<const NMHDR*>(header)->code);
    return CEditLayerStateDlg::OnNotify(control, header, result);
}

LRESULT OpenEditDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    paints += message == WM_PAINT;
    drawnRows += message == WM_DRAWITEM && wParam == IDC_LAYER_GRID;
    return CEditLayerStateDlg::WindowProc(message, wParam, lParam);
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

bool EditClicksTest::run(Script script, const wchar_t* state) {
    Script whole;
    whole.waitForControl(grid).then(script).ifStillOpen().press(VK_ESCAPE);
    return ui::perform(std::move(whole), [=, this] {
        const CResourceScope resources;
        OpenEditDialog dialog(nullptr);
        m_dialog = &dialog;
        dialog.m_stateName = state;
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

Script EditClicksTest::countPaintsFromRest() {
    // A step is only done while nothing waits to be painted.
    return look("the dialog is drawn", [this] { dialog().paints = dialog().drawnRows = 0; });
}

Script EditClicksTest::wholeDialogIsDrawn() {
    return Script().waitUntil("the dialog and its grid are drawn again", [this](const View& view) {
        return dialog().paints > 0 && dialog().drawnRows >= view.rowCount(grid);
    });
}

Script EditClicksTest::dialogIsNotDrawn() {
    return look("not drawn again", [this] { EXPECT_EQ(dialog().paints, 0); });
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
    RECT cell = view.cellRect(grid, row, column).value_or(RECT{});
    --cell.bottom;
    return pixelsOf(view, cell);
}

std::vector<COLORREF> EditClicksTest::markPixels(const View& view, int row) {
    constexpr int kSide = 16;
    RECT place = {LVIR_BOUNDS, 0, 0, 0};
    SendMessageW(view.control(grid), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(view.control(grid), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return pixelsOf(view, {place.left, place.top, place.left + kSide, place.bottom - 1});
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
