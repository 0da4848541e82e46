// Words that mean something to the host wherever they stand, and the names of the palette's first colours.
#pragma once

namespace engine {

/// Numbers of keldbGetReservedString.
enum ReservedWord : int { kByLayerWord = 0, kByBlockWord = 1, kDefaultWord = 7, kModelSpaceWord = 10 };

/// A static text; null for a number that no word has.
const wchar_t* reservedWord(int which);
/// The word of a palette index from 0 to 7 or 256; null for the others, which have none.
const wchar_t* colorWord(int index);

} // namespace engine
