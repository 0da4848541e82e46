// The text of a layer states file as JSON, before anything in it is looked for.
#pragma once

#include <nlohmann/json.hpp>

#include <string_view>

namespace engine::statefile {

/// The one value of a text. Throws a zdr::Refusal that tells line and column for a text that isn't JSON, and one for an
/// object with two members of one name or for lists and objects within each other deeper than the format has them.
/// A byte order mark of UTF-8 in front is passed over.
nlohmann::json parseText(std::string_view text);

/// Refuses a layer states file: the cause is "is damaged: <what>".
[[noreturn]] void refuseStateFile(const std::wstring& what);

} // namespace engine::statefile
