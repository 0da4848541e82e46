// What a layer states file says, once all of it is checked. It is references into the file's bytes: a state is made of
// it only when nothing can be refused any more, so that a file that is refused takes little more memory than its own.
#pragma once

#include "LayerStateMask.h"
#include "StateFileCharacters.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace engine::statefile {

/// A layer whose values are checked. An empty text of a colour is none.
struct Row {
    Bytes name, linetype, plotStyle, colorName, colorBook;
    std::uint32_t color = 0; ///< without its names
    std::int16_t lineWeight = 0;
    std::uint8_t flags = 0;
};

/// A state whose parts are all checked, as references into the file's bytes.
struct CheckedState {
    Bytes name, description;
    LayerStateMask mask = 0;
    bool hasViewportData = false;
    std::vector<Row> rows;
    std::optional<std::size_t> currentLayer; ///< a row
};

/// Checks a text from its beginning to its end, or throws the zdr::Refusal. The text has to live as long as the answer.
CheckedState checkState(Bytes text);

} // namespace engine::statefile
