#include "RemoteList.h"

#include <commctrl.h>

namespace tour {

RemoteList::RemoteList(HWND list) : m_list(list) {
    DWORD id = 0;
    GetWindowThreadProcessId(list, &id);
    m_process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    m_memory = static_cast<char*>(VirtualAllocEx(m_process, nullptr, sizeof(LVITEMW) + roomForText * sizeof(wchar_t),
                                                 MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
}

RemoteList::~RemoteList() {
    if (m_memory)
        VirtualFreeEx(m_process, m_memory, 0, MEM_RELEASE);
    if (m_process)
        CloseHandle(m_process);
}

int RemoteList::rowCount() const {
    return static_cast<int>(SendMessageW(m_list, LVM_GETITEMCOUNT, 0, 0));
}

std::wstring RemoteList::text(int row, int column) const {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<wchar_t*>(m_memory + sizeof item);
    item.cchTextMax = static_cast<int>(roomForText);
    wchar_t text[roomForText] = L"";
    if (!m_memory || !WriteProcessMemory(m_process, m_memory, &item, sizeof item, nullptr))
        return {};
    SendMessageW(m_list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(m_memory));
    // Read back from where the list says it is: it may answer with a text of its own.
    ReadProcessMemory(m_process, m_memory, &item, sizeof item, nullptr);
    ReadProcessMemory(m_process, item.pszText, text, sizeof text - sizeof(wchar_t), nullptr);
    return text;
}

int RemoteList::rowOf(const std::wstring& wanted) const {
    for (int row = 0; row < rowCount(); ++row)
        if (text(row, 0) == wanted)
            return row;
    return -1;
}

int RemoteList::selectedRow() const {
    if (SendMessageW(m_list, LVM_GETSELECTEDCOUNT, 0, 0) != 1)
        return -1;
    return static_cast<int>(SendMessageW(m_list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

bool RemoteList::isTicked(int row) const {
    const LRESULT state = SendMessageW(m_list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
    return static_cast<UINT>(state) == INDEXTOSTATEIMAGEMASK(2);
}

std::optional<RECT> RemoteList::cellRect(int row, int column) const {
    // The message finds the column in `top` and what is asked for in `left`. The bounds of the first column are those
    // of the whole row, the label is its cell; for the others both are the same.
    return rectFrom(m_list, LVM_GETSUBITEMRECT, row, {LVIR_LABEL, column, 0, 0});
}

std::optional<RECT> RemoteList::headingRect(int column) const {
    return rectFrom(reinterpret_cast<HWND>(SendMessageW(m_list, LVM_GETHEADER, 0, 0)), HDM_GETITEMRECT, column, {});
}

std::optional<RECT> RemoteList::rectFrom(HWND window, UINT message, int index, RECT rect) const {
    RECT client{}, seen{};
    if (!m_memory || !WriteProcessMemory(m_process, m_memory, &rect, sizeof rect, nullptr) ||
        !SendMessageW(window, message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(m_memory)) ||
        !ReadProcessMemory(m_process, m_memory, &rect, sizeof rect, nullptr) || !GetClientRect(m_list, &client))
        return std::nullopt;
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    MapWindowPoints(m_list, nullptr, reinterpret_cast<POINT*>(&client), 2);
    if (!IntersectRect(&seen, &rect, &client))
        return std::nullopt;
    return seen;
}

HWND RemoteList::labelEditor() const {
    return reinterpret_cast<HWND>(SendMessageW(m_list, LVM_GETEDITCONTROL, 0, 0));
}

void RemoteList::scrollTo(int row) const {
    SendMessageW(m_list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

} // namespace tour
