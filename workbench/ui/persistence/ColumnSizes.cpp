// The widths of one list stand in one group, named after the list's control id.

#include "ColumnSizes.h"

#include "DialogStore.h"
#include "Placement.h"
#include "base/Scaling.h"

#include <commctrl.h>

#include <iterator>
#include <vector>

namespace framework {
namespace {

constexpr unsigned long kWidest = 0x7FFF;

DialogStore storeOf(const std::wstring& dialogName, HWND list) {
    return DialogStore(dialogName, L"Columns " + std::to_wstring(GetDlgCtrlID(list)));
}

int columnCount(HWND list) {
    const HWND header = ListView_GetHeader(list);
    return header ? Header_GetItemCount(header) : 0;
}

} // namespace

bool restoreColumnSizes(const std::wstring& dialogName, HWND list) {
    const DialogStore store = storeOf(dialogName, list);
    std::vector<int> widths;
    for (auto width = store.number(L"0"); width && *width <= kWidest;
         width = store.number(std::to_wstring(widths.size())))
        widths.push_back(static_cast<int>(*width));
    if (widths.empty() || static_cast<int>(widths.size()) != columnCount(list))
        return false;
    const int keptDpi = scalingIn(store).value_or(dpiOf(list));
    for (std::size_t column = 0; column < widths.size(); ++column)
        ListView_SetColumnWidth(list, static_cast<int>(column), MulDiv(widths[column], dpiOf(list), keptDpi));
    return true;
}

void keepColumnSizes(const std::wstring& dialogName, HWND list) {
    const DialogStore store = storeOf(dialogName, list);
    const int count = columnCount(list);
    bool kept = count > 0 && keepScaling(store, list);
    for (int column = 0; column < count && kept; ++column)
        kept =
            store.setNumber(std::to_wstring(column), static_cast<unsigned long>(ListView_GetColumnWidth(list, column)));
    // A list that had more columns before leaves none behind. Last, so that a failure on the way leaves a whole set.
    for (int column = count; kept && store.remove(std::to_wstring(column)); ++column) {
    }
}

void scaleColumns(HWND dialog, int from, int to) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t name[32] = {};
        GetClassNameW(child, name, std::size(name));
        if (lstrcmpiW(name, WC_LISTVIEWW) != 0)
            continue;
        for (int column = columnCount(child); column-- > 0;)
            ListView_SetColumnWidth(child, column, MulDiv(ListView_GetColumnWidth(child, column), to, from));
    }
}

} // namespace framework
