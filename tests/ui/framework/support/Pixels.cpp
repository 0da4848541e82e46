#include "Pixels.h"

Pixels pixelsOf(HWND window) {
    UpdateWindow(window);
    RECT client = {};
    GetClientRect(window, &client);
    Pixels pixels = {client.right, client.bottom, {}};
    pixels.values.resize(static_cast<std::size_t>(client.right) * client.bottom);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC source = GetDC(window);
    const HDC target = CreateCompatibleDC(source);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(target, bitmap);
    BitBlt(target, 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
    GdiFlush();
    for (std::size_t i = 0; i < pixels.values.size(); ++i)
        pixels.values[i] = static_cast<const unsigned*>(bits)[i] & 0xFFFFFF;
    SelectObject(target, previous);
    DeleteObject(bitmap);
    DeleteDC(target);
    ReleaseDC(window, source);
    return pixels;
}
