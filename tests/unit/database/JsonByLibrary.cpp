#include "JsonByLibrary.h"

#include <nlohmann/json.hpp>

#include <algorithm>

JsonReading readByLibrary(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        return {JsonVerdict::NotCompared};
    try {
        [[maybe_unused]] const nlohmann::json tree = nlohmann::json::parse(text);
        return {JsonVerdict::Good};
    } catch (const nlohmann::json::parse_error& error) {
        const std::string_view before = text.substr(0, std::min(error.byte - 1, text.size()));
        const auto line = std::ranges::count(before, '\n') + 1;
        const std::size_t column = before.size() - (before.rfind('\n') + 1) + 1;
        return {JsonVerdict::Bad, "line " + std::to_string(line) + ", column " + std::to_string(column)};
    } catch (const nlohmann::json::out_of_range&) {
        return {JsonVerdict::NotCompared};
    }
}
