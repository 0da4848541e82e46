#include "Pixels.h"

namespace {

/// The first pixels of a context of the window, which is given back.
Pixels copyOf(HWND window, HDC source, LONG width, LONG height) {
    Pixels pixels = {width, height, {}};
    pixels.values.resize(static_cast<std::size_t>(width) * height);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC target = CreateCompatibleDC(source);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(target, bitmap);
    BitBlt(target, 0, 0, width, height, source, 0, 0, SRCCOPY);
    GdiFlush();
    for (std::size_t i = 0; i < pixels.values.size(); ++i)
        pixels.values[i] = static_cast<const unsigned*>(bits)[i] & 0xFFFFFF;
    SelectObject(target, previous);
    DeleteObject(bitmap);
    DeleteDC(target);
    ReleaseDC(window, source);
    return pixels;
}

} // namespace

Pixels pixelsOf(HWND window) {
    UpdateWindow(window);
    RECT client = {};
    GetClientRect(window, &client);
    return copyOf(window, GetDC(window), client.right, client.bottom);
}

Pixels pixelsWithFrameOf(HWND window) {
    UpdateWindow(window);
    RECT whole = {};
    GetWindowRect(window, &whole);
    return copyOf(window, GetWindowDC(window), whole.right - whole.left, whole.bottom - whole.top);
}
