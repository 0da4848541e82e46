#include "WindowLook.h"

#include "values/ColorPalette.h"

namespace workbench {

std::uint32_t paletteRgb(int index) {
    const engine::Rgb color = engine::paletteColor(index);
    return RGB(color.red, color.green, color.blue);
}

void WindowLook::update(int dpi) {
    m_dpi = dpi;
    NONCLIENTMETRICS metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0, static_cast<UINT>(dpi)))
        SystemParametersInfo(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    m_font.DeleteObject();
    m_font.CreateFontIndirect(&metrics.lfMessageFont);

    CClientDC dc(nullptr);
    CFont* former = dc.SelectObject(&m_font);
    TEXTMETRIC text{};
    dc.GetTextMetrics(&text);
    dc.SelectObject(former);
    m_lineHeight = text.tmHeight + text.tmExternalLeading;
}

bool BackBuffer::fit(CDC& window, const CSize& size) {
    if (m_dc.m_hDC && size == m_size)
        return false;
    release();
    m_dc.CreateCompatibleDC(&window);
    m_bitmap.CreateCompatibleBitmap(&window, std::max(1L, size.cx), std::max(1L, size.cy));
    m_stock = static_cast<HBITMAP>(::SelectObject(m_dc, m_bitmap));
    m_size = size;
    return true;
}

void BackBuffer::show(CDC& window) {
    window.BitBlt(0, 0, m_size.cx, m_size.cy, &m_dc, 0, 0, SRCCOPY);
}

void BackBuffer::release() {
    if (m_dc.m_hDC) {
        ::SelectObject(m_dc, m_stock);
        m_dc.DeleteDC();
        m_bitmap.DeleteObject();
    }
}

BackBuffer::~BackBuffer() {
    release();
}

} // namespace workbench
