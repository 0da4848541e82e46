#include "StateFileMembers.h"

#include "files/DrawingCheck.h"

#include <charconv>

namespace engine::statefile {

void refuseValue(const Member& member, const std::wstring& what) {
    refuseStateFile(member.place.text() + L" has a \"" + decoded(member.key) + L"\" that " + what);
}

const Value& existing(const Member& member) {
    if (!member.value.isThere())
        refuseStateFile(member.place.text() + L" has no \"" + decoded(member.key) + L"\"");
    return member.value;
}

bool truth(const Member& member) {
    const Token kind = existing(member).kind;
    if (kind != Token::True && kind != Token::False)
        refuseValue(member, L"is neither true nor false");
    return kind == Token::True;
}

std::optional<std::int64_t> wholeNumber(const Value& value, std::int64_t least, std::int64_t most) {
    std::int64_t number = 0;
    const char* const end = value.bytes.data() + value.bytes.size();
    if (value.kind != Token::Number)
        return std::nullopt;
    const auto [stop, error] = std::from_chars(value.bytes.data(), end, number);
    return error == std::errc() && stop == end && number >= least && number <= most ? std::optional(number)
                                                                                    : std::nullopt;
}

std::int64_t number(const Member& member, std::int64_t least, std::int64_t most) {
    const auto number = wholeNumber(existing(member), least, most);
    if (!number)
        refuseValue(member, L"isn't a whole number from " + std::to_wstring(least) + L" to " + std::to_wstring(most));
    return *number;
}

Bytes text(const Member& member) {
    const Value& value = existing(member);
    if (value.kind != Token::Text)
        refuseValue(member, L"isn't a text");
    if (value.hasEscapes && holdsZero(value.bytes))
        refuseValue(member, L"holds characters that no text has");
    return value.bytes;
}

Bytes drawingName(const Member& member, bool mayBeEmpty) {
    const Bytes name = text(member);
    if (!member.value.hasEscapes && !name.empty() && name.size() <= zdr::kLongestReferenceName)
        return name; // without escapes it holds no control characters
    if (isFarLonger(name, zdr::kLongestReferenceName))
        refuseValue(member, L"has more than " + std::to_wstring(zdr::kLongestReferenceName) + L" characters");
    if (const auto fault = zdr::nameFault(decoded(name), zdr::kLongestReferenceName);
        fault && !(mayBeEmpty && name.empty()))
        refuseStateFile(member.place.text() + L" " + *fault + L", in \"" + decoded(member.key) + L"\"");
    return name;
}

std::size_t keyIndex(std::span<const std::string_view> keys, std::size_t expected, Bytes key, const zdr::Place& place) {
    for (std::size_t index = expected; index < keys.size(); ++index)
        if (keys[index] == key)
            return index;
    const auto found = std::ranges::find_if(keys, [key](std::string_view known) { return isWord(key, known); });
    if (found == keys.end())
        refuseStateFile(place.text() + L" has a \"" + shown(key) + L"\", which this format doesn't know");
    return static_cast<std::size_t>(found - keys.begin());
}

} // namespace engine::statefile
