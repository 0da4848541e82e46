// What the status line shows.
#pragma once

#include "model/Drawing.h"

#include <string>

namespace workbench {

struct StatusFacts {
    std::wstring layer;           ///< the current layer
    std::uint32_t layerColor = 0; ///< packed
    std::wstring space;           ///< the space on view, and the viewport in it
    std::wstring message;         ///< one line
    friend bool operator==(const StatusFacts&, const StatusFacts&) = default;

    /// All of it in one line.
    std::wstring text() const { return layer + L" | " + space + L" | " + message; }
};

StatusFacts statusOf(const zdr::Drawing& drawing, const std::wstring& message);

/// The last line of a text that isn't blank, without blanks at its end; empty when there is none.
std::wstring lastLine(const std::wstring& text);

} // namespace workbench
