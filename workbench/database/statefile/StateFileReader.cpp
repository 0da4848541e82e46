// Reading layer states files. Nothing in a file is taken on trust: what it doesn't say, says twice, or says in another
// form than the writer's is refused, so that a state is never half read. See StateFile.h.

#include "StateFile.h"

#include "KelCmColor.h"
#include "StateFileFormat.h"
#include "StateFileText.h"
#include "engine/LayerEditing.h"
#include "engine/LayerStates.h"
#include "files/DrawingCheck.h"
#include "files/Refusal.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"
#include "values/LineWeights.h"
#include "values/NameRules.h"

#include <algorithm>
#include <initializer_list>
#include <new>

namespace engine {
namespace {

using namespace statefile;
using Json = nlohmann::json;
using zdr::Place;

const Place kHeader{L"the layer state"};

[[noreturn]] void refuseValue(const Place& place, const char* key, const std::wstring& what) {
    refuseStateFile(place.text() + L" has a \"" + *zdr::fromUtf8(key) + L"\" that " + what);
}

const Json& member(const Json& object, const char* key, const Place& place) {
    const auto found = object.find(key);
    if (found == object.end())
        refuseStateFile(place.text() + L" has no \"" + *zdr::fromUtf8(key) + L"\"");
    return *found;
}

bool truth(const Json& object, const char* key, const Place& place) {
    const Json& value = member(object, key, place);
    if (!value.is_boolean())
        refuseValue(place, key, L"is neither true nor false");
    return value.get<bool>();
}

/// The whole number of a value; none for anything else. The library takes numbers beyond 63 bits for negative ones
/// where it compares.
std::optional<std::int64_t> wholeNumber(const Json& value, std::int64_t least, std::int64_t most) {
    if (!value.is_number_integer())
        return std::nullopt;
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(most))
        return std::nullopt;
    const auto number = value.get<std::int64_t>();
    return number >= least && number <= most ? std::optional(number) : std::nullopt;
}

std::int64_t number(const Json& object, const char* key, std::int64_t least, std::int64_t most, const Place& place) {
    const auto number = wholeNumber(member(object, key, place), least, most);
    if (!number)
        refuseValue(place, key,
                    L"isn't a whole number from " + std::to_wstring(least) + L" to " + std::to_wstring(most));
    return *number;
}

std::wstring text(const Json& object, const char* key, const Place& place) {
    const Json& value = member(object, key, place);
    if (!value.is_string())
        refuseValue(place, key, L"isn't a text");
    auto wide = zdr::fromUtf8(value.get_ref<const std::string&>());
    if (!wide || wide->find(L'\0') != std::wstring::npos)
        refuseValue(place, key, L"holds characters that no text has");
    return std::move(*wide);
}

/// A name as a drawing can hold it, references' names included; empty where that is allowed.
zdr::NameId drawingName(const Json& object, const char* key, bool mayBeEmpty, const Place& place,
                        zdr::NameTable& names) {
    const std::wstring name = text(object, key, place);
    if (const auto fault = zdr::nameFault(name, zdr::kLongestReferenceName); fault && !(mayBeEmpty && name.empty()))
        refuseStateFile(place.text() + L" " + *fault + L", in \"" + *zdr::fromUtf8(key) + L"\"");
    return names.intern(name);
}

template <class Known> void requireKnownKeys(const Json& object, const Place& place, Known known) {
    if (!object.is_object())
        refuseStateFile(place.text() + L" isn't an object");
    for (const auto& [key, value] : object.items())
        if (!known(key))
            refuseStateFile(place.text() + L" has a \"" + zdr::fromUtf8(key).value_or(L"?") +
                            L"\", which this format doesn't know");
}

bool isHeaderKey(std::string_view key) {
    return std::ranges::count(std::initializer_list<std::string_view>{kVersionKey, kNameKey, kDescriptionKey,
                                                                      kRestoresKey, kFurtherBitsKey, kCurrentLayerKey,
                                                                      kViewportKey, kLayersKey},
                              key);
}

bool isLayerKey(std::string_view key) {
    return key == kNameKey || key == kColorNameKey || key == kColorBookKey ||
           std::ranges::any_of(kLayerProperties, [key](const LayerProperty& property) { return key == property.word; });
}

LayerStateMask readMask(const Json& file) {
    LayerStateMask mask = 0;
    const Json& words = member(file, kRestoresKey, kHeader);
    if (!words.is_array())
        refuseValue(kHeader, kRestoresKey, L"isn't a list");
    for (const Json& word : words) {
        const auto found =
            std::ranges::find_if(kLayerProperties, [&](const LayerProperty& known) { return word == known.word; });
        if (found == std::end(kLayerProperties))
            refuseValue(kHeader, kRestoresKey, L"lists something that is no property of layers");
        if (mask & found->bit)
            refuseValue(kHeader, kRestoresKey, L"lists \"" + *zdr::fromUtf8(found->word) + L"\" twice");
        mask |= found->bit;
    }
    if (file.contains(kFurtherBitsKey)) {
        const auto further = static_cast<LayerStateMask>(number(file, kFurtherBitsKey, 1, 0xFFFFFFFF, kHeader));
        if (further & MaskAllProperties)
            refuseValue(kHeader, kFurtherBitsKey, L"holds bits of the properties");
        mask |= further;
    }
    return mask;
}

KelCmColor readPlainColor(const Json& row, const Place& place) {
    const Json& value = member(row, kColorKey, place);
    KelCmColor color;
    if (const auto index = wholeNumber(value, 0, 256)) {
        color.setColorIndex(static_cast<unsigned short>(*index));
        return color;
    }
    std::vector<std::uint8_t> channels;
    if (value.is_array())
        for (const Json& channel : value)
            if (const auto light = wholeNumber(channel, 0, 255))
                channels.push_back(static_cast<std::uint8_t>(*light));
    if (channels.size() != 3 || value.size() != 3)
        refuseValue(place, kColorKey, L"is neither a number from 0 to 256 nor a list of three from 0 to 255");
    color.setRGB(channels[0], channels[1], channels[2]);
    return color;
}

/// The name of a true colour, or of its book; empty where the file has none.
std::wstring colorText(const Json& row, const char* key, const KelCmColor& color, const Place& place) {
    if (!row.contains(key))
        return {};
    std::wstring name = text(row, key, place);
    if (color.isByPCI())
        refuseStateFile(place.text() + L" has a \"" + *zdr::fromUtf8(key) + L"\" for a colour of the palette");
    if (name.empty() || checkColorName(name) != Vorn::eOk)
        refuseValue(place, key, L"is empty, too long, or holds a control character");
    return name;
}

KelCmColor readColor(const Json& row, const Place& place) {
    KelCmColor color = readPlainColor(row, place);
    const std::wstring name = colorText(row, kColorNameKey, color, place);
    const std::wstring book = colorText(row, kColorBookKey, color, place);
    if (!color.isByPCI() && color.setNames(name.c_str(), book.c_str()) != Vorn::eOk)
        throw std::bad_alloc();
    return color;
}

LayerValues readLayer(const Json& row, bool withViewport, const Place& place, zdr::ColumnTables& tables) {
    LayerValues values;
    for (const LayerProperty& property : kLayerProperties)
        if (property.flag && truth(row, property.word, place))
            values.flags = static_cast<std::uint8_t>(values.flags | property.flag);
    if (!withViewport && (values.flags & zdr::kLayerViewportFrozen))
        refuseStateFile(place.text() + L" is frozen in a viewport, but the state was saved without one");
    values.color = tables.namedColors.intern(readColor(row, place));
    values.linetype = drawingName(row, kLinetypeKey, true, place, tables.names);
    values.lineWeight = static_cast<std::int16_t>(number(row, kLineWeightKey, kLineWeightDefault, kWidestLine, place));
    if (!engine::isLineWeight(values.lineWeight))
        refuseValue(place, kLineWeightKey, L"isn't a lineweight: " + std::to_wstring(values.lineWeight));
    values.plotStyle = drawingName(row, kPlotStyleKey, true, place, tables.names);
    return values;
}

void requireDifferent(const std::vector<zdr::NameId>& layers, const zdr::NameTable& names) {
    std::vector<std::size_t> first(names.size(), zdr::kNone);
    for (std::size_t row = 0; row < layers.size(); ++row) {
        std::size_t& earlier = first[layers[row]];
        if (earlier != zdr::kNone)
            refuseStateFile(Place{L"layer", row, names.text(layers[row])}.text() + L" has the name of layer " +
                            std::to_wstring(earlier + 1));
        earlier = row;
    }
}

void readLayers(const Json& rows, zdr::ColumnTables& tables, zdr::LayerState& state) {
    zdr::NameTable& names = tables.names;
    if (!rows.is_array())
        refuseValue(kHeader, kLayersKey, L"isn't a list");
    auto set = std::make_shared<zdr::LayerSet>();
    for (const Json& row : rows) {
        Place place{L"layer", set->names.size()};
        requireKnownKeys(row, place, isLayerKey);
        set->names.push_back(drawingName(row, kNameKey, false, place, names));
        place.name = names.text(set->names.back());
        appendValues(state.columns, readLayer(row, state.hasViewportData, place, tables));
    }
    requireDifferent(set->names, names);
    state.layers = std::move(set);
}

void requireVersion(const Json& file) {
    if (!file.is_object() || !file.contains(kVersionKey))
        throw zdr::Refusal{Vorn::eInvalidInput, L"isn't a layer states file: it has no \"layerStateFile\""};
    const std::int64_t version = number(file, kVersionKey, 1, INT32_MAX, kHeader);
    if (version > kVersion)
        throw zdr::Refusal{Vorn::eNewerVersion, L"was written by a newer version of this program: its format is " +
                                                    std::to_wstring(version) +
                                                    L", and this program reads formats up to " +
                                                    std::to_wstring(kVersion)};
}

void readState(const Json& file, zdr::ColumnTables& tables, zdr::LayerState& state) {
    requireVersion(file);
    requireKnownKeys(file, kHeader, isHeaderKey);
    state.name = text(file, kNameKey, kHeader);
    state.description = text(file, kDescriptionKey, kHeader);
    state.mask = readMask(file);
    state.hasViewportData = truth(file, kViewportKey, kHeader);
    readLayers(member(file, kLayersKey, kHeader), tables, state);
    if (file.contains(kCurrentLayerKey)) {
        state.currentLayer = tables.names.find(text(file, kCurrentLayerKey, kHeader));
        if (std::ranges::find(state.layers->names, state.currentLayer) == state.layers->names.end())
            refuseValue(kHeader, kCurrentLayerKey, L"is none of its layers");
    }
}

std::string readAll(const std::wstring& path) {
    constexpr std::uint64_t kLargest = std::uint64_t{1} << 28;
    zdr::InputFile file(path);
    const zdr::FileFacts facts = file.facts();
    if (facts.size > kLargest)
        throw zdr::Refusal{Vorn::eInvalidInput, L"is larger than a layer states file can be"};
    std::string content(static_cast<std::size_t>(facts.size), '\0');
    std::size_t filled = 0;
    while (const std::size_t read = file.read(std::as_writable_bytes(std::span(content).subspan(filled))))
        filled += read;
    if (filled != content.size() || file.facts() != facts)
        throw zdr::Refusal{Vorn::eFileUnreadable, L"can't be read: it is being written by another program"};
    return content;
}

zdr::Refusal nameRefusal(Vorn::ErrorStatus status, const std::wstring& name) {
    if (status == Vorn::eDuplicateRecordName)
        return {status, L"holds the layer state \"" + name + L"\", and the drawing has one of that name"};
    return {status, L"is damaged: the layer state has a \"name\" that isn't allowed: \"" + name + L"\""};
}

/// Reads a file and enters its state, or throws the Refusal.
void importFile(DatabaseImp& database, const std::wstring& path, std::wstring& name) {
    zdr::ColumnTables tables;
    zdr::LayerState state;
    readState(parseText(readAll(path)), tables, state);
    name = state.name;
    if (database.findState(name) != zdr::kNone)
        throw nameRefusal(Vorn::eDuplicateRecordName, name);
    if (const Vorn::ErrorStatus valid = checkName(name); valid != Vorn::eOk)
        throw nameRefusal(valid, name);
    enterForeignState(database, state, tables);
}

} // namespace

Vorn::ErrorStatus parseState(std::string_view text, zdr::ColumnTables& tables, zdr::LayerState& state,
                             std::wstring& cause) {
    try {
        readState(parseText(text), tables, state);
        return Vorn::eOk;
    } catch (const zdr::Refusal& refusal) {
        cause = refusal.cause;
        return refusal.status;
    }
}

Vorn::ErrorStatus readStateFile(DatabaseImp& database, const std::wstring& path, std::wstring& name) {
    return zdr::fileAnswer(path, Vorn::eFileUnreadable, database.fileProblem,
                           [&] { importFile(database, path, name); });
}

} // namespace engine
