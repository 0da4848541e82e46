// The dialog in which a row of a list is picked: linetypes, lineweights, plot styles.
#pragma once

#include "SampleList.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace framework {

struct PickerColumn {
    const wchar_t* heading;
    int width; ///< dialog units
};

/// Everything that one picker shows.
struct PickerList {
    UINT templateId = 0;
    const wchar_t* dialogName = nullptr; ///< under which its placement and columns are kept
    std::vector<PickerColumn> columns;
    std::vector<std::vector<std::wstring>> rows; ///< the texts by column
    std::optional<std::size_t> selected;         ///< the row to begin with
    std::wstring note;                           ///< stands below the list
    int sampleColumn = -1;
    DrawSample drawSample;
};

/// Shows the list modally over the active window.
/// @return the picked row; none when the dialog was cancelled or couldn't be shown
std::optional<std::size_t> pickFromList(const PickerList& list);

/// The host's word for a choice such as by layer; `which` is a number such as engine::kByLayerWord. Empty when the host
/// has none.
std::wstring hostWord(int which);

} // namespace framework
