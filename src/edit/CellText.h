// The text of a cell, as its tip shows it.
#pragma once

#include "CLayerRcd.h"

/// Empty for a cell that shows an image.
/// @param styleFormat with one %d for a colour's number: the plot style of a layer that follows its colour. The tip
///                    shows it in either plot style mode, on purpose.
CString cellText(const CLayerRcd& record, int column, const wchar_t* styleFormat);
/// The plot style of a layer that follows its colour.
CString colorStyleText(const CLayerRcd& record, const wchar_t* styleFormat);

/// Copies the text into the buffer of a tip. A text that there is no room for isn't cut: the buffer is left empty.
/// @param room in characters, with the one that ends the text
void copyTipText(const CString& text, wchar_t* buffer, int room);
