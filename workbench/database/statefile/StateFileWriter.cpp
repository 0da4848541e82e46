// Writing layer states files. See StateFile.h.

#include "StateFile.h"

#include "KelCmColor.h"
#include "StateFileFormat.h"
#include "files/Refusal.h"
#include "files/SystemFile.h"
#include "files/TextCoding.h"

#include <nlohmann/json.hpp>

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

Json colorValue(std::uint32_t packed) {
    const KelCmColor color = KelCmColor::fromPacked(packed);
    if (color.isByPCI())
        return color.colorIndex();
    return {color.red(), color.green(), color.blue()};
}

Json layerRow(const zdr::LayerState& state, std::size_t row, const zdr::NameTable& names) {
    const LayerValues values = valuesAt(state.columns, row);
    Json layer;
    layer[kNameKey] = text(names.text(state.layers->names[row]));
    for (const LayerProperty& property : kLayerProperties)
        if (property.flag)
            layer[property.word] = (values.flags & property.flag) != 0;
    layer[kColorKey] = colorValue(values.color);
    layer[kLinetypeKey] = text(names.text(values.linetype));
    layer[kLineWeightKey] = values.lineWeight;
    layer[kPlotStyleKey] = text(names.text(values.plotStyle));
    return layer;
}

Json header(const zdr::LayerState& state, const zdr::NameTable& names) {
    Json fields;
    fields[kVersionKey] = kVersion;
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
std::string wholeText(const zdr::LayerState& state, const zdr::NameTable& names) {
    try {
        return stateText(state, names);
    } catch (const nlohmann::json::exception&) {
        throw zdr::Refusal{Vorn::eInvalidInput, L"can't be written: a name in the layer state \"" + state.name +
                                                    L"\" holds half a character, which no JSON text can hold"};
    }
}

} // namespace

std::string stateText(const zdr::LayerState& state, const zdr::NameTable& names) {
    std::string out = "{\n";
    const Json fields = header(state, names);
    for (const auto& [key, value] : fields.items())
        out += "  " + Json(key).dump() + ": " + value.dump() + ",\n";
    out += "  " + Json(kLayersKey).dump() + ": [";
    for (std::size_t row = 0; row < state.layers->names.size(); ++row)
        out += (row == 0 ? "\n    " : ",\n    ") + layerRow(state, row, names).dump();
    return out + "\n  ]\n}\n";
}

Vorn::ErrorStatus writeStateFile(DatabaseImp& database, std::size_t index, const std::wstring& path) {
    const zdr::Drawing& drawing = database.drawing();
    return zdr::fileAnswer(path, Vorn::eFileWriteFailed, database.fileProblem, [&] {
        const std::string content = wholeText(drawing.states[index], drawing.names);
        zdr::ReplacementFile file(path);
        file.write(std::as_bytes(std::span(content)));
        file.flush();
        file.replace();
    });
}

} // namespace engine
