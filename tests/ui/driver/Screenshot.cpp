#include "Screenshot.h"

namespace ui {

namespace {

BITMAPINFOHEADER headerOf(const RECT& part) {
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 24;
    header.biCompression = BI_RGB;
    // Each line is padded to whole 32-bit words.
    header.biSizeImage = static_cast<DWORD>((width * 3 + 3) / 4 * 4 * height);
    return header;
}

std::vector<char> screenPixels(const RECT& part, const BITMAPINFOHEADER& header) {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, header.biWidth, header.biHeight);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const bool copied = BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, part.left, part.top, SRCCOPY);
    SelectObject(memory, before);
    std::vector<char> pixels(header.biSizeImage);
    BITMAPINFO info{header, {}};
    const int lines =
        copied ? GetDIBits(memory, bitmap, 0, static_cast<UINT>(header.biHeight), pixels.data(), &info, DIB_RGB_COLORS)
               : 0;
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (lines != header.biHeight)
        pixels.clear();
    return pixels;
}

} // namespace

RECT wholeScreen() {
    return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

std::vector<char> screenBytes() {
    return screenPixels(wholeScreen(), headerOf(wholeScreen()));
}

bool saveScreenshot(const std::wstring& path, const RECT& part) {
    const BITMAPINFOHEADER header = headerOf(part);
    const std::vector<char> pixels = screenPixels(part, header);
    if (pixels.empty())
        return false;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42; // "BM"
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + static_cast<DWORD>(pixels.size());
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    DWORD written = 0;
    const bool ok = WriteFile(handle, &file, sizeof file, &written, nullptr) &&
                    WriteFile(handle, &header, sizeof header, &written, nullptr) &&
                    WriteFile(handle, pixels.data(), static_cast<DWORD>(pixels.size()), &written, nullptr);
    CloseHandle(handle);
    return ok;
}

} // namespace ui
