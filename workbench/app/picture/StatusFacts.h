// What the status line shows.
#pragma once

#include "PointerPlace.h"

#include <string>

namespace workbench {

struct StatusFacts {
    std::wstring layer;           ///< the current layer
    std::uint32_t layerColor = 0; ///< packed
    std::wstring space;           ///< the space on view, and the viewport in it
    std::wstring pointer;         ///< where the pointer is; empty while it isn't over the drawing
    std::wstring unit;            ///< that this place counts in
    std::wstring references;      ///< how many there are; empty for none
    bool isReferenceMissing = false;
    std::wstring message; ///< one line
    friend bool operator==(const StatusFacts&, const StatusFacts&) = default;

    /// The pointer's place with its unit, or the unit alone.
    std::wstring place() const { return pointer.empty() ? unit : pointer + L" " + unit; }
    /// All of it in one line.
    std::wstring text() const;
};

/// @param pointer none while the pointer isn't over the drawing
StatusFacts statusOf(const zdr::Drawing& drawing, const std::optional<PointerPlace>& pointer,
                     const std::wstring& message);
/// Changes only what a move of the pointer changes; the drawing is asked for what is on view, and for no more.
void movePointer(StatusFacts& facts, const zdr::Drawing& drawing, const std::optional<PointerPlace>& pointer);

/// The last line of a text that isn't blank, without blanks at its end; empty when there is none.
std::wstring lastLine(const std::wstring& text);

} // namespace workbench
