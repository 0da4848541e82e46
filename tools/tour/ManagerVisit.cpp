#include "ManagerVisit.h"

#include "Input.h"
#include "StateListColumns.h"
#include "resource.h"

#include <algorithm>

namespace tour {

ManagerVisit::ManagerVisit(DrivenProgram& program, HWND manager, Pictures& pictures)
    : m_program(program), m_manager(manager), m_listWindow(GetDlgItem(manager, IDC_LSTATE_RES_LIST)),
      m_list(m_listWindow), m_pictures(pictures) {}

void ManagerVisit::makeState(const std::wstring& name, const std::wstring& description) {
    say(L"New: " + name);
    const int rows = m_list.rowCount();
    clickControl(m_program, m_manager, IDC_LSTATE_RES_NEW);
    // The manager has controls of the same numbers.
    const HWND dialog = m_program.waitForWindow("the new layer state dialog", [this](HWND window) {
        return window != m_manager && GetDlgItem(window, IDC_LSTATE_SAVE_NAME);
    });
    typeInto(m_program, GetDlgItem(dialog, IDC_LSTATE_SAVE_NAME), name);
    clickControl(m_program, dialog, IDC_LSTATE_SAVE_DESCRIPTION);
    typeInto(m_program, GetDlgItem(dialog, IDC_LSTATE_SAVE_DESCRIPTION), description);
    m_pictures.take(L"new");
    clickControl(m_program, dialog, IDOK);
    waitForSelectedRow(name, description);
    // The state has been made of the layers as they are, so it is the same as they are.
    m_program.waitUntil("the new state is one more, and the same as the drawing", [&] {
        return m_list.rowCount() == rows + 1 && m_list.text(m_list.rowOf(name), sameColumn) == L"Yes";
    });
    m_pictures.take(L"made");
}

void ManagerVisit::rename(const std::wstring& newName) {
    say(L"Rename: " + newName);
    const std::wstring oldName = selectedName();
    const std::wstring description = m_list.text(m_list.rowOf(oldName), descriptionColumn);
    clickControl(m_program, m_manager, IDC_LSTATE_RES_RENAME);
    HWND box = nullptr;
    m_program.waitUntil("the box over the name opens", [&] { return (box = m_list.labelEditor()) != nullptr; });
    typeInto(m_program, box, newName);
    m_pictures.take(L"renaming");
    ui::pressKey(VK_RETURN);
    m_program.waitUntil("the box over the name closes", [&] { return !m_list.labelEditor(); });
    waitForSelectedRow(newName, description);
    m_program.waitUntil("the old name is gone", [&] { return m_list.rowOf(oldName) < 0; });
    m_pictures.take(L"renamed");
}

void ManagerVisit::describe(const std::wstring& description) {
    say(L"Description: " + description);
    const std::wstring name = selectedName();
    clickCell(name, descriptionColumn);
    HWND editor = nullptr;
    m_program.waitUntil("the editor over the description opens", [&] {
        editor = GetDlgItem(m_listWindow, IDC_LSTATE_INPLACE_EDIT);
        return editor && IsWindowVisible(editor);
    });
    typeInto(m_program, editor, description);
    m_pictures.take(L"describing");
    ui::pressKey(VK_RETURN);
    m_program.waitUntil("the editor over the description closes", [&] { return !IsWindowVisible(editor); });
    waitForSelectedRow(name, description);
    m_pictures.take(L"described");
}

void ManagerVisit::sortByName() {
    say(L"Sort by name");
    std::vector<std::wstring> sorted = names();
    std::sort(sorted.begin(), sorted.end());
    const std::wstring selected = selectedName();
    const std::optional<RECT> heading = m_list.headingRect(nameColumn);
    if (!heading)
        throw Disappointment("the heading of the names can't be found on the screen");
    clickMiddle(*heading);
    m_program.waitUntil("the rows stand in the order of their names", [&] { return names() == sorted; });
    if (selectedName() != selected)
        throw Disappointment("the sort has selected another state than " + narrow(selected));
    m_pictures.take(L"sorted");
}

void ManagerVisit::deleteSelected() {
    const std::wstring name = selectedName();
    say(L"Delete: " + name);
    std::vector<std::wstring> others = names();
    std::erase(others, name);
    clickControl(m_program, m_manager, IDC_LSTATE_RES_DELETE);
    const HWND question = m_program.waitForWindow(
        "the question", [](HWND window) { return GetDlgItem(window, IDYES) && GetDlgItem(window, IDNO); });
    m_pictures.take(L"delete");
    clickControl(m_program, question, IDYES);
    m_program.waitUntil("the other states are left, and one is selected",
                        [&] { return names() == others && m_list.selectedRow() >= 0; });
    m_pictures.take(L"deleted");
}

void ManagerVisit::pick(const std::wstring& name) {
    m_program.waitUntil("the list has the state \"" + narrow(name) + "\"", [&] { return m_list.rowOf(name) >= 0; });
    clickCell(name, nameColumn);
    m_program.waitUntil("the row of the state is selected", [&] { return m_list.selectedRow() == m_list.rowOf(name); });
    m_pictures.take(L"picked");
}

EditVisit ManagerVisit::edit() {
    say(L"Edit: " + selectedName());
    clickControl(m_program, m_manager, IDC_LSTATE_RES_EDIT);
    const HWND dialog =
        m_program.waitForWindow("the edit dialog", [](HWND window) { return GetDlgItem(window, IDC_LAYER_GRID); });
    return EditVisit(m_program, dialog, m_pictures);
}

void ManagerVisit::close() {
    clickControl(m_program, m_manager, IDC_LSTATE_RES_CLOSE);
    m_program.waitUntil("the manager closes", [this] { return !IsWindow(m_manager); });
}

void ManagerVisit::restore() {
    say(L"Restore: " + selectedName());
    clickControl(m_program, m_manager, IDC_LSTATE_RES_RESTORE);
    m_program.waitUntil("the manager closes", [this] { return !IsWindow(m_manager); });
}

std::wstring ManagerVisit::selectedName() const {
    const int row = m_list.selectedRow();
    if (row < 0)
        throw Disappointment("there isn't just one row selected");
    return m_list.text(row, nameColumn);
}

std::vector<std::wstring> ManagerVisit::names() const {
    std::vector<std::wstring> texts;
    for (int row = 0; row < m_list.rowCount(); ++row)
        texts.push_back(m_list.text(row, nameColumn));
    return texts;
}

void ManagerVisit::clickCell(const std::wstring& name, int column) {
    const int row = m_list.rowOf(name);
    m_list.scrollTo(row);
    const std::optional<RECT> cell = m_list.cellRect(row, column);
    if (!cell)
        throw Disappointment("a cell of \"" + narrow(name) + "\" can't be found on the screen");
    clickMiddle(*cell);
}

void ManagerVisit::waitForSelectedRow(const std::wstring& name, const std::wstring& description) {
    m_program.waitUntil("the row \"" + narrow(name) + "\" with \"" + narrow(description) + "\" is selected", [&] {
        const int row = m_list.selectedRow();
        return row >= 0 && m_list.text(row, nameColumn) == name && m_list.text(row, descriptionColumn) == description;
    });
}

} // namespace tour
