// Reading layer states files. Nothing in a file is taken on trust: what it doesn't say, says twice, or says in another
// form than the writer's is refused, so that a state is never half read. See StateFile.h.

#include "StateFile.h"

#include "KelCmColor.h"
#include "engine/LayerStates.h"
#include "StateFileFormat.h"
#include "engine/LayerCommands.h"
#include "files/Refusal.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"
#include "values/NameRules.h"

#include <algorithm>
#include <initializer_list>
#include <nlohmann/json.hpp>

namespace engine {
namespace {

using namespace statefile;
using Json = nlohmann::json;

/// The file isn't what it should be. Thrown within this source only.
struct Malformed {
    Vorn::ErrorStatus status = Vorn::eInvalidInput;
};

void require(bool condition) {
    if (!condition)
        throw Malformed{};
}

const Json& member(const Json& object, const char* key) {
    const auto found = object.find(key);
    require(found != object.end());
    return *found;
}

bool truth(const Json& object, const char* key) {
    const Json& value = member(object, key);
    require(value.is_boolean());
    return value.get<bool>();
}

std::int64_t number(const Json& value, std::int64_t least, std::int64_t most) {
    require(value.is_number_integer() && value >= least && value <= most);
    return value.get<std::int64_t>();
}

std::wstring text(const Json& object, const char* key) {
    const Json& value = member(object, key);
    require(value.is_string());
    auto wide = zdr::fromUtf8(value.get_ref<const std::string&>());
    require(wide && wide->find(L'\0') == std::wstring::npos);
    return std::move(*wide);
}

template <class Known> void requireKnownKeys(const Json& object, Known known) {
    require(object.is_object());
    for (const auto& [key, value] : object.items())
        require(known(key));
}

bool isHeaderKey(std::string_view key) {
    return std::ranges::count(std::initializer_list<std::string_view>{kVersionKey, kNameKey, kDescriptionKey,
                                                                      kRestoresKey, kFurtherBitsKey, kCurrentLayerKey,
                                                                      kViewportKey, kLayersKey},
                              key);
}

bool isLayerKey(std::string_view key) {
    return key == kNameKey || std::ranges::any_of(kMaskWords, [key](const MaskWord& word) { return key == word.word; });
}

LayerStateMask readMask(const Json& file) {
    LayerStateMask mask = 0;
    const Json& words = member(file, kRestoresKey);
    require(words.is_array());
    for (const Json& word : words) {
        const auto found = std::ranges::find_if(kMaskWords, [&](const MaskWord& known) { return word == known.word; });
        require(found != std::end(kMaskWords) && !(mask & found->bit));
        mask |= found->bit;
    }
    if (file.contains(kFurtherBitsKey)) {
        const auto further = static_cast<LayerStateMask>(number(member(file, kFurtherBitsKey), 1, 0xFFFFFFFF));
        require(!(further & MaskAllProperties));
        mask |= further;
    }
    return mask;
}

std::uint32_t readColor(const Json& value) {
    KelCmColor color;
    if (value.is_array()) {
        require(value.size() == 3);
        const auto channel = [&](std::size_t i) { return static_cast<std::uint8_t>(number(value[i], 0, 255)); };
        color.setRGB(channel(0), channel(1), channel(2));
    } else {
        color.setColorIndex(static_cast<unsigned short>(number(value, 0, 256)));
    }
    return color.packed();
}

LayerValues readLayer(const Json& row, bool withViewport, zdr::NameTable& names) {
    LayerValues values;
    for (const MaskWord& property : kMaskWords)
        if (property.flag && truth(row, property.word))
            values.flags = static_cast<std::uint8_t>(values.flags | property.flag);
    require(withViewport || !(values.flags & zdr::kLayerViewportFrozen));
    values.color = readColor(member(row, kColorKey));
    values.linetype = names.intern(text(row, kLinetypeKey));
    values.lineWeight = static_cast<std::int16_t>(number(member(row, kLineWeightKey), -3, 211));
    require(isLineWeight(values.lineWeight));
    values.plotStyle = names.intern(text(row, kPlotStyleKey));
    return values;
}

void readLayers(const Json& rows, zdr::NameTable& names, zdr::LayerState& state) {
    require(rows.is_array());
    auto set = std::make_shared<zdr::LayerSet>();
    for (const Json& row : rows) {
        requireKnownKeys(row, isLayerKey);
        const zdr::NameId name = names.intern(text(row, kNameKey));
        require(name != zdr::kNoName);
        set->names.push_back(name);
        appendValues(state.columns, readLayer(row, state.hasViewportData, names));
    }
    std::vector<zdr::NameId> sorted = set->names;
    std::ranges::sort(sorted);
    require(std::ranges::adjacent_find(sorted) == sorted.end());
    state.layers = std::move(set);
}

void readState(const Json& file, zdr::NameTable& names, zdr::LayerState& state) {
    require(file.is_object());
    if (number(member(file, kVersionKey), 1, INT32_MAX) > kVersion)
        throw Malformed{Vorn::eNewerVersion};
    requireKnownKeys(file, isHeaderKey);
    state.name = text(file, kNameKey);
    state.description = text(file, kDescriptionKey);
    state.mask = readMask(file);
    state.hasViewportData = truth(file, kViewportKey);
    readLayers(member(file, kLayersKey), names, state);
    if (file.contains(kCurrentLayerKey)) {
        state.currentLayer = names.find(text(file, kCurrentLayerKey));
        require(std::ranges::find(state.layers->names, state.currentLayer) != state.layers->names.end());
    }
}

// The library keeps the last of two members of one name; a file with two is refused instead.
Json parse(std::string_view content) {
    std::vector<std::vector<std::string>> keys;
    const auto unique = [&keys](int, Json::parse_event_t event, Json& value) {
        if (event == Json::parse_event_t::object_start)
            keys.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            keys.pop_back();
        else if (event == Json::parse_event_t::key) {
            require(std::ranges::find(keys.back(), value.get_ref<const std::string&>()) == keys.back().end());
            keys.back().push_back(value.get<std::string>());
        }
        return true;
    };
    return Json::parse(content, unique);
}

std::string readAll(const std::wstring& path) {
    constexpr std::uint64_t kLargest = std::uint64_t{1} << 28;
    zdr::InputFile file(path);
    const std::uint64_t size = file.facts().size;
    require(size <= kLargest);
    std::string content(static_cast<std::size_t>(size), '\0');
    std::size_t filled = 0;
    while (const std::size_t read = file.read(std::as_writable_bytes(std::span(content).subspan(filled))))
        filled += read;
    content.resize(filled);
    return content;
}

} // namespace

Vorn::ErrorStatus parseState(std::string_view text, zdr::NameTable& names, zdr::LayerState& state) {
    try {
        readState(parse(text), names, state);
        return Vorn::eOk;
    } catch (const Malformed& malformed) {
        return malformed.status;
    } catch (const nlohmann::json::exception&) {
        return Vorn::eInvalidInput;
    }
}

Vorn::ErrorStatus readStateFile(DatabaseImp& database, const std::wstring& path, std::wstring& name) {
    std::string content;
    try {
        content = readAll(path);
    } catch (const zdr::Refusal& refusal) {
        return refusal.status;
    } catch (const Malformed& malformed) {
        return malformed.status;
    }
    zdr::NameTable names;
    zdr::LayerState state;
    const Vorn::ErrorStatus status = parseState(content, names, state);
    if (status != Vorn::eOk)
        return status;
    name = state.name;
    if (database.findState(name) != zdr::kNone)
        return Vorn::eDuplicateRecordName;
    if (const Vorn::ErrorStatus valid = checkName(name); valid != Vorn::eOk)
        return valid;
    enterForeignState(database, state, names);
    return Vorn::eOk;
}

} // namespace engine
