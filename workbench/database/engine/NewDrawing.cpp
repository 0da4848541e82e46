#include "NewDrawing.h"

#include "values/NameRules.h"

#include <algorithm>
#include <unordered_map>

namespace engine {
namespace {

template <class Action> void forEachHandle(zdr::Drawing& drawing, Action action) {
    const auto all = [&](auto& objects) {
        for (auto& object : objects)
            action(object.handle);
    };
    all(drawing.linetypes), all(drawing.plotStyles), all(drawing.layers), all(drawing.states);
    for (zdr::Layout& layout : drawing.layouts)
        all(layout.viewports);
}

void giveHandles(zdr::Drawing& drawing) {
    forEachHandle(drawing, [&](zdr::Handle& handle) { drawing.nextHandle = std::max(drawing.nextHandle, handle + 1); });
    forEachHandle(drawing, [&](zdr::Handle& handle) {
        if (handle == 0)
            handle = drawing.nextHandle++;
    });
}

bool holdsJust(const zdr::LayerSet& set, const std::vector<zdr::Layer>& layers) {
    return std::ranges::equal(set.names, layers, {}, {}, &zdr::Layer::name);
}

// States that hold just the drawing's layers get the drawing's own set, so that comparing addresses tells them.
void joinLayerSets(zdr::Drawing& drawing) {
    if (!drawing.layerSet || !holdsJust(*drawing.layerSet, drawing.layers)) {
        auto set = std::make_shared<zdr::LayerSet>();
        for (const zdr::Layer& layer : drawing.layers)
            set->names.push_back(layer.name);
        drawing.layerSet = std::move(set);
    }
    // Whether a set is the drawing's: many states may share one that takes long to compare.
    std::unordered_map<std::shared_ptr<const zdr::LayerSet>, bool> known;
    for (zdr::LayerState& state : drawing.states) {
        if (!state.layers)
            state.layers = std::make_shared<zdr::LayerSet>();
        const auto [set, isNew] = known.try_emplace(state.layers);
        if (isNew)
            set->second = state.layers->names == drawing.layerSet->names;
        if (set->second)
            state.layers = drawing.layerSet;
    }
}

void addMissingStyles(zdr::Drawing& drawing) {
    const auto add = [&](auto& styles, const zdr::Column<zdr::NameId>& used) {
        for (auto& missing : missingStyles(styles, used, drawing.names.size()))
            styles.push_back(std::move(missing));
    };
    add(drawing.linetypes, drawing.columns.linetypes);
    add(drawing.plotStyles, drawing.columns.plotStyles);
}

void orderExtendedData(zdr::Drawing& drawing) {
    if (drawing.extendedData.empty())
        return;
    if (!std::ranges::is_sorted(drawing.extendedData, {}, &zdr::ExtendedData::object))
        std::ranges::stable_sort(drawing.extendedData, {}, &zdr::ExtendedData::object);
    zdr::NameTable registered;
    for (const std::wstring& application : drawing.applications)
        registered.intern(application);
    for (const zdr::ExtendedData& data : drawing.extendedData) {
        const std::size_t known = registered.size();
        registered.intern(data.application);
        if (registered.size() > known)
            drawing.applications.push_back(data.application);
    }
}

constexpr double kPaperWidth = 420, kPaperHeight = 297, kMargin = 10;

zdr::Layout newLayout() {
    zdr::Viewport viewport;
    viewport.number = 2; // the sheet itself is 1
    viewport.corner = {kMargin, kMargin};
    viewport.width = kPaperWidth - 2 * kMargin;
    viewport.height = kPaperHeight - 2 * kMargin;
    return {L"Layout1", kPaperWidth, kPaperHeight, {viewport}, {}};
}

} // namespace

zdr::Drawing newDrawing() {
    zdr::Drawing drawing;
    const zdr::NameId continuous = drawing.names.intern(kContinuousName);
    const zdr::NameId normal = drawing.names.intern(L"Normal");
    drawing.linetypes.push_back({continuous, 0, L"Solid line", {}});
    drawing.plotStyles.push_back({normal, 0});
    drawing.layers.push_back({drawing.names.intern(kBaseLayerName), 0, {}, zdr::kNone});
    drawing.columns.flags = zdr::Column<std::uint8_t>({zdr::kLayerOn | zdr::kLayerPlot});
    drawing.columns.colors = zdr::Column<zdr::ColorId>({7});
    drawing.columns.linetypes = zdr::Column<zdr::NameId>({continuous});
    drawing.columns.lineWeights = zdr::Column<std::int16_t>({-3});
    drawing.columns.plotStyles = zdr::Column<zdr::NameId>({normal});
    drawing.layouts.push_back(newLayout());
    completeDrawing(drawing);
    return drawing;
}

void completeDrawing(zdr::Drawing& drawing) {
    addMissingStyles(drawing);
    giveHandles(drawing);
    joinLayerSets(drawing);
    orderExtendedData(drawing);
}

} // namespace engine
