// What a name may look like: of layers, of layer states, of registered applications, of colours.
#pragma once

#include "KelExport.h"
#include "VornStatus.h"

#include <string>
#include <string_view>

namespace engine {

/// Stands between a reference's name and the name of what comes from it; part of no other name.
inline constexpr wchar_t kReferenceSeparator = L'!';
inline constexpr std::size_t kMaxNameLength = 255;
inline constexpr std::size_t kMaxOldNameLength = 31;
/// The layer that every drawing has; it can't be renamed or removed.
inline constexpr const wchar_t* kBaseLayerName = L"Base";

/// The linetype that every drawing has.
inline constexpr const wchar_t* kContinuousName = L"Continuous";

/// eOk, eInvalidInput for an empty name or characters that aren't allowed, or eNameTooLong. A length is counted in
/// 16-bit units on every system.
/// @param extended the rules of extended names; the old ones allow 31 letters, digits, '_', '-' and '$'
Vorn::ErrorStatus checkName(std::wstring_view name, bool allowVerticalBar, bool extended);
/// The rules for a name given today.
inline Vorn::ErrorStatus checkName(std::wstring_view name) {
    return checkName(name, false, true);
}
/// The rule for the name of a colour or of its book, which is text for people: eOk, eInvalidInput for control
/// characters, or eNameTooLong.
Vorn::ErrorStatus checkColorName(std::wstring_view name);
/// The rules for what may come from a reference, or from one within it: names given today with the separator between
/// them.
KELDB_API Vorn::ErrorStatus checkQualifiedName(std::wstring_view name);
/// The nearest name that the rules for a name given today allow: with '_' for what is not allowed, cut where it is too
/// long, "Unnamed" where there is none. And the same for the names between separators, each by itself.
std::wstring mendedName(std::wstring_view name);
std::wstring mendedQualifiedName(std::wstring_view name);
bool isReservedLayer(std::wstring_view name);

/// Stands before the name of a layer state that lists don't show; part of no other name.
inline constexpr wchar_t kHiddenMark = L'*';
/// The rules for the name of a state that a drawing holds: those for a name given today, but a hidden one has the mark
/// in front, which counts for its length.
KELDB_API Vorn::ErrorStatus checkStateName(std::wstring_view name);
/// The nearest name that checkStateName() allows, which is `name` itself when that is allowed.
std::wstring mendedStateName(std::wstring_view name);

} // namespace engine
