// A drawing as it is put on the screen: strokes and texts in pixels, in the parts of the window that they belong to.
#pragma once

#include "ColorRgb.h"
#include "Strokes.h"

#include <optional>
#include <string>

namespace workbench {

struct Label {
    Point position;      ///< left end of the base line, pixels
    double height = 0;   ///< of a capital, pixels
    double rotation = 0; ///< radians, counter-clockwise as seen
    std::uint32_t rgb = 0;
    std::wstring text;
};

/// What is drawn within one rectangle of the window.
struct PicturePart {
    Rect clip; ///< pixels; bottom is the smaller y
    Strokes strokes;
    std::vector<Label> labels;
};

/// The outline of a viewport.
struct PictureFrame {
    Rect box; ///< pixels
    bool current = false;
};

struct Picture {
    std::optional<Rect> paper; ///< the sheet, in pixels, when a layout is shown
    std::vector<PicturePart> parts;
    std::vector<PictureFrame> frames;
};

/// What a picture depends on besides the drawing: the size of the window, the scalings and the colours.
struct Screen {
    double width = 0, height = 0; ///< pixels
    double pixelsPerMillimetre = 96 / 25.4;
    double linetypeScale = 1;                 ///< by which the patterns' lengths are multiplied
    std::uint32_t modelForeground = 0xFFFFFF; ///< colour 7 on the model tab
    std::uint32_t paperForeground = 0x000000; ///< colour 7 on paper
    PaletteRgb paletteRgb = nullptr;
};

/// The picture of the model tab. `view` maps model space to pixels.
Picture modelPicture(const zdr::Drawing& drawing, const ViewTransform& view, const Screen& screen);
/// The picture of a layout. `view` maps its paper to pixels.
Picture layoutPicture(const zdr::Drawing& drawing, const zdr::Layout& layout, const ViewTransform& view,
                      const Screen& screen);

/// The rectangle around all entities of model space, those of references included.
Rect modelExtents(const zdr::Drawing& drawing);
/// The rectangle around a layout's sheet and everything that is drawn on its paper.
Rect layoutExtents(const zdr::Layout& layout);
/// The rectangle of the paper that a viewport fills.
Rect boxOf(const zdr::Viewport& viewport);
/// Whether a viewport shows anything.
bool isOn(const zdr::Viewport& viewport);
/// The topmost of the viewports that are on and hold this point of the paper; null when there is none.
const zdr::Viewport* viewportAt(const zdr::Layout& layout, Point paper);

} // namespace workbench
