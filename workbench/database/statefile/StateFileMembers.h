// The members of the objects in a layer states file: each may have certain keys, each key once, and each value is of
// one type within a range. Whoever reads a value has what is needed to say what is wrong with it.
#pragma once

#include "StateFileCharacters.h"
#include "StateFileText.h"
#include "files/Refusal.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace engine::statefile {

/// A member of an object, which may be missing.
struct Member {
    const zdr::Place& place;
    std::string_view key;
    const Value& value;
};

/// An object of the file: its values, in the order of the keys that it may have.
template <const auto& Keys> struct Object {
    /// Found among the keys when this is compiled: a file has millions of members.
    struct Key {
        consteval Key(const char* key)
            : index(static_cast<std::size_t>(std::ranges::find(Keys, std::string_view(key)) - Keys.begin())) {
            if (index == Keys.size())
                throw key; // which doesn't compile
        }
        std::size_t index;
    };

    Member operator[](Key key) const { return at(key.index); }
    Member at(std::size_t index) const { return {place, Keys[index], values[index]}; }

    zdr::Place place;
    std::array<Value, std::size(Keys)> values = {};
};

[[noreturn]] void refuseValue(const Member& member, const std::wstring& what);

// Each of these refuses a value that is missing or of another kind.

const Value& existing(const Member& member);
bool truth(const Member& member);
std::int64_t number(const Member& member, std::int64_t least, std::int64_t most);
Bytes text(const Member& member);
/// A name as a drawing can hold it, references' names included; empty where that is allowed.
Bytes drawingName(const Member& member, bool mayBeEmpty);

/// The whole number of a value; none for anything else.
std::optional<std::int64_t> wholeNumber(const Value& value, std::int64_t least, std::int64_t most);

/// The place of a key among those that an object may have; refuses another key. Most keys come in the order in which
/// they are written, so that looking from `expected` on finds them at once.
std::size_t keyIndex(std::span<const std::string_view> keys, std::size_t expected, Bytes key, const zdr::Place& place);

/// Reads an object from behind its start to its end. `readValue` reads the value of the key with that index.
template <const auto& Keys, class ReadValue>
void readObject(TokenReader& tokens, Object<Keys>& object, ReadValue readValue) {
    std::size_t expected = 0;
    while (const std::optional<Bytes> key = tokens.nextKey()) {
        const std::size_t index = keyIndex(Keys, expected, *key, object.place);
        if (object.values[index].isThere())
            refuseStateFile(L"it has two values of \"" + decoded(*key) + L"\" in one place");
        object.values[index] = readValue(index);
        expected = index + 1;
    }
}

} // namespace engine::statefile
