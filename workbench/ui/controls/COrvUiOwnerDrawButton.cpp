// A push button that draws itself in the system's style, and behaves as a push button in every other respect.

#include "OrvUiControls.h"

#include "base/Scaling.h"

#include <uxtheme.h>
#include <vssym32.h>

BEGIN_MESSAGE_MAP(COrvUiOwnerDrawButton, CButton)
ON_WM_MOUSEMOVE()
ON_MESSAGE(WM_MOUSELEAVE, OnMouseLeave)
ON_MESSAGE(WM_GETDLGCODE, OnDialogCode)
ON_MESSAGE(BM_SETSTYLE, OnSetStyle)
ON_MESSAGE(WM_SETTEXT, OnSetText)
END_MESSAGE_MAP()

namespace {

// Between the frame and the face, and around the text, in dots at 96 an inch.
constexpr int kFaceMargin = 3;

class Theme {
  public:
    explicit Theme(HWND window) : m_theme(IsAppThemed() ? OpenThemeData(window, L"Button") : nullptr) {}
    ~Theme() {
        if (m_theme)
            CloseThemeData(m_theme);
    }
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;
    HTHEME get() const { return m_theme; }

  private:
    HTHEME m_theme;
};

/// A font selected into a device context for the life of the guard.
class SelectedFont {
  public:
    SelectedFont(HDC dc, HWND window) : m_dc(dc) {
        const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(window, WM_GETFONT, 0, 0));
        m_previous = SelectObject(dc, font ? font : GetStockObject(DEFAULT_GUI_FONT));
    }
    ~SelectedFont() { SelectObject(m_dc, m_previous); }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

  private:
    HDC m_dc;
    HGDIOBJ m_previous;
};

int themeState(UINT itemState, bool hot, bool isDefault) {
    if (itemState & ODS_DISABLED)
        return PBS_DISABLED;
    if (itemState & ODS_SELECTED)
        return PBS_PRESSED;
    if (hot)
        return PBS_HOT;
    return isDefault ? PBS_DEFAULTED : PBS_NORMAL;
}

UINT classicState(UINT itemState, bool hot) {
    UINT state = DFCS_BUTTONPUSH;
    if (itemState & ODS_DISABLED)
        state |= DFCS_INACTIVE;
    if (itemState & ODS_SELECTED)
        state |= DFCS_PUSHED;
    if (hot)
        state |= DFCS_HOT;
    return state;
}

} // namespace

COrvUiOwnerDrawButton::COrvUiOwnerDrawButton() : m_hot(false), m_default(false) {}
COrvUiOwnerDrawButton::~COrvUiOwnerDrawButton() {}

void COrvUiOwnerDrawButton::DrawItem(LPDRAWITEMSTRUCT item) {
    CDC* dc = CDC::FromHandle(item->hDC);
    CRect face(item->rcItem);
    DrawFrame(*dc, face, item->itemState);
    const int margin = framework::scaledFor(GetSafeHwnd(), kFaceMargin);
    face.DeflateRect(margin, margin);
    DrawButton(*dc, face, item->itemState);
    const bool showsFocus = (item->itemState & ODS_FOCUS) && !(item->itemState & ODS_NOFOCUSRECT);
    if (showsFocus)
        ::DrawFocusRect(item->hDC, &face);
}

CString COrvUiOwnerDrawButton::TipText() {
    CString text;
    if (!HasRoomForText(0))
        GetWindowText(text);
    return text;
}

void COrvUiOwnerDrawButton::DrawButton(CDC& dc, const CRect& face, UINT itemState) {
    DrawCaption(dc, face, itemState, DT_CENTER);
}

void COrvUiOwnerDrawButton::DrawFrame(CDC& dc, const CRect& button, UINT itemState) {
    const Theme theme(GetSafeHwnd());
    RECT frame = button;
    if (theme.get()) {
        // The theme's button has round corners: what is behind them is the dialog's.
        DrawThemeParentBackground(GetSafeHwnd(), dc.GetSafeHdc(), &frame);
        const int state = themeState(itemState, m_hot, m_default);
        DrawThemeBackground(theme.get(), dc.GetSafeHdc(), BP_PUSHBUTTON, state, &button, nullptr);
    } else {
        ::DrawFrameControl(dc.GetSafeHdc(), &frame, DFC_BUTTON, classicState(itemState, m_hot));
        if (m_hot && !(itemState & (ODS_DISABLED | ODS_SELECTED)))
            ::FrameRect(dc.GetSafeHdc(), &frame, GetSysColorBrush(COLOR_HOTLIGHT));
    }
}

void COrvUiOwnerDrawButton::DrawCaption(CDC& dc, const CRect& area, UINT itemState, UINT format) {
    CString text;
    GetWindowText(text);
    if (text.IsEmpty())
        return;
    const HDC target = dc.GetSafeHdc();
    const SelectedFont font(target, GetSafeHwnd());
    const int mode = ::SetBkMode(target, TRANSPARENT);
    const COLORREF colour =
        ::SetTextColor(target, GetSysColor(itemState & ODS_DISABLED ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    RECT rect = area;
    UINT flags = format | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS;
    if (itemState & ODS_NOACCEL)
        flags |= DT_HIDEPREFIX;
    ::DrawTextW(target, text.GetString(), text.GetLength(), &rect, flags);
    ::SetTextColor(target, colour);
    ::SetBkMode(target, mode);
}

bool COrvUiOwnerDrawButton::HasRoomForText(int taken) {
    CString text;
    GetWindowText(text);
    RECT button = {};
    ::GetClientRect(GetSafeHwnd(), &button);
    RECT needed = {};
    const HDC dc = ::GetDC(GetSafeHwnd());
    {
        const SelectedFont font(dc, GetSafeHwnd());
        ::DrawTextW(dc, text.GetString(), text.GetLength(), &needed, DT_SINGLELINE | DT_CALCRECT);
    }
    ::ReleaseDC(GetSafeHwnd(), dc);
    const LONG room = button.right - 2 * framework::scaledFor(GetSafeHwnd(), kFaceMargin) - taken;
    return needed.right <= room && needed.bottom <= button.bottom;
}

void COrvUiOwnerDrawButton::PreSubclassWindow() {
    CButton::PreSubclassWindow();
    const LONG_PTR style = GetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE);
    m_default = (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    SetWindowLongPtrW(GetSafeHwnd(), GWL_STYLE, (style & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_OWNERDRAW);
}

void COrvUiOwnerDrawButton::OnMouseMove(UINT flags, CPoint point) {
    if (!m_hot) {
        TRACKMOUSEEVENT track = {};
        track.cbSize = sizeof track;
        track.dwFlags = TME_LEAVE;
        track.hwndTrack = GetSafeHwnd();
        m_hot = TrackMouseEvent(&track) != FALSE;
        ::InvalidateRect(GetSafeHwnd(), nullptr, FALSE);
    }
    CButton::OnMouseMove(flags, point);
}

LRESULT COrvUiOwnerDrawButton::OnMouseLeave(WPARAM, LPARAM) {
    m_hot = false;
    ::InvalidateRect(GetSafeHwnd(), nullptr, FALSE);
    return 0;
}

// An owner-drawn button is no push button to the dialog manager, so Enter on it would press the dialog's default button
// in its place. The two handlers below tell and keep what an ordinary push button would.
LRESULT COrvUiOwnerDrawButton::OnDialogCode(WPARAM, LPARAM) {
    return DLGC_BUTTON | (m_default ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

LRESULT COrvUiOwnerDrawButton::OnSetStyle(WPARAM wParam, LPARAM lParam) {
    m_default = (wParam & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    return DefWindowProc(BM_SETSTYLE, (wParam & ~static_cast<WPARAM>(BS_TYPEMASK)) | BS_OWNERDRAW, lParam);
}

LRESULT COrvUiOwnerDrawButton::OnSetText(WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = DefWindowProc(WM_SETTEXT, wParam, lParam);
    ::InvalidateRect(GetSafeHwnd(), nullptr, FALSE);
    return answer;
}
