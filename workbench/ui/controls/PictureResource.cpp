#include "PictureResource.h"

#include <algorithm>

namespace framework {
namespace {

// In pixels. No button has a larger picture; the bound keeps a broken resource from asking for gigabytes.
constexpr LONG kLargestSide = 1024;

class Bitmap {
  public:
    explicit Bitmap(HBITMAP handle) : m_handle(handle) {}
    ~Bitmap() {
        if (m_handle)
            DeleteObject(m_handle);
    }
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;
    HBITMAP get() const { return m_handle; }

  private:
    HBITMAP m_handle;
};

class MemoryDc {
  public:
    MemoryDc() : m_dc(CreateCompatibleDC(nullptr)) {}
    ~MemoryDc() { DeleteDC(m_dc); }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    HDC get() const { return m_dc; }

  private:
    HDC m_dc;
};

/// 32 bits a pixel, the first row on top.
BITMAPINFO topDown(int width, int height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

} // namespace

AlphaImage loadPicture(HINSTANCE module, const wchar_t* resourceName) {
    const Bitmap bitmap(
        static_cast<HBITMAP>(LoadImageW(module, resourceName, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    BITMAP facts = {};
    if (!bitmap.get() || GetObjectW(bitmap.get(), sizeof facts, &facts) == 0)
        return {};
    if (facts.bmWidth <= 0 || facts.bmHeight <= 0 || facts.bmWidth > kLargestSide || facts.bmHeight > kLargestSide)
        return {};
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(facts.bmWidth) * facts.bmHeight);
    BITMAPINFO info = topDown(facts.bmWidth, facts.bmHeight);
    const MemoryDc dc;
    const UINT rows = static_cast<UINT>(facts.bmHeight);
    if (GetDIBits(dc.get(), bitmap.get(), 0, rows, pixels.data(), &info, DIB_RGB_COLORS) != facts.bmHeight)
        return {};
    return fromStraightAlpha(facts.bmWidth, facts.bmHeight, std::move(pixels));
}

void drawPicture(HDC dc, POINT topLeft, const AlphaImage& picture) {
    if (picture.isEmpty())
        return;
    const BITMAPINFO info = topDown(picture.width, picture.height);
    void* bits = nullptr;
    const Bitmap bitmap(CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap.get())
        return;
    std::copy(picture.pixels.begin(), picture.pixels.end(), static_cast<std::uint32_t*>(bits));
    const MemoryDc source;
    const HGDIOBJ previous = SelectObject(source.get(), bitmap.get());
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    GdiAlphaBlend(dc, topLeft.x, topLeft.y, picture.width, picture.height, source.get(), 0, 0, picture.width,
                  picture.height, blend);
    SelectObject(source.get(), previous);
}

} // namespace framework
