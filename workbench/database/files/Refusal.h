// Why a file isn't read or written. Thrown from however deep in a file's tables; the public entries of this folder, and
// the few others that use its files directly, turn it into the status and the reason that their callers must look at.
#pragma once

#include "VornStatus.h"
#include "model/Drawing.h"

#include <new>
#include <string>
#include <string_view>

namespace zdr {

struct Refusal {
    Vorn::ErrorStatus status;
    std::wstring cause; ///< the end of a sentence that begins with the path: "holds ..."
};

/// A part of a drawing, as reasons name it: viewport 2 of layout 1 ("A3"). Costs nothing until its text is asked for.
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

/// Runs `action`; turns a Refusal that it throws, or a lack of memory, into a status and a whole sentence for the user.
template <class Action>
Vorn::ErrorStatus fileAnswer(const std::wstring& path, Vorn::ErrorStatus noMemory, std::wstring& reason,
                             Action action) {
    try {
        action();
        return Vorn::eOk;
    } catch (const Refusal& refusal) {
        reason = L"The file \"" + path + L"\" " + refusal.cause + L".";
        return refusal.status;
    } catch (const std::bad_alloc&) {
        reason = L"There isn't enough memory for the file \"" + path + L"\".";
        return noMemory;
    }
}

} // namespace zdr
