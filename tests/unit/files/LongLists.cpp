#include "LongLists.h"

#include "LayerStateMask.h"
#include "SampleDrawing.h"
#include "engine/DatabaseAccess.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <stdexcept>

using namespace zdr;

namespace {

template <class T> Column<T> column(std::size_t count, T value) {
    return Column<T>(std::vector<T>(count, value));
}

std::wstring numbered(const wchar_t* stem, std::size_t number) {
    return stem + std::to_wstring(number);
}

/// The same values for so many layers. Plain drawings have the linetype 1.
LayerColumns columnsOf(std::size_t layers) {
    return {column<std::uint8_t>(layers, 9), column<ColorId>(layers, 7), column<NameId>(layers, 1),
            column<std::int16_t>(layers, -3), column<NameId>(layers, kNoName)};
}

std::shared_ptr<LayerSet> setOf(Drawing& drawing, const wchar_t* stem, std::size_t count) {
    auto set = std::make_shared<LayerSet>();
    for (std::size_t i = 0; i < count; ++i)
        set->names.push_back(drawing.names.intern(numbered(stem, i)));
    return set;
}

void addState(Drawing& drawing, std::wstring name, std::shared_ptr<const LayerSet> layers, LayerColumns columns) {
    LayerState& state = drawing.states.emplace_back();
    state.name = std::move(name);
    state.handle = drawing.nextHandle++;
    state.mask = MaskAllProperties;
    state.layers = std::move(layers);
    state.columns = std::move(columns);
}

Drawing withLayers(std::size_t count) {
    Drawing drawing = plainDrawing();
    auto set = std::make_shared<LayerSet>(*drawing.layerSet);
    for (std::size_t i = 0; i < count; ++i) {
        drawing.layers.push_back(
            {drawing.names.intern(numbered(L"Layer ", i)), drawing.nextHandle++, L"described", kNone});
        set->names.push_back(drawing.layers.back().name);
    }
    drawing.layerSet = std::move(set);
    drawing.columns = columnsOf(count + 1);
    return drawing;
}

// The first is a plain drawing's own.
Drawing withLinetypes(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.linetypes.push_back(
            {drawing.names.intern(numbered(L"Linetype ", i)), drawing.nextHandle++, L"described", {1, -1}});
    return drawing;
}

Drawing withPattern(std::size_t count) {
    Drawing drawing = plainDrawing();
    drawing.linetypes[0].pattern.assign(count, 1);
    return drawing;
}

Drawing withPlotStyles(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.plotStyles.push_back({drawing.names.intern(numbered(L"Style ", i)), drawing.nextHandle++});
    return drawing;
}

Drawing withNamedColors(std::size_t count) {
    Drawing drawing = withLayers(count);
    std::vector<ColorId> ids(count + 1, 7);
    for (std::size_t i = 0; i < count; ++i) {
        KelCmColor color = KelCmColor::fromPacked(0xC2000000);
        color.setNames(numbered(L"Colour ", i).c_str(), L"House Paints");
        ids[i] = drawing.namedColors.intern(color);
    }
    drawing.columns.colors = Column<ColorId>(std::move(ids));
    return drawing;
}

// A state names styles that the drawing doesn't have.
Drawing withStyleNames(std::size_t count) {
    Drawing drawing = withLayers(count);
    LayerColumns columns = columnsOf(count + 1);
    for (std::size_t i = 0; i < count; ++i)
        columns.linetypes.set(i, drawing.names.intern(numbered(L"Lost ", i)));
    addState(drawing, L"Older", drawing.layerSet, std::move(columns));
    return drawing;
}

// Each state has a set of layers of its own, and there are as many names as sets.
Drawing withLayerSets(std::size_t count) {
    Drawing drawing = withLayers(count);
    for (std::size_t i = 0; i < count; ++i)
        addState(drawing, numbered(L"State ", i), setOf(drawing, L"Gone ", 1), columnsOf(1));
    return drawing;
}

// All share the drawing's set of layers and its columns, which are as long as the states are many.
Drawing withStates(std::size_t count) {
    Drawing drawing = withLayers(count);
    for (std::size_t i = 0; i < count; ++i)
        addState(drawing, numbered(L"State ", i), drawing.layerSet, drawing.columns);
    return drawing;
}

// All share a set that differs from the drawing's in its last name alone.
Drawing withNearlyEqualSets(std::size_t count) {
    Drawing drawing = withLayers(count);
    auto set = std::make_shared<LayerSet>(*drawing.layerSet);
    set->names.back() = drawing.names.intern(L"Gone");
    for (std::size_t i = 0; i < count; ++i)
        addState(drawing, numbered(L"State ", i), set, drawing.columns);
    return drawing;
}

// No drawing is written with a name that has to be mended: its mark becomes another in the file.
constexpr std::string_view kMark = "State~";

Drawing withNamesToMend(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        addState(drawing, numbered(L"State~", i), drawing.layerSet, drawing.columns);
    return drawing;
}

Drawing withEntities(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.entities.push_back({0, std::nullopt, kNoName, -1, Text{{}, 1, 0, L"text"}});
    return drawing;
}

Drawing withPoints(std::size_t count) {
    Drawing drawing = plainDrawing();
    drawing.entities.push_back({0, std::nullopt, kNoName, -1, Polyline{std::vector<Point>(count), false}});
    return drawing;
}

Drawing withLayouts(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.layouts.push_back({numbered(L"Layout ", i), 1, 1, {}, {{0, std::nullopt, kNoName, -1, Circle{}}}});
    return drawing;
}

Drawing withViewports(std::size_t count) {
    Drawing drawing = plainDrawing();
    drawing.layouts.push_back({L"Layout", 1, 1, std::vector<Viewport>(count), {}});
    for (Viewport& viewport : drawing.layouts[0].viewports)
        viewport.handle = drawing.nextHandle++;
    return drawing;
}

Drawing withOverrides(std::size_t count) {
    Drawing drawing = withLayers(count);
    Viewport& viewport =
        drawing.layouts.emplace_back(Layout{L"Layout", 1, 1, std::vector<Viewport>(1), {}}).viewports[0];
    viewport.handle = drawing.nextHandle++;
    viewport.frozen.assign(count, true);
    for (std::size_t i = 0; i < count; ++i)
        viewport.overrides.push_back({i, MaskColor, 3});
    return drawing;
}

Drawing withReferences(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.references.push_back({numbered(L"ref ", i), L"gone.zdr", {}, 1, 0, nullptr});
    return drawing;
}

Drawing withApplications(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.applications.push_back(numbered(L"Application ", i));
    return drawing;
}

Drawing withExtendedData(std::size_t count) {
    Drawing drawing = plainDrawing();
    for (std::size_t i = 0; i < count; ++i)
        drawing.extendedData.push_back({2, numbered(L"Application ", count - i), {{1070, 1}}});
    return drawing;
}

Drawing withExtendedValues(std::size_t count) {
    Drawing drawing = plainDrawing();
    ExtendedData data{2, L"Application", {}};
    for (std::size_t i = 0; i < count; ++i)
        data.values.add({1000, L"text"});
    drawing.extendedData.push_back(std::move(data));
    return drawing;
}

/// A drawing that shows another one.
Drawing showing(Drawing other) {
    Drawing drawing = plainDrawing();
    drawing.references.push_back({L"site", L"site.zdr", {}, 1, 0, std::make_shared<const Drawing>(std::move(other))});
    return drawing;
}

Drawing showingLayers(std::size_t count) {
    return showing(withLayers(count));
}

Drawing showingLinetypes(std::size_t count) {
    return showing(withLinetypes(count));
}

Drawing showingPlotStyles(std::size_t count) {
    return showing(withPlotStyles(count));
}

// Each state has another set of layers than the one before it, and all share their columns.
Drawing showingStates(std::size_t count) {
    Drawing other = withNearlyEqualSets(count);
    for (std::size_t i = 0; i < count; i += 2)
        other.states[i].layers = other.layerSet;
    return showing(std::move(other));
}

// Layers that the file keeps for a reference, whose drawing has them no longer. The last of each ten is drawn on.
Drawing showingNoneOfItsLayers(std::size_t count) {
    Drawing drawing = withLayers(count);
    drawing.references = showing(plainDrawing()).references;
    for (std::size_t i = 1; i < drawing.layers.size(); ++i) {
        drawing.layers[i].reference = 0;
        drawing.layers[i].name = drawing.names.intern(numbered(L"site!Layer ", i));
        if (i % 10 == 0)
            drawing.entities.push_back({i, std::nullopt, kNoName, -1, Circle{}});
    }
    auto set = std::make_shared<LayerSet>();
    for (const Layer& layer : drawing.layers)
        set->names.push_back(layer.name);
    drawing.layerSet = std::move(set);
    return drawing;
}

std::vector<std::byte> fileOf(const Drawing& drawing) {
    std::vector<std::byte> bytes;
    std::wstring reason;
    if (drawingBytes(drawing, bytes, reason) != Vorn::eOk)
        throw std::runtime_error(toUtf8(reason));
    const auto* text = reinterpret_cast<char*>(bytes.data());
    const std::string_view file(text, bytes.size());
    for (std::size_t at = file.find(kMark); at != std::string_view::npos; at = file.find(kMark, at))
        bytes[at + kMark.size() - 1] = std::byte{0x2F}; // a slash
    return bytes;
}

Drawing drawingOf(const std::vector<std::byte>& bytes) {
    Drawing drawing;
    std::wstring reason;
    if (readDrawingBytes(bytes, L"long.zdr", drawing, reason) != Vorn::eOk)
        throw std::runtime_error(toUtf8(reason));
    return drawing;
}

} // namespace

FilesOfDrawing::FilesOfDrawing(const Drawing& drawing) : m_own(fileOf(drawing)) {
    for (const Reference& reference : drawing.references)
        m_shown.push_back(reference.drawing ? fileOf(*reference.drawing) : std::vector<std::byte>());
}

std::size_t FilesOfDrawing::size() const {
    std::size_t bytes = m_own.size();
    for (const std::vector<std::byte>& shown : m_shown)
        bytes += shown.size();
    return bytes;
}

void FilesOfDrawing::open() const {
    Drawing drawing = drawingOf(m_own);
    for (std::size_t i = 0; i < m_shown.size(); ++i)
        if (!m_shown[i].empty())
            drawing.references[i].drawing = std::make_shared<const Drawing>(drawingOf(m_shown[i]));
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, std::move(drawing));
}

const std::vector<LongList>& longLists() {
    static const std::vector<LongList> lists = {
        {"layers", withLayers},
        {"linetypes", withLinetypes},
        {"numbers of a pattern", withPattern},
        {"plot styles", withPlotStyles},
        {"named colours", withNamedColors},
        {"style names", withStyleNames},
        {"layer sets", withLayerSets},
        {"states", withStates},
        {"states of nearly the drawing's layers", withNearlyEqualSets},
        {"states whose names are mended", withNamesToMend},
        {"entities", withEntities},
        {"points of a polyline", withPoints},
        {"layouts", withLayouts},
        {"viewports", withViewports},
        {"overrides and frozen layers", withOverrides},
        {"references", withReferences},
        {"applications", withApplications},
        {"extended data", withExtendedData},
        {"values of extended data", withExtendedValues},
        {"layers of a reference", showingLayers},
        {"linetypes of a reference", showingLinetypes},
        {"plot styles of a reference", showingPlotStyles},
        {"states of a reference", showingStates},
        {"layers that a reference lost", showingNoneOfItsLayers},
    };
    return lists;
}
