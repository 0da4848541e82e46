// See RealInput.h.

#include "RealInput.h"

namespace {

void send(INPUT input) {
    SendInput(1, &input, sizeof input);
}

void sendMouse(DWORD flags) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    send(input);
}

void sendKey(WORD virtualKey, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    send(input);
}

} // namespace

void movePointer(POINT screen) {
    // Absolute coordinates go from 0 to 65535 over the primary monitor.
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = MulDiv(screen.x, 65536, GetSystemMetrics(SM_CXSCREEN)) + 1;
    input.mi.dy = MulDiv(screen.y, 65536, GetSystemMetrics(SM_CYSCREEN)) + 1;
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    send(input);
}

POINT centreOf(HWND window) {
    const RECT rect = screenRect(window);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void clickHere() {
    sendMouse(MOUSEEVENTF_LEFTDOWN);
    sendMouse(MOUSEEVENTF_LEFTUP);
}

void click(HWND window) {
    movePointer(centreOf(window));
    clickHere();
}

void pressKey(WORD virtualKey) {
    sendKey(virtualKey, 0);
    sendKey(virtualKey, KEYEVENTF_KEYUP);
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

RECT screenRect(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    return rect;
}

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
