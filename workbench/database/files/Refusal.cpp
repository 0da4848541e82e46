#include "Refusal.h"

namespace zdr {

std::wstring Place::text() const {
    std::wstring text = kind;
    if (index != kNone)
        text += L" " + std::to_wstring(index + 1);
    if (!name.empty())
        text += L" (\"" + std::wstring(name) + L"\")";
    if (outer)
        text += L" of " + outer->text();
    return text;
}

void refuse(const Place& place, const std::wstring& what) {
    throw Refusal{Vorn::eFileCutOff, L"is damaged: " + place.text() + L" " + what};
}

void refuseIndex(const Place& place, const wchar_t* kind, std::uint64_t index, std::size_t count) {
    refuse(place, L"refers to the " + std::wstring(kind) + L" with the index " + std::to_wstring(index) +
                      L", but there are only " + std::to_wstring(count) + L", counted from 0");
}

} // namespace zdr
