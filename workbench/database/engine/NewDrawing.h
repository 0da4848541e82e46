// What every drawing has, whoever wrote it.
#pragma once

#include "model/Drawing.h"

namespace engine {

/// A new drawing: the base layer, the continuous linetype, the normal plot style, one sheet with one viewport.
zdr::Drawing newDrawing();
/// Lists the styles that only layers name, gives handles to what has none, keeps the counter of handles ahead of all,
/// joins the states that hold just the drawing's layers to the drawing's own set, sorts extended data by object and
/// registers its applications.
void completeDrawing(zdr::Drawing& drawing);

/// Linetypes or plot styles that layers name but the drawing doesn't list, as far as is known of them: their names.
/// Such a layer would lose its style by the first restore of a state in which it has another one, and nothing could
/// give it back, since a restore writes no style that the drawing lacks.
/// @param used a column of the drawing's layers
template <class Style>
std::vector<Style> missingStyles(const std::vector<Style>& styles, const zdr::Column<zdr::NameId>& used,
                                 std::size_t nameCount) {
    std::vector<bool> known(nameCount);
    known[zdr::kNoName] = true;
    for (const Style& style : styles)
        known[style.name] = true;
    std::vector<Style> missing;
    for (const zdr::NameId name : used.values())
        if (name < nameCount && !known[name]) {
            known[name] = true;
            missing.emplace_back().name = name;
        }
    return missing;
}

} // namespace engine
