// Why a drawing file isn't read or written. Thrown inside this folder only, from however deep in a file's tables; the
// public entries turn it into the status and the reason that their callers must look at.
#pragma once

#include "VornStatus.h"
#include "model/Drawing.h"

#include <string>
#include <string_view>

namespace zdr {

struct Refusal {
    Vorn::ErrorStatus status;
    std::wstring cause; ///< the end of a sentence that begins with the path: "holds ..."
};

/// A part of a drawing, as reasons name it: viewport 2 of layout 1 ("A3"). Costs nothing until it is told.
struct Place {
    const wchar_t* kind;
    std::size_t index = kNone; ///< from 0; told from 1
    std::wstring_view name = {};
    const Place* outer = nullptr;

    std::wstring text() const;
};

/// Refuses a file whose parts contradict each other: the cause is "is damaged: <place> <what>".
[[noreturn]] void refuse(const Place& place, const std::wstring& what);
/// Refuses an index that is out of range: "<place> refers to <kind> 7, but the drawing has only 3".
[[noreturn]] void refuseIndex(const Place& place, const wchar_t* kind, std::uint64_t index, std::size_t count);

} // namespace zdr
