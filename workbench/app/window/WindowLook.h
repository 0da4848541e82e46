// The look that the Workbench's windows share: the system's message font, sizes at the window's resolution, colours.
#pragma once

#include "ColorRgb.h"

#include <afxwin.h>

#include <algorithm>

namespace workbench {

namespace colors {
inline constexpr COLORREF kModelBackground = RGB(30, 34, 41);
inline constexpr COLORREF kModelForeground = RGB(236, 238, 240);
inline constexpr COLORREF kDesk = RGB(84, 91, 102);
inline constexpr COLORREF kPaper = RGB(253, 253, 250);
inline constexpr COLORREF kPaperForeground = RGB(0, 0, 0);
inline constexpr COLORREF kPaperShadow = RGB(58, 63, 71);
inline constexpr COLORREF kViewportFrame = RGB(150, 156, 165);
inline constexpr COLORREF kAccent = RGB(38, 120, 196);
inline constexpr COLORREF kBar = RGB(240, 241, 243);
inline constexpr COLORREF kBarLine = RGB(205, 208, 212);
inline constexpr COLORREF kBarText = RGB(32, 34, 38);
inline constexpr COLORREF kBarTextDim = RGB(96, 101, 110);
inline constexpr COLORREF kWarning = RGB(255, 214, 102);
} // namespace colors

/// RGB of a palette index, red in the low byte.
std::uint32_t paletteRgb(int index);

/// Sizes and the font at one resolution.
class WindowLook {
  public:
    /// Reads the system's message font for that resolution, in dots per inch.
    void update(int dpi);

    /// Pixels for a length that is given at 96 dots per inch.
    int px(int length) const { return MulDiv(length, m_dpi, 96); }
    int dpi() const { return m_dpi; }
    CFont& font() { return m_font; }
    /// Height of one line of the font, in pixels.
    int lineHeight() const { return m_lineHeight; }

  private:
    CFont m_font;
    int m_dpi = 96;
    int m_lineHeight = 16;
};

/// A picture in memory that a window is painted from, so that nothing flickers.
class BackBuffer {
  public:
    /// Makes the buffer that large. Answers whether it had to be made anew, with undefined content.
    bool fit(CDC& window, const CSize& size);
    CDC& dc() { return m_dc; }
    void show(CDC& window);
    ~BackBuffer();

  private:
    void release();

    CDC m_dc;
    CBitmap m_bitmap;
    HBITMAP m_stock = nullptr; // the context's own bitmap, which goes back in before the context ends
    CSize m_size{0, 0};
};

} // namespace workbench
