#include "PicturePainter.h"

#include "WindowLook.h"

#include <cmath>

namespace workbench {

namespace {

// A capital takes about this part of a font's height.
constexpr double kCapitalHeight = 0.72;
// Letters larger than any screen say nothing, and fonts of that size cost much.
constexpr double kLargestText = 4000;

POINT pixel(Point point) {
    return {std::lround(point.x), std::lround(point.y)};
}

CRect pixels(const Rect& rect) {
    // Far outside the screen the numbers would not fit GDI's.
    const auto bounded = [](double value) { return std::lround(std::clamp(value, -30000.0, 30000.0)); };
    return {static_cast<int>(bounded(rect.left)), static_cast<int>(bounded(rect.bottom)),
            static_cast<int>(bounded(rect.right)), static_cast<int>(bounded(rect.top))};
}

/// Keeps the state of a context while it lives; what was selected meanwhile can be deleted after it.
class SavedDC {
  public:
    explicit SavedDC(CDC& dc) : m_dc(dc), m_saved(dc.SaveDC()) {}
    ~SavedDC() { m_dc.RestoreDC(m_saved); }
    SavedDC(const SavedDC&) = delete;
    SavedDC& operator=(const SavedDC&) = delete;

  private:
    CDC& m_dc;
    int m_saved;
};

void createPen(CPen& pen, const Pen& wanted) {
    pen.DeleteObject();
    const LOGBRUSH brush{BS_SOLID, wanted.rgb, 0};
    const DWORD ends = wanted.dashed ? PS_ENDCAP_FLAT : PS_ENDCAP_ROUND;
    if (wanted.width > 1)
        pen.CreatePen(static_cast<int>(PS_GEOMETRIC | PS_SOLID | ends | PS_JOIN_ROUND), wanted.width, &brush, 0,
                      nullptr);
    else
        pen.CreatePen(PS_SOLID, 1, wanted.rgb);
}

void paintDot(CDC& dc, Point at, const Pen& pen) {
    const int size = std::max(pen.width, 2);
    const POINT corner = pixel({at.x - size / 2.0, at.y - size / 2.0});
    dc.FillSolidRect(corner.x, corner.y, size, size, pen.rgb);
}

void paintStrokes(CDC& dc, const Strokes& strokes) {
    CPen pen;
    const SavedDC saved(dc);
    Pen selected{0, 0, false};
    std::vector<POINT> run;
    for (const Stroke& stroke : strokes.strokes) {
        if (stroke.count == 1) {
            paintDot(dc, strokes.points[stroke.first], stroke.pen);
            continue;
        }
        if (!(stroke.pen == selected)) {
            dc.SelectStockObject(BLACK_PEN);
            createPen(pen, stroke.pen);
            dc.SelectObject(&pen);
            selected = stroke.pen;
        }
        run.clear();
        for (std::size_t i = 0; i < stroke.count; ++i)
            run.push_back(pixel(strokes.points[stroke.first + i]));
        dc.Polyline(run.data(), static_cast<int>(run.size()));
        // GDI leaves the last point of a thin line out.
        if (stroke.pen.width == 1)
            dc.SetPixelV(run.back().x, run.back().y, stroke.pen.rgb);
    }
    dc.SelectStockObject(BLACK_PEN);
}

void paintLabel(CDC& dc, const Label& label) {
    if (label.height > kLargestText)
        return;
    CFont font;
    const int tenths = static_cast<int>(std::lround(label.rotation * 1800 / 3.14159265358979));
    font.CreateFont(-static_cast<int>(std::lround(label.height / kCapitalHeight)), 0, tenths, tenths, FW_NORMAL, FALSE,
                    FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                    DEFAULT_PITCH | FF_SWISS, L"Tahoma");
    const SavedDC saved(dc);
    dc.SelectObject(&font);
    dc.SetTextColor(label.rgb);
    const POINT at = pixel(label.position);
    dc.TextOut(at.x, at.y, label.text.c_str(), static_cast<int>(label.text.size()));
}

void paintPart(CDC& dc, const PicturePart& part) {
    const SavedDC saved(dc);
    dc.IntersectClipRect(pixels(part.clip));
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_BASELINE | TA_LEFT);
    paintStrokes(dc, part.strokes);
    for (const Label& label : part.labels)
        paintLabel(dc, label);
}

void paintFrame(CDC& dc, const PictureFrame& frame, int dpi) {
    const int width = MulDiv(frame.current ? 3 : 1, dpi, 96);
    CPen pen(PS_INSIDEFRAME, width, frame.current ? colors::kAccent : colors::kViewportFrame);
    const SavedDC saved(dc);
    dc.SelectObject(&pen);
    dc.SelectStockObject(NULL_BRUSH);
    dc.Rectangle(pixels(frame.box));
}

} // namespace

void paintPicture(CDC& dc, const Picture& picture, const CRect& window, int dpi) {
    dc.FillSolidRect(window, picture.paper ? colors::kDesk : colors::kModelBackground);
    if (picture.paper) {
        CRect sheet = pixels(*picture.paper);
        sheet.OffsetRect(MulDiv(4, dpi, 96), MulDiv(4, dpi, 96));
        dc.FillSolidRect(sheet, colors::kPaperShadow);
        dc.FillSolidRect(pixels(*picture.paper), colors::kPaper);
    }
    for (const PicturePart& part : picture.parts)
        paintPart(dc, part);
    for (const PictureFrame& frame : picture.frames)
        paintFrame(dc, frame, dpi);
}

} // namespace workbench
