#include "EditVisit.h"

#include "GridColumn.h"
#include "Input.h"
#include "resource.h"

#include "pickers/PickerIds.h"

#include <algorithm>

namespace tour {

namespace {

/// The page of the color dialog with the palette; null in other windows.
HWND palettePage(HWND window) {
    HWND page = GetWindow(window, GW_CHILD);
    while (page && !GetDlgItem(page, IDC_COLOR_PALETTE))
        page = GetWindow(page, GW_HWNDNEXT);
    return page;
}

} // namespace

EditVisit::EditVisit(DrivenProgram& program, HWND dialog, Pictures& pictures)
    : m_program(program), m_dialog(dialog), m_grid(GetDlgItem(dialog, IDC_LAYER_GRID)), m_pictures(pictures) {
    m_pictures.take(L"edit");
}

void EditVisit::turnOff(const std::vector<std::wstring>& layers) {
    say(L"Turn off " + std::to_wstring(layers.size()) + L" layers at once");
    for (const std::wstring& layer : layers)
        clickCell(m_grid, layer, nameGridColumn, layer == layers.front() ? ui::holdNothing : ui::holdControl);
    m_pictures.take(L"selected");
    clickCell(m_grid, layers.back(), onGridColumn);
    m_program.waitUntil("all of them are off", [&] {
        return std::ranges::all_of(layers,
                                   [&](const std::wstring& layer) { return text(layer, onGridColumn) == L"1"; });
    });
    m_pictures.take(L"off");
}

void EditVisit::colorFromPalette(const std::wstring& layer) {
    say(L"Color: " + layer);
    clickCell(m_grid, layer, nameGridColumn);
    clickCell(m_grid, layer, colorGridColumn);
    const HWND picker = m_program.waitForWindow("the palette of colors", palettePage);
    clickControl(m_program, palettePage(picker), IDC_COLOR_PALETTE);
    m_pictures.take(L"palette");
    clickControl(m_program, picker, IDOK);
    m_program.waitUntil("the cell has the color", [&] { return !text(layer, colorGridColumn).empty(); });
    m_pictures.take(L"colored");
}

void EditVisit::makeCurrent(const std::wstring& layer) {
    say(L"Make current: " + layer);
    clickCell(m_grid, layer, nameGridColumn, ui::holdNothing, 2);
    m_pictures.take(L"current");
}

void EditVisit::addLayer(const std::wstring& layer) {
    say(L"Add: " + layer);
    clickControl(m_program, m_dialog, IDC_ADD_LAYERS);
    const HWND dialog = m_program.waitForWindow("the dialog for adding layers", [this](HWND window) {
        return window != m_dialog && GetDlgItem(window, IDC_LAYER_GRID);
    });
    const RemoteList list(GetDlgItem(dialog, IDC_LAYER_GRID));
    clickCell(list, layer, nameGridColumn);
    m_program.waitUntil("the layer is selected", [&] { return list.selectedRow() == list.rowOf(layer); });
    m_pictures.take(L"adding");
    clickControl(m_program, dialog, IDOK);
    m_program.waitUntil("the layer has a row", [&] { return m_grid.rowOf(layer) >= 0; });
    m_pictures.take(L"added");
}

void EditVisit::pressOk() {
    clickControl(m_program, m_dialog, IDOK);
    m_program.waitUntil("the edit dialog closes", [this] { return !IsWindow(m_dialog); });
    m_pictures.take(L"edited");
}

void EditVisit::clickCell(const RemoteList& list, const std::wstring& layer, int column, unsigned held, int times) {
    const int row = list.rowOf(layer);
    list.scrollTo(row);
    const std::optional<RECT> cell = list.cellRect(row, column);
    if (!cell)
        throw Disappointment("a cell of \"" + narrow(layer) + "\" can't be found on the screen");
    movePointer(ui::middleOf(*cell));
    ui::click(times, held);
}

std::wstring EditVisit::text(const std::wstring& layer, int column) const {
    return m_grid.text(m_grid.rowOf(layer), column);
}

} // namespace tour
