#include "StateFileText.h"

#include "files/Refusal.h"
#include "files/TextCoding.h"

#include <algorithm>
#include <set>

namespace engine::statefile {
namespace {

using Json = nlohmann::json;

/// The file, its list of layers, a layer, and a colour's list. What lies deeper is no state, and a text of nothing but
/// brackets would cost memory far beyond its size.
constexpr int kDeepest = 4;

std::wstring quoted(const std::string& text) {
    return L"\"" + zdr::fromUtf8(text).value_or(L"?") + L"\"";
}

/// "line 3, column 5" of the byte that stands at `offset`, from 1.
std::wstring placeOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset == 0 ? 0 : offset - 1, text.size()));
    const auto line = std::ranges::count(before, '\n') + 1;
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 where there is none
    return L"line " + std::to_wstring(line) + L", column " + std::to_wstring(before.size() - lineStart + 1);
}

/// What the library would pass over: it keeps the last of two members of one name.
class StructureCheck {
  public:
    bool operator()(int depth, Json::parse_event_t event, Json& value) {
        if (event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start)
            if (depth >= kDeepest)
                refuseStateFile(L"lists and objects stand within each other, deeper than a layer states file has them");
        if (event == Json::parse_event_t::object_start)
            m_keys.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            m_keys.pop_back();
        else if (event == Json::parse_event_t::key)
            if (!m_keys.back().insert(value.get<std::string>()).second)
                refuseStateFile(L"it has two values of " + quoted(value.get<std::string>()) + L" in one place");
        return true;
    }

  private:
    std::vector<std::set<std::string>> m_keys; // of the objects that are open
};

} // namespace

void refuseStateFile(const std::wstring& what) {
    throw zdr::Refusal{Vorn::eInvalidInput, L"is damaged: " + what};
}

nlohmann::json parseText(std::string_view text) {
    if (text.empty())
        throw zdr::Refusal{Vorn::eInvalidInput, L"is empty"};
    StructureCheck check;
    try {
        return Json::parse(
            text, [&check](int depth, Json::parse_event_t event, Json& value) { return check(depth, event, value); });
    } catch (const Json::parse_error& error) {
        throw zdr::Refusal{Vorn::eInvalidInput, L"isn't a layer states file, or is cut off: its text can't be "
                                                L"understood from " +
                                                    placeOf(text, error.byte) + L" on"};
    } catch (const Json::exception&) {
        refuseStateFile(L"it has a number with more digits than any number of a layer states file");
    }
}

} // namespace engine::statefile
