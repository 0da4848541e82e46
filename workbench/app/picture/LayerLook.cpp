#include "LayerLook.h"

#include "LayerStateMask.h"
#include "values/LineWeights.h"
#include "values/NameRules.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace workbench {

namespace {

constexpr std::uint32_t kByBlock = 0;
constexpr std::uint32_t kByLayer = 256;
constexpr std::uint32_t kForeground = 7;

const std::vector<double>* patternOf(const zdr::Drawing& drawing, zdr::NameId linetype) {
    const auto found = std::find_if(drawing.linetypes.begin(), drawing.linetypes.end(),
                                    [linetype](const zdr::Linetype& candidate) { return candidate.name == linetype; });
    return found == drawing.linetypes.end() || found->pattern.empty() ? nullptr : &found->pattern;
}

// A layer's own colour can't be by layer or by block, though a file may say so.
std::uint32_t plainColor(const zdr::Drawing& drawing, zdr::ColorId color) {
    return color == kByBlock || color == kByLayer ? kForeground : drawing.namedColors.packed(color);
}

int plainWeight(const zdr::Drawing& drawing, int weight) {
    return weight < 0 ? drawing.defaultLineWeight : weight;
}

LayerLook ownLook(const zdr::Drawing& drawing, std::size_t layer) {
    const zdr::LayerColumns& columns = drawing.columns;
    LayerLook look;
    const unsigned flags = columns.flags[layer];
    look.visible = (flags & zdr::kLayerOn) && !(flags & zdr::kLayerFrozen);
    look.color = plainColor(drawing, columns.colors[layer]);
    look.pattern = patternOf(drawing, columns.linetypes[layer]);
    look.lineWeight = plainWeight(drawing, columns.lineWeights[layer]);
    return look;
}

void apply(const zdr::Drawing& drawing, const zdr::ViewportOverride& own, LayerLook& look) {
    if (own.mask & MaskColor)
        look.color = plainColor(drawing, own.color);
    if (own.mask & MaskLinetype)
        look.pattern = patternOf(drawing, own.linetype);
    if (own.mask & MaskLineWeight)
        look.lineWeight = plainWeight(drawing, own.lineWeight);
}

} // namespace

std::vector<LayerLook> layerLooks(const zdr::Drawing& drawing, const zdr::Viewport* viewport) {
    std::vector<LayerLook> looks;
    looks.reserve(drawing.layers.size());
    for (std::size_t layer = 0; layer < drawing.layers.size(); ++layer)
        looks.push_back(ownLook(drawing, layer));
    if (!viewport)
        return looks;
    for (std::size_t layer = 0; layer < std::min(looks.size(), viewport->frozen.size()); ++layer)
        looks[layer].visible = looks[layer].visible && !viewport->frozen[layer];
    for (const zdr::ViewportOverride& own : viewport->overrides)
        if (own.layer < looks.size())
            apply(drawing, own, looks[own.layer]);
    return looks;
}

std::vector<std::size_t> recordsOfReference(const zdr::Drawing& drawing, std::size_t reference) {
    const zdr::Drawing& shown = *drawing.references[reference].drawing;
    std::unordered_map<std::wstring_view, std::size_t, zdr::FoldedHash, zdr::FoldedEqual> known;
    for (std::size_t layer = 0; layer < drawing.layers.size(); ++layer)
        if (drawing.layers[layer].reference == reference)
            known.emplace(drawing.names.text(drawing.layers[layer].name), layer);
    const std::wstring prefix = drawing.references[reference].name + engine::kReferenceSeparator;
    std::vector<std::size_t> records;
    records.reserve(shown.layers.size());
    for (const zdr::Layer& layer : shown.layers) {
        const auto found = known.find(prefix + shown.names.text(layer.name));
        records.push_back(found == known.end() ? zdr::kNone : found->second);
    }
    return records;
}

std::vector<LayerLook> referencedLooks(const zdr::Drawing& drawing, const std::vector<LayerLook>& looks,
                                       std::size_t reference) {
    const std::vector<std::size_t> records = recordsOfReference(drawing, reference);
    std::vector<LayerLook> out = layerLooks(*drawing.references[reference].drawing, nullptr);
    for (std::size_t layer = 0; layer < out.size(); ++layer)
        if (records[layer] != zdr::kNone)
            out[layer] = looks[records[layer]];
    return out;
}

LayerLook entityLook(const zdr::Drawing& drawing, const zdr::Entity& entity, const LayerLook& layer) {
    LayerLook look = layer;
    if (entity.color && *entity.color != kByLayer)
        look.color = plainColor(drawing, *entity.color);
    if (entity.linetype != zdr::kNoName)
        look.pattern = patternOf(drawing, entity.linetype);
    if (entity.lineWeight != engine::kLineWeightByLayer)
        look.lineWeight = plainWeight(drawing, entity.lineWeight);
    return look;
}

} // namespace workbench
