#include "ProgressWindow.h"

#include "base/FrameworkModule.h"
#include "progress/ProgressIds.h"
#include "progress/model/ProgressText.h"

#include <afxwin.h>
#include <commctrl.h>

namespace framework {
namespace {

constexpr int kBarLength = 1'000;

/// What a window over everything else of this program is to stand over; null when there is nothing.
HWND windowInFront() {
    if (const HWND active = GetActiveWindow())
        return active;
    const CWinApp* const application = AfxGetApp();
    const CWnd* const mainWindow = application ? application->m_pMainWnd : nullptr;
    return mainWindow ? GetLastActivePopup(mainWindow->GetSafeHwnd()) : nullptr;
}

/// Fills the bar as far as that; before the total is known it only shows that something is going on.
void fillBar(HWND bar, const ProgressFacts& facts) {
    const LONG_PTR style = GetWindowLongPtrW(bar, GWL_STYLE);
    const bool isKnown = facts.total > 0;
    const bool wasKnown = (style & PBS_MARQUEE) == 0;
    if (isKnown && !wasKnown) {
        SendMessageW(bar, PBM_SETMARQUEE, FALSE, 0);
        SetWindowLongPtrW(bar, GWL_STYLE, style & ~LONG_PTR{PBS_MARQUEE});
        SendMessageW(bar, PBM_SETRANGE32, 0, kBarLength);
    }
    if (isKnown)
        SendMessageW(bar, PBM_SETPOS, static_cast<WPARAM>(progress::barPosition(facts.done, facts.total, kBarLength)),
                     0);
}

} // namespace

ProgressWindow::ProgressWindow(const ProgressFacts& facts)
    : m_owner(windowInFront()), m_window(CreateDialogParamW(frameworkModule(), MAKEINTRESOURCEW(IDD_PROGRESS), m_owner,
                                                            dialogProcedure, reinterpret_cast<LPARAM>(this))) {
    if (!m_window)
        return;
    dropInput();
    SetWindowTextW(m_window, facts.title.c_str());
    SendDlgItemMessageW(m_window, IDC_PROGRESS_BAR, PBM_SETMARQUEE, TRUE, 0);
    show(facts);
    ShowWindow(m_window, SW_SHOW);
}

ProgressWindow::~ProgressWindow() {
    m_others.enable();
    if (m_window)
        DestroyWindow(m_window);
}

void ProgressWindow::show(const ProgressFacts& facts) {
    const bool isKnown = facts.total > 0;
    setText(IDC_PROGRESS_TEXT, facts.text);
    setText(IDC_PROGRESS_AMOUNT, isKnown ? progress::amountText(facts.done, facts.total) : facts.beginning);
    setText(IDC_PROGRESS_TIME, progress::timeLeftText(facts.done, facts.total, facts.elapsed));
    if (const HWND bar = GetDlgItem(m_window, IDC_PROGRESS_BAR))
        fillBar(bar, facts);
}

void ProgressWindow::setText(int control, const std::wstring& text) {
    // A text that is set again flickers, and is read out again.
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(GetDlgItem(m_window, control))), L'\0');
    GetDlgItemTextW(m_window, control, shown.data(), static_cast<int>(shown.size() + 1));
    if (shown != text)
        SetDlgItemTextW(m_window, control, text.c_str());
}

bool ProgressWindow::isEnd(const MSG& message) {
    if (message.message != WM_QUIT)
        return false;
    PostQuitMessage(static_cast<int>(message.wParam)); // for the loop behind this window
    return m_cancelled = true;
}

void ProgressWindow::dropInput() {
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) ||
           PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE))
        if (isEnd(message)) // which comes whatever is asked for
            return;
}

void ProgressWindow::handleMessages() {
    // Timers that are due again as soon as they have been handled would keep the work from going on.
    constexpr std::chrono::milliseconds kLongest{50};
    const auto start = std::chrono::steady_clock::now();
    MSG message;
    while (std::chrono::steady_clock::now() - start < kLongest && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (isEnd(message))
            return;
        if (IsDialogMessageW(m_window, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

INT_PTR CALLBACK ProgressWindow::dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
        return TRUE;
    }
    if (message != WM_COMMAND || LOWORD(wParam) != IDCANCEL)
        return FALSE;
    reinterpret_cast<ProgressWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))->m_cancelled = true;
    EnableWindow(GetDlgItem(window, IDCANCEL), FALSE);
    return TRUE;
}

} // namespace framework
