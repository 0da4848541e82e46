#include "View.h"

#include <commctrl.h>

#include <algorithm>

namespace ui {

namespace {

// The window class of dialogs, and so of the pages inside a dialog with tabs.
constexpr const wchar_t* pageClass = L"#32770";

} // namespace

std::vector<HWND> visibleControls(HWND window) {
    std::vector<HWND> controls;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM out) -> BOOL {
            if (IsWindowVisible(child))
                reinterpret_cast<std::vector<HWND>*>(out)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&controls));
    return controls;
}

std::wstring shownTip() {
    std::wstring text;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[64] = {};
            GetClassNameW(window, name, 64);
            if (std::wstring_view(name) != TOOLTIPS_CLASSW || !IsWindowVisible(window))
                return TRUE;
            *reinterpret_cast<std::wstring*>(result) = textOf(window);
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&text));
    return text;
}

std::wstring withoutMnemonic(const std::wstring& text) {
    std::wstring shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && ++i == text.size())
            break;
        shown += text[i];
    }
    return shown;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string narrow(const std::wstring& text) {
    std::string out(text.size() * 4, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(),
                                           static_cast<int>(out.size()), nullptr, nullptr);
    out.resize(static_cast<std::size_t>(length));
    return out;
}

View View::facing() {
    return View(GetActiveWindow());
}

HWND View::control(int id) const {
    if (!m_window)
        return nullptr;
    HWND found = GetDlgItem(m_window, id);
    for (HWND page = nullptr; !found && (page = FindWindowExW(m_window, page, pageClass, nullptr));)
        found = IsWindowVisible(page) ? GetDlgItem(page, id) : nullptr;
    return found;
}

std::wstring View::title() const {
    return textOf(m_window);
}

std::wstring View::text(int id) const {
    return textOf(control(id));
}

bool View::isEnabled(int id) const {
    return IsWindowEnabled(control(id));
}

bool View::isVisible(int id) const {
    return IsWindowVisible(control(id));
}

bool View::isTicked(int id) const {
    return SendMessageW(control(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

int View::focusedControl() const {
    const HWND focus = GetFocus();
    return focus && focus != m_window && IsChild(m_window, focus) ? GetDlgCtrlID(focus) : 0;
}

RECT View::rect() const {
    RECT rect{};
    GetWindowRect(m_window, &rect);
    return rect;
}

RECT View::rect(int id) const {
    return View(control(id)).rect();
}

std::vector<std::wstring> View::texts() const {
    std::vector<std::wstring> found;
    for (const HWND control : visibleControls(m_window))
        if (std::wstring text = textOf(control); !text.empty())
            found.push_back(std::move(text));
    return found;
}

wchar_t View::mnemonic(int id) const {
    const std::wstring label = text(id);
    const std::size_t mark = label.find(L'&');
    return mark == std::wstring::npos || mark + 1 >= label.size() ? L'\0' : label[mark + 1];
}

HWND View::controlWithText(const std::wstring& text) const {
    for (const HWND control : visibleControls(m_window))
        if (withoutMnemonic(textOf(control)) == text)
            return control;
    return nullptr;
}

HICON View::icon() const {
    for (const HWND control : visibleControls(m_window)) {
        wchar_t name[16] = L"";
        GetClassNameW(control, name, 16);
        const bool isIcon =
            lstrcmpiW(name, L"Static") == 0 && (GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
        if (isIcon)
            return reinterpret_cast<HICON>(SendMessageW(control, STM_GETICON, 0, 0));
    }
    return nullptr;
}

int View::rowCount(int list) const {
    return static_cast<int>(SendMessageW(control(list), LVM_GETITEMCOUNT, 0, 0));
}

std::vector<std::wstring> View::headings(int list) const {
    const HWND header = ListView_GetHeader(control(list));
    std::vector<std::wstring> found(
        static_cast<std::size_t>(std::max(0, static_cast<int>(Header_GetItemCount(header)))));
    for (std::size_t i = 0; i < found.size(); ++i) {
        wchar_t buffer[256] = L"";
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = buffer;
        item.cchTextMax = 256;
        SendMessageW(header, HDM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
        found[i] = buffer;
    }
    return found;
}

std::vector<int> View::columnWidths(int list) const {
    std::vector<int> widths;
    for (std::size_t i = 0; i < headings(list).size(); ++i)
        widths.push_back(ListView_GetColumnWidth(control(list), static_cast<int>(i)));
    return widths;
}

std::wstring View::cell(int list, int row, int column) const {
    wchar_t buffer[1024] = L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = buffer;
    item.cchTextMax = 1024;
    SendMessageW(control(list), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return buffer;
}

std::vector<std::wstring> View::cells(int list, int row) const {
    std::vector<std::wstring> found;
    for (std::size_t i = 0; i < headings(list).size(); ++i)
        found.push_back(cell(list, row, static_cast<int>(i)));
    return found;
}

std::vector<std::wstring> View::column(int list, int index) const {
    std::vector<std::wstring> found;
    for (int row = 0; row < rowCount(list); ++row)
        found.push_back(cell(list, row, index));
    return found;
}

std::vector<int> View::selectedRows(int list) const {
    std::vector<int> rows;
    const HWND window = control(list);
    if (!window) // it would answer row 0 for ever
        return rows;
    for (int row = ListView_GetNextItem(window, -1, LVNI_SELECTED); row >= 0;
         row = ListView_GetNextItem(window, row, LVNI_SELECTED))
        rows.push_back(row);
    return rows;
}

int View::rowOf(int list, const std::wstring& text) const {
    const std::vector<std::wstring> names = column(list, 0);
    const auto found = std::find(names.begin(), names.end(), text);
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

bool View::hasFullRowSelection(int list) const {
    return SendMessageW(control(list), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_FULLROWSELECT;
}

std::optional<std::wstring> View::labelEditorText(int list) const {
    const auto editor = reinterpret_cast<HWND>(SendMessageW(control(list), LVM_GETEDITCONTROL, 0, 0));
    if (!editor || !IsWindowVisible(editor))
        return std::nullopt;
    return textOf(editor);
}

int View::focusedRow(int list) const {
    return ListView_GetNextItem(control(list), -1, LVNI_FOCUSED);
}

bool View::isRowInView(int list, int row) const {
    const std::optional<RECT> cell = cellRect(list, row, 0);
    RECT client{};
    GetClientRect(control(list), &client);
    MapWindowPoints(control(list), nullptr, reinterpret_cast<POINT*>(&client), 2);
    RECT header{};
    GetWindowRect(ListView_GetHeader(control(list)), &header);
    return cell && cell->top >= header.bottom && cell->bottom <= client.bottom;
}

std::optional<RECT> View::cellRect(int list, int row, int column) const {
    RECT rect{};
    rect.top = column;
    rect.left = LVIR_LABEL;
    const HWND window = control(list);
    const bool found =
        column == 0
            ? SendMessageW(window, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect))
            : SendMessageW(window, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    if (!found)
        return std::nullopt;
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

std::optional<RECT> View::headingRect(int list, int column) const {
    const HWND header = ListView_GetHeader(control(list));
    RECT rect{};
    if (!Header_GetItemRect(header, column, &rect))
        return std::nullopt;
    MapWindowPoints(header, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

std::optional<POINT> View::emptySpace(int list) const {
    const HWND window = control(list);
    RECT client{};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    RECT last{};
    const int rows = rowCount(list);
    if (rows == 0)
        GetWindowRect(ListView_GetHeader(window), &last);
    else if (const std::optional<RECT> cell = cellRect(list, rows - 1, 0))
        last = *cell;
    const POINT point{client.left + 20, client.bottom - 6};
    if (point.y <= last.bottom)
        return std::nullopt;
    return point;
}

std::vector<COLORREF> View::pixels(int id) const {
    const RECT area = rect(id);
    const LONG width = area.right - area.left;
    const LONG height = area.bottom - area.top;
    if (width <= 0 || height <= 0)
        return {};
    // Copies the whole area at once: asking the screen for single pixels takes half a minute for a large window.
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ former = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    GdiFlush();
    std::vector<COLORREF> found;
    if (const auto* quads = static_cast<const RGBQUAD*>(bits))
        for (LONG i = 0; i < width * height; ++i)
            found.push_back(RGB(quads[i].rgbRed, quads[i].rgbGreen, quads[i].rgbBlue));
    SelectObject(memory, former);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return found;
}

} // namespace ui
