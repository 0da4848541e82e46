// Which of the grid's images stands for what.
#pragma once

inline constexpr int kRowMarkImage = 25;
inline constexpr int kCurrentRowMarkImage = 26;
/// For whatever has no image of its own.
inline constexpr int kFallbackImage = 23;

/// The image of a property's value.
/// @param kind  a ColumnKind
/// @param value 0 a false flag, 1 a true one; 2, which the grid never asks for, several layers that differ
int stateImageNumber(int kind, int value);
