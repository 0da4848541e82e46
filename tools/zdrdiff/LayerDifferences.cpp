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

// The names of a layer's properties and their values as texts, in the order of the rows of the table.
std::vector<std::pair<std::wstring, std::wstring>> propertiesOf(const zdr::Drawing& drawing, std::size_t layer) {
    std::vector<std::pair<std::wstring, std::wstring>> found;
    const zdr::LayerColumns& columns = drawing.columns;
    for (const FlagWords& row : flagTable)
        found.emplace_back(row.property, columns.flags[layer] & row.flag ? row.set : row.clear);
    found.emplace_back(L"color", colorText(drawing.namedColors.color(columns.colors[layer])));
    found.emplace_back(L"linetype", drawing.names.text(columns.linetypes[layer]));
    found.emplace_back(L"lineweight", lineWeightText(columns.lineWeights[layer]));
    found.emplace_back(L"plot style", drawing.names.text(columns.plotStyles[layer]));
    return found;
}

std::map<std::wstring, std::size_t> layersByName(const zdr::Drawing& drawing) {
    std::map<std::wstring, std::size_t> found;
    for (std::size_t i = 0; i < drawing.layers.size(); ++i)
        found.emplace(zdr::foldCase(drawing.names.text(drawing.layers[i].name)), i);
    return found;
}

std::wstring padded(const std::wstring& text, std::size_t width) {
    return text + std::wstring(width > text.size() ? width - text.size() : 0, L' ');
}

} // namespace

std::vector<Difference> layerDifferences(const zdr::Drawing& before, const zdr::Drawing& after) {
    std::vector<Difference> found;
    std::map<std::wstring, std::size_t> others = layersByName(after);
    for (std::size_t i = 0; i < before.layers.size(); ++i) {
        const std::wstring& name = before.names.text(before.layers[i].name);
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
    for (const zdr::Layer& layer : after.layers)
        if (!known.contains(zdr::foldCase(after.names.text(layer.name))))
            found.push_back({after.names.text(layer.name), L"presence", L"not there", L"new"});
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
