#include "DrawingTest.h"

#include "engine/DatabaseAccess.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <ostream>

using ui::Script;
using ui::TestDrawing;
using ui::View;

namespace {

/// A picture in memory that can be drawn in.
class Canvas {
  public:
    Canvas(int width, int height) : m_width(width), m_height(height), m_dc(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&m_bits), nullptr, 0);
        m_former = SelectObject(m_dc, m_bitmap);
    }
    ~Canvas() {
        SelectObject(m_dc, m_former);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return m_dc; }
    const RGBQUAD& quad(int x, int y) const { return m_bits[y * m_width + x]; }
    std::vector<COLORREF> colors() const {
        GdiFlush();
        std::vector<COLORREF> found;
        for (int i = 0; i < m_width * m_height; ++i)
            found.push_back(RGB(m_bits[i].rgbRed, m_bits[i].rgbGreen, m_bits[i].rgbBlue));
        return found;
    }

  private:
    int m_width, m_height;
    HDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_former = nullptr;
    RGBQUAD* m_bits = nullptr;
};

int widthOf(const RECT& rect) {
    return std::max(0L, rect.right - rect.left);
}

int heightOf(const RECT& rect) {
    return std::max(0L, rect.bottom - rect.top);
}

int dpi() {
    return static_cast<int>(GetDpiForSystem());
}

int imageSide() {
    return dpi() >= 192 ? 32 : dpi() >= 144 ? 24 : 16;
}

/// A strip of images for this display, with its transparency.
class Strip {
  public:
    /// `id` is that of the strip at 100 %.
    explicit Strip(UINT id) : m_edge(id == IDB_LSTATE_GRID_HEADINGS ? imageSide() / 16 : 0) {
        id += dpi() >= 192 ? 20 : dpi() >= 144 ? 10 : 0;
        const auto bitmap = static_cast<HBITMAP>(LoadImageW(
            GetModuleHandleW(L"KelLayerAppsRes.dll"), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
        BITMAP info{};
        GetObjectW(bitmap, sizeof info, &info);
        m_canvas = std::make_unique<Canvas>(info.bmWidth, info.bmHeight);
        m_count = info.bmWidth / imageSide();
        const HDC source = CreateCompatibleDC(nullptr);
        const HGDIOBJ former = SelectObject(source, bitmap);
        BitBlt(m_canvas->dc(), 0, 0, info.bmWidth, info.bmHeight, source, 0, 0, SRCCOPY);
        GdiFlush();
        SelectObject(source, former);
        DeleteDC(source);
        DeleteObject(bitmap);
    }

    int count() const { return m_count; }
    bool isEmpty(int number) const {
        for (int y = 1; y < imageSide(); ++y)
            for (int x = 0; x < imageSide(); ++x)
                if (m_canvas->quad(number * imageSide() + x, y).rgbReserved)
                    return false;
        return true;
    }
    /// Whether the pixels show the image over the window's colour, but for rounding.
    bool isShown(int number, const Pixels& pixels) const {
        for (int y = std::max(1, m_edge); y < imageSide() - m_edge; ++y)
            for (int x = 0; x < imageSide(); ++x) {
                const COLORREF seen = pixels.at(pixels.place.left + x, pixels.place.top + y);
                const RGBQUAD& quad = m_canvas->quad(number * imageSide() + x, y);
                const COLORREF ground = GetSysColor(COLOR_WINDOW);
                const auto isNear = [&](int part, int image, int below) {
                    return std::abs(part - (image * quad.rgbReserved + below * (255 - quad.rgbReserved)) / 255) <= 2;
                };
                if (!isNear(GetRValue(seen), quad.rgbRed, GetRValue(ground)) ||
                    !isNear(GetGValue(seen), quad.rgbGreen, GetGValue(ground)) ||
                    !isNear(GetBValue(seen), quad.rgbBlue, GetBValue(ground)))
                    return false;
            }
        return true;
    }

  private:
    std::unique_ptr<Canvas> m_canvas;
    int m_edge; // clear lines above and below, which a heading may have no room for
    int m_count = 0;
};

LRESULT CALLBACK noteItem(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR place) {
    if (message == WM_DRAWITEM)
        *reinterpret_cast<RECT*>(place) = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->rcItem;
    return DefSubclassProc(window, message, wParam, lParam);
}

HFONT fontOf(const View& view) {
    return reinterpret_cast<HFONT>(SendMessageW(view.control(grid), WM_GETFONT, 0, 0));
}

} // namespace

COLORREF Pixels::at(int x, int y) const {
    return colors.at(static_cast<std::size_t>((y - place.top) * width() + x - place.left));
}

int Pixels::count(COLORREF color) const {
    return static_cast<int>(std::count(colors.begin(), colors.end(), color));
}

void PrintTo(const Pixels& pixels, std::ostream* out) {
    *out << pixels.width() << " by " << pixels.height() << " at " << pixels.place.left << ", " << pixels.place.top;
    for (std::size_t i = 0; i < pixels.colors.size(); ++i) {
        if (i % static_cast<std::size_t>(pixels.width()) == 0)
            *out << '\n';
        const int light = GetGValue(pixels.colors[i]);
        *out << (light > 230 ? '.' : light > 120 ? '+' : '#');
    }
}

TestDrawing GridDrawing::drawing(const std::vector<std::wstring>& layers,
                                 const std::function<void(zdr::LayerColumns&)>& change) {
    TestDrawing made;
    for (const std::wstring& layer : layers)
        made.layer(layer);
    return made.state(L"Look", MaskAllProperties, L"", change);
}

bool GridDrawing::lookAt(const TestDrawing& drawing, const std::function<void(const View&)>& see) {
    return lookAt(
        drawing, [](zdr::Drawing&) {}, see);
}

bool GridDrawing::lookAt(const TestDrawing& drawing, const std::function<void(zdr::Drawing&)>& change,
                         const std::function<void(const View&)>& see) {
    open(drawing);
    zdr::Drawing changed = drawing.drawing();
    change(changed);
    engine::replaceDrawing(database(), changed);
    return edit(L"Look", Script().look("the grid", see).press(VK_ESCAPE));
}

int GridDrawing::px(int length) {
    return MulDiv(length, dpi(), 96);
}

RECT GridDrawing::rowRect(const View& view, int row) {
    RECT rect{LVIR_BOUNDS, 0, 0, 0};
    SendMessageW(view.control(grid), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

RECT GridDrawing::itemRect(const View& view, int row) {
    RECT item{};
    UpdateWindow(view.control(grid)); // what waits to be painted would be other rows
    SetWindowSubclass(view.window(), noteItem, 1, reinterpret_cast<DWORD_PTR>(&item));
    redraw(view, row);
    RemoveWindowSubclass(view.window(), noteItem, 1);
    return item;
}

void GridDrawing::redraw(const View& view, int row) {
    const RECT place = rowRect(view, row);
    RedrawWindow(view.control(grid), &place, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

RECT GridDrawing::cellRect(const View& view, int row, int column) {
    RECT rect = itemRect(view, row);
    const std::vector<int> widths = view.columnWidths(grid);
    for (int before = 0; before < column; ++before)
        rect.left += widths[static_cast<std::size_t>(before)];
    rect.right = rect.left + widths[static_cast<std::size_t>(column)];
    return rect;
}

RECT GridDrawing::cellRect(const View& view, const wchar_t* layer, int column) {
    return cellRect(view, view.rowOf(grid, layer), column);
}

void GridDrawing::setWidth(const View& view, int column, int width) {
    SendMessageW(view.control(grid), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
}

Pixels GridDrawing::pixels(const View& view, const RECT& place) {
    const HWND list = view.control(grid);
    UpdateWindow(list);
    const Canvas canvas(widthOf(place), heightOf(place));
    const HDC dc = GetDC(list);
    BitBlt(canvas.dc(), 0, 0, widthOf(place), heightOf(place), dc, place.left, place.top, SRCCOPY);
    ReleaseDC(list, dc);
    return {place, canvas.colors()};
}

Pixels GridDrawing::blank(const RECT& place) {
    return {place, std::vector<COLORREF>(static_cast<std::size_t>(widthOf(place) * heightOf(place)),
                                         GetSysColor(COLOR_WINDOW))};
}

Pixels GridDrawing::text(const View& view, const RECT& place, const std::wstring& text, int textColor, int groundColor,
                         UINT format) {
    const Canvas canvas(widthOf(place), heightOf(place));
    RECT all{0, 0, widthOf(place), heightOf(place)};
    FillRect(canvas.dc(), &all, GetSysColorBrush(groundColor));
    SetTextColor(canvas.dc(), GetSysColor(textColor));
    SetBkColor(canvas.dc(), GetSysColor(groundColor));
    const HGDIOBJ former = SelectObject(canvas.dc(), fontOf(view));
    DrawTextW(canvas.dc(), text.c_str(), -1, &all, format);
    SelectObject(canvas.dc(), former);
    return {place, canvas.colors()};
}

int GridDrawing::imageAt(const View& view, int x, int y, UINT stripId) {
    const Strip strip(stripId);
    const Pixels seen = pixels(view, {x, y, x + imageSide(), y + imageSide()});
    for (int number = 0; number < strip.count(); ++number)
        if (!strip.isEmpty(number) && strip.isShown(number, seen))
            return number;
    return -1;
}

std::vector<int> GridDrawing::images(const View& view, const wchar_t* layer) {
    std::vector<int> numbers;
    for (int column = 0; column < static_cast<int>(view.columnWidths(grid).size()); ++column) {
        const RECT cell = cellRect(view, layer, column);
        numbers.push_back(imageAt(view, cell.left, column == 0 ? cell.top : cell.top - 1));
    }
    return numbers;
}
