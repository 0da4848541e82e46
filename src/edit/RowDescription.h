// What a screen reader says of a row of the grid in which a state is edited, after the layer's name.
#pragma once

#include "CLayerRcd.h"

#include <functional>

/// What the cells show, in words: each as its heading and its value, and before them that the layer is the current one.
/// The texts of the list's cells can't be read out: those of the flags are digits, and others are empty.
/// @param text answers the resource string of a number
CString rowDescription(const CLayerRcd& record, const std::function<CString(unsigned int)>& text);
