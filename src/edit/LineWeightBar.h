// The sample of a lineweight in its cell: a bar as thick as the line, as far as there is room.
#pragma once

/// Thickness of the sample of a width in hundredths of a millimetre, in pixels of a display at 96 dots an inch;
/// anything up to 25 is 1.
int barThickness(int lineWeight);

/// The bar inside its box, from `top` to `bottom`, relative to the box's top.
struct BarPlace {
    int top;
    int bottom;
};
/// @param thickness,boxHeight of the bar and of the sample's box, in pixels
BarPlace placeBar(int thickness, int boxHeight);
