#include "LayerDifferences.h"

#include "KelCmColor.h"

#include <bit>
#include <iterator>
#include <algorithm>
#include <map>
#include <set>

namespace zdrdiff {

namespace {

struct FlagWords {
    zdr::LayerFlag flag;
    const wchar_t* property;
    const wchar_t* set;
    const wchar_t* clear;
};
constexpr FlagWords flagTable[] = {
    {zdr::kLayerOn, L"visibility", L"on", L"off"},
    {zdr::kLayerFrozen, L"freeze", L"frozen", L"thawed"},
    {zdr::kLayerLocked, L"lock", L"locked", L"unlocked"},
    {zdr::kLayerPlot, L"plot", L"plotted", L"not plotted"},
    {zdr::kLayerNewViewportFrozen, L"new viewports", L"frozen", L"thawed"},
};
static_assert(static_cast<int>(std::size(flagTable)) == std::popcount(zdr::kDrawingFlags),
              "each flag of a drawing has its words");

// Value and names, since two colours of one name may look different.
std::wstring colorText(const KelCmColor& color) {
    if (color.isByPCI())
        return std::to_wstring(color.colorIndex());
    std::wstring text =
        std::to_wstring(color.red()) + L"," + std::to_wstring(color.green()) + L"," + std::to_wstring(color.blue());
    if (color.hasColorName())
        text.append(L" ").append(color.colorName());
    if (color.hasBookName())
        text.append(L" (").append(color.bookName()).append(L")");
    return text;
}

std::wstring lineWeightText(int weight) {
    switch (weight) {
    case -1:
        return L"by layer";
    case -2:
        return L"by block";
    case -3:
        return L"default";
    default:
        const std::wstring hundredths = std::to_wstring(weight % 100);
        return std::to_wstring(weight / 100) + (hundredths.size() < 2 ? L".0" : L".") + hundredths + L" mm";
    }
}

/// Layers of a drawing, or of a state in it, with their properties.
struct Layers {
    const zdr::Drawing& drawing; ///< whose names and colours they are
    const zdr::LayerColumns& columns;
    std::vector<zdr::NameId> names;

    const std::wstring& name(std::size_t layer) const { return drawing.names.text(names[layer]); }
};

Layers layersOf(const zdr::Drawing& drawing) {
    Layers layers{drawing, drawing.columns, {}};
    for (const zdr::Layer& layer : drawing.layers)
        layers.names.push_back(layer.name);
    return layers;
}

// The names of a layer's properties and their values as texts, in the order of the rows of the table.
std::vector<std::pair<std::wstring, std::wstring>> propertiesOf(const Layers& layers, std::size_t layer) {
    std::vector<std::pair<std::wstring, std::wstring>> found;
    const zdr::Drawing& drawing = layers.drawing;
    const zdr::LayerColumns& columns = layers.columns;
    for (const FlagWords& row : flagTable)
        found.emplace_back(row.property, columns.flags[layer] & row.flag ? row.set : row.clear);
    found.emplace_back(L"color", colorText(drawing.namedColors.color(columns.colors[layer])));
    found.emplace_back(L"linetype", drawing.names.text(columns.linetypes[layer]));
    found.emplace_back(L"lineweight", lineWeightText(columns.lineWeights[layer]));
    found.emplace_back(L"plot style", drawing.names.text(columns.plotStyles[layer]));
    return found;
}

std::map<std::wstring, std::size_t> layersByName(const Layers& layers) {
    std::map<std::wstring, std::size_t> found;
    for (std::size_t i = 0; i < layers.names.size(); ++i)
        found.emplace(zdr::foldCase(layers.name(i)), i);
    return found;
}

std::vector<Difference> differences(const Layers& before, const Layers& after) {
    std::vector<Difference> found;
    std::map<std::wstring, std::size_t> others = layersByName(after);
    for (std::size_t i = 0; i < before.names.size(); ++i) {
        const std::wstring& name = before.name(i);
        const auto other = others.find(zdr::foldCase(name));
        if (other == others.end()) {
            found.push_back({name, L"presence", L"there", L"gone"});
            continue;
        }
        const auto was = propertiesOf(before, i);
        const auto is = propertiesOf(after, other->second);
        for (std::size_t row = 0; row < was.size(); ++row)
            if (was[row].second != is[row].second)
                found.push_back({name, was[row].first, was[row].second, is[row].second});
    }
    const std::map<std::wstring, std::size_t> known = layersByName(before);
    for (std::size_t i = 0; i < after.names.size(); ++i)
        if (!known.contains(zdr::foldCase(after.name(i))))
            found.push_back({after.name(i), L"presence", L"not there", L"new"});
    return found;
}

const zdr::LayerState* stateOf(const zdr::Drawing& drawing, const std::wstring& name) {
    const auto found = std::ranges::find(drawing.states, name, &zdr::LayerState::name);
    return found == drawing.states.end() ? nullptr : &*found;
}

std::wstring padded(const std::wstring& text, std::size_t width) {
    return text + std::wstring(width > text.size() ? width - text.size() : 0, L' ');
}

} // namespace

std::vector<Difference> layerDifferences(const zdr::Drawing& before, const zdr::Drawing& after) {
    return differences(layersOf(before), layersOf(after));
}

std::vector<Difference> stateDifferences(const zdr::Drawing& before, const zdr::Drawing& after,
                                         const std::wstring& state) {
    const zdr::LayerState* was = stateOf(before, state);
    const zdr::LayerState* is = stateOf(after, state);
    if (!was || !is)
        return {};
    std::vector<Difference> found =
        differences({before, was->columns, was->layers->names}, {after, is->columns, is->layers->names});
    const auto currentLayer = [](const zdr::Drawing& drawing, const zdr::LayerState& its) {
        return its.currentLayer == zdr::kNoName ? std::wstring(L"none") : drawing.names.text(its.currentLayer);
    };
    const std::wstring wasCurrent = currentLayer(before, *was);
    const std::wstring isCurrent = currentLayer(after, *is);
    if (zdr::foldCase(wasCurrent) != zdr::foldCase(isCurrent))
        found.push_back({state, L"current layer", wasCurrent, isCurrent});
    return found;
}

std::wstring differenceTable(const std::vector<Difference>& differences, std::size_t layerCount) {
    std::vector<Difference> rows{{L"Layer", L"Property", L"Before", L"After"}};
    rows.insert(rows.end(), differences.begin(), differences.end());
    std::size_t widths[3] = {};
    for (const Difference& row : rows) {
        widths[0] = std::max(widths[0], row.layer.size());
        widths[1] = std::max(widths[1], row.property.size());
        widths[2] = std::max(widths[2], row.before.size());
    }
    std::wstring text;
    std::set<std::wstring> layers;
    for (const Difference& row : rows) {
        // A layer is named in its first row only.
        const bool first = layers.insert(row.layer).second;
        text += padded(first ? row.layer : L"", widths[0]) + L"  " + padded(row.property, widths[1]) + L"  " +
                padded(row.before, widths[2]) + L"  " + row.after + L"\n";
    }
    if (differences.empty())
        text.clear();
    const std::size_t changed = differences.empty() ? 0 : layers.size() - 1;
    return text + std::to_wstring(changed) + L" of " + std::to_wstring(layerCount) + L" layers changed.\n";
}

} // namespace zdrdiff
