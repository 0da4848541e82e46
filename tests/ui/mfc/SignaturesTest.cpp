// What would not compile with MFC must not compile here: the module is built with both. Checked when this is compiled.
#include <afxcmn.h>
#include <afxwin.h>

#include <type_traits>
#include <utility>

namespace {

// Handlers that MFC lets only the class and those derived from it call.
template <class T>
concept callsOnCommand = requires(T& window) {
    window.OnCommand(0, 0);
};
template <class T>
concept callsOnNotify = requires(T& window) {
    window.OnNotify(0, 0, nullptr);
};
template <class T>
concept callsOnChildNotify = requires(T& window) {
    window.OnChildNotify(0, 0, 0, nullptr);
};
template <class T>
concept callsDoDataExchange = requires(T& window) {
    window.DoDataExchange(nullptr);
};

template <class T>
constexpr bool isClosed = !callsOnCommand<T> && !callsOnNotify<T> && !callsOnChildNotify<T> && !callsDoDataExchange<T>;
static_assert(isClosed<CWnd> && isClosed<CDialog> && isClosed<CButton> && isClosed<CStatic> && isClosed<CListBox> &&
              isClosed<CComboBox> && isClosed<CHeaderCtrl> && isClosed<CListCtrl>);

/// A class may open what it inherits, which shows that the questions above are ones.
struct Open : CListCtrl {
    using CListCtrl::DoDataExchange;
    using CListCtrl::OnChildNotify;
    using CListCtrl::OnCommand;
    using CListCtrl::OnNotify;
};
static_assert(callsOnCommand<Open> && callsOnNotify<Open> && callsOnChildNotify<Open> && callsDoDataExchange<Open>);

// Signatures and constness.
static_assert(std::is_same_v<decltype(&CListCtrl::GetSubItemRect), BOOL (CListCtrl::*)(int, int, int, CRect&) const>);
static_assert(std::is_same_v<decltype(&CListCtrl::GetSelectionMark), int (CListCtrl::*)()>);

} // namespace
