// Writing layer states files. See StateFile.h.

#include "StateFile.h"

#include "KelCmColor.h"
#include "StateFileFormat.h"
#include "files/Refusal.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace engine {
namespace {

using namespace statefile;
using Json = nlohmann::ordered_json;

Json text(std::wstring_view value) {
    return zdr::toUtf8(value);
}

Json maskWords(LayerStateMask mask) {
    Json words = Json::array();
    for (const LayerProperty& property : kLayerProperties)
        if (mask & property.bit)
            words.push_back(property.word);
    return words;
}

void writeColor(const KelCmColor& color, Json& layer) {
    if (color.isByPCI())
        layer[kColorKey] = color.colorIndex();
    else
        layer[kColorKey] = {color.red(), color.green(), color.blue()};
    if (color.hasColorName())
        layer[kColorNameKey] = text(color.colorName());
    if (color.hasBookName())
        layer[kColorBookKey] = text(color.bookName());
}

Json layerRow(const zdr::LayerState& state, std::size_t row, const zdr::ColumnTables& tables) {
    const zdr::NameTable& names = tables.names;
    const LayerValues values = valuesAt(state.columns, row);
    Json layer;
    layer[kNameKey] = text(names.text(state.layers->names[row]));
    for (const LayerProperty& property : kLayerProperties)
        if (property.flag)
            layer[property.word] = (values.flags & property.flag) != 0;
    writeColor(tables.namedColors.color(values.color), layer);
    layer[kLinetypeKey] = text(names.text(values.linetype));
    layer[kLineWeightKey] = values.lineWeight;
    layer[kPlotStyleKey] = text(names.text(values.plotStyle));
    return layer;
}

Json header(const zdr::LayerState& state, const zdr::NameTable& names) {
    Json fields;
    const bool namedColors = std::ranges::any_of(state.columns.colors.values(), zdr::isNamedColor);
    fields[kVersionKey] = namedColors ? kNamedColorsVersion : kFirstVersion;
    fields[kNameKey] = text(state.name);
    fields[kDescriptionKey] = text(state.description);
    fields[kRestoresKey] = maskWords(state.mask);
    if (state.mask & ~MaskAllProperties)
        fields[kFurtherBitsKey] = state.mask & ~MaskAllProperties;
    if (state.currentLayer != zdr::kNoName)
        fields[kCurrentLayerKey] = text(names.text(state.currentLayer));
    fields[kViewportKey] = state.hasViewportData;
    return fields;
}

/// Refuses names that the text can't hold: one with half a character pair.
std::string wholeText(const zdr::LayerState& state, const zdr::ColumnTables& tables) {
    try {
        return stateText(state, tables);
    } catch (const nlohmann::json::exception&) {
        throw zdr::Refusal{Vorn::eInvalidInput, L"can't be written: a name in the layer state \"" + state.name +
                                                    L"\" holds half a character, which no JSON text can hold"};
    }
}

} // namespace

std::string stateText(const zdr::LayerState& state, const zdr::ColumnTables& tables) {
    std::string out = "{\n";
    const Json fields = header(state, tables.names);
    for (const auto& [key, value] : fields.items())
        out += "  " + Json(key).dump() + ": " + value.dump() + ",\n";
    out += "  " + Json(kLayersKey).dump() + ": [";
    for (std::size_t row = 0; row < state.layers->names.size(); ++row)
        out += (row == 0 ? "\n    " : ",\n    ") + layerRow(state, row, tables).dump();
    return out + "\n  ]\n}\n";
}

Vorn::ErrorStatus writeStateFile(DatabaseImp& database, std::size_t index, const std::wstring& path) {
    const zdr::Drawing& drawing = database.drawing();
    return zdr::fileAnswer(path, Vorn::eFileWriteFailed, database.fileProblem, [&] {
        const std::string content = wholeText(drawing.states[index], drawing);
        zdr::ReplacementFile file(path);
        file.write(std::as_bytes(std::span(content)));
        file.flush();
        file.replace();
    });
}

} // namespace engine
