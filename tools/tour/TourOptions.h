// What the words of the command line ask of the tour.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tour {

struct Options {
    std::wstring workbench; ///< the program
    std::wstring drawing;   ///< the path of the drawing that is opened
    std::wstring edit;      ///< the name of the state that is edited
    std::wstring state;     ///< the name of the state that is restored
    std::wstring exportAs;  ///< the path of the layer states file in which it goes to the other drawing
    std::wstring other;     ///< the path of the other drawing, from which states are imported too
    std::wstring replaced;  ///< the name of a state of both drawings
    std::wstring legacy;    ///< the path of the drawing with states of an older layer tool
    std::wstring saveAs;    ///< the path under which the drawing is saved
    std::wstring shots;     ///< folder of the pictures
};

/// @param words without the program's own name. None when one is missing or unknown. Paths come out as full paths.
std::optional<Options> parseOptions(const std::vector<std::wstring>& words);

} // namespace tour
