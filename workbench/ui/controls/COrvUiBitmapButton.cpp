// A button with a bitmap from the resources, found by name, and its text beside it where there is room.

#include "OrvUiControls.h"

#include "base/OutOfMemory.h"
#include "base/Scaling.h"
#include "controls/PictureResource.h"
#include "instruments/HostCalls.h"

#include <algorithm>

using framework::AlphaImage;

namespace {

// Between frame, picture and text, in dots at 96 an inch.
constexpr int kGap = 4;

/// The size at which a picture is drawn: its own, scaled with the display, but never larger than the room.
SIZE drawnSize(const AlphaImage& picture, int dpi, SIZE room) {
    const int width = MulDiv(picture.width, dpi, framework::kDesignDpi);
    const int height = MulDiv(picture.height, dpi, framework::kDesignDpi);
    if (width <= room.cx && height <= room.cy)
        return {width, height};
    // The tighter side decides, so that the picture keeps its proportions.
    if (static_cast<long long>(width) * room.cy > static_cast<long long>(height) * room.cx)
        return {room.cx, std::max(1, MulDiv(height, room.cx, width))};
    return {std::max(1, MulDiv(width, room.cy, height)), room.cy};
}

} // namespace

struct COrvUiBitmapButton::Picture {
    AlphaImage loaded;
    // The picture as drawn last, kept because each time that the pointer passes the button is drawn twice.
    AlphaImage fitted;
    bool fittedGrey = false;

    const AlphaImage& fit(SIZE size, bool grey) {
        if (fitted.isEmpty() || fitted.width != size.cx || fitted.height != size.cy || fittedGrey != grey) {
            fitted = framework::scaled(loaded, size.cx, size.cy);
            if (grey)
                fitted = framework::greyed(std::move(fitted));
            fittedGrey = grey;
        }
        return fitted;
    }
};

COrvUiBitmapButton::COrvUiBitmapButton() : m_picture(new Picture) {}

COrvUiBitmapButton::~COrvUiBitmapButton() {
    delete m_picture;
}

BOOL COrvUiBitmapButton::OnReload(const wchar_t* resourceName) {
    return framework::answerOr(FALSE, [&] {
        instruments::HostCall call("OnReload", resourceName);
        AlphaImage loaded;
        if (!call.fault() && resourceName)
            loaded = framework::loadPicture(AfxGetResourceHandle(), resourceName);
        if (loaded.isEmpty())
            return BOOL{call.answer(false)};
        m_picture->loaded = std::move(loaded);
        m_picture->fitted = {};
        if (GetSafeHwnd())
            ::InvalidateRect(GetSafeHwnd(), nullptr, FALSE);
        return BOOL{call.answer(true)};
    });
}

CString COrvUiBitmapButton::TipText() {
    if (m_picture->loaded.isEmpty())
        return COrvUiOwnerDrawButton::TipText();
    CString text;
    if (!HasRoomForText(m_picture->fitted.width + 2 * framework::scaledFor(GetSafeHwnd(), kGap)))
        GetWindowText(text);
    return text;
}

void COrvUiBitmapButton::DrawButton(CDC& dc, const CRect& face, UINT itemState) {
    const SIZE room = {face.Width(), face.Height()};
    if (m_picture->loaded.isEmpty() || room.cx <= 0 || room.cy <= 0) {
        COrvUiOwnerDrawButton::DrawButton(dc, face, itemState);
        return;
    }
    const SIZE size = drawnSize(m_picture->loaded, framework::dpiOf(GetSafeHwnd()), room);
    const AlphaImage& picture = m_picture->fit(size, (itemState & ODS_DISABLED) != 0);
    CString text;
    GetWindowText(text);
    const int gap = framework::scaledFor(GetSafeHwnd(), kGap);
    const bool withText = !text.IsEmpty() && HasRoomForText(size.cx + 2 * gap);
    const LONG left = withText ? face.left + gap : face.left + (room.cx - size.cx) / 2;
    const LONG pressed = itemState & ODS_SELECTED ? 1 : 0;
    framework::drawPicture(dc.GetSafeHdc(), {left + pressed, face.top + (room.cy - size.cy) / 2 + pressed}, picture);
    if (withText)
        DrawCaption(dc, CRect(left + size.cx + gap + pressed, face.top + pressed, face.right, face.bottom + pressed),
                    itemState, DT_LEFT);
}

BOOL COrvUiBitmapButton::OnAutoLoad() {
    CString text;
    GetWindowText(text);
    if (text.IsEmpty())
        return FALSE;
    AlphaImage loaded = framework::loadPicture(AfxGetResourceHandle(), text.GetString());
    if (loaded.isEmpty())
        return FALSE;
    m_picture->loaded = std::move(loaded);
    m_picture->fitted = {};
    return TRUE;
}

void COrvUiBitmapButton::PreSubclassWindow() {
    COrvUiOwnerDrawButton::PreSubclassWindow();
    framework::asFarAsMemoryLasts([this] { OnAutoLoad(); });
}
