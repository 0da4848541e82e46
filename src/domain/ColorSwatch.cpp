#include "ColorSwatch.h"

#include "KelEditor.h"
#include "SavedContext.h"

namespace {

constexpr int kSwatchSide = 12;
constexpr int kByLayerIndex = 256;

COLORREF fillColor(const KelCmColor& color) {
    if (!color.isByPCI())
        return RGB(color.red(), color.green(), color.blue());
    const int index = color.colorIndex();
    return index == kByLayerIndex ? RGB(255, 255, 255) : keledGetRGB(index);
}

bool drawSwatch(CBitmap& bitmap, const KelCmColor& color) {
    // Declared before the context, so that they are destroyed after it: GDI doesn't delete what is selected.
    CPen pen;
    CBrush brush;
    CDC memory;
    if (!memory.CreateCompatibleDC(nullptr))
        return false;
    const SavedContext saved(memory);
    memory.SelectObject(&bitmap);
    const bool hasTools = pen.CreatePen(PS_SOLID, 1, RGB(0, 0, 0)) && brush.CreateSolidBrush(fillColor(color));
    if (hasTools) {
        memory.SelectObject(&pen);
        memory.SelectObject(&brush);
        memory.Rectangle(0, 0, kSwatchSide, kSwatchSide);
    }
    return hasTools;
}

} // namespace

bool makeColorSwatch(CBitmap& bitmap, KelCmColor color, CDC* dc) {
    if (!dc)
        return false;
    if (bitmap.GetSafeHandle())
        bitmap.DeleteObject();
    if (!bitmap.CreateCompatibleBitmap(dc, kSwatchSide, kSwatchSide))
        return false;
    if (drawSwatch(bitmap, color))
        return true;
    bitmap.DeleteObject();
    return false;
}
