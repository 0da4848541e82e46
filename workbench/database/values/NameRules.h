// What a name may look like: of layers, of layer states, of registered applications.
#pragma once

#include "VornStatus.h"

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
bool isReservedLayer(std::wstring_view name);

} // namespace engine
