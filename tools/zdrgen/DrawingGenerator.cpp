#include "DrawingGenerator.h"

#include "LayerStateMask.h"

#include <array>
#include <random>

namespace zdr {
namespace {

constexpr std::array kDisciplines{L"A-WALL", L"A-DOOR", L"A-GLAZ", L"E-LITE", L"E-POWR", L"M-DUCT",
                                  L"M-PIPE", L"P-FIXT", L"S-BEAM", L"S-COLS", L"C-ROAD", L"L-PLNT"};
constexpr std::array kPurposes{L"Plan", L"Lighting", L"Power", L"Structure", L"Furniture", L"Print", L"Tender"};
constexpr std::array<std::int16_t, 8> kLineWeights{-3, -3, -1, 13, 18, 25, 35, 50};
constexpr std::uint32_t kTrueColorTag = 0xC2000000;

class DrawingGenerator {
  public:
    explicit DrawingGenerator(const GeneratorOptions& options) : m_options(options), m_random(options.seed) {}
    Drawing generate();

  private:
    // The library's distributions differ between systems; the engine doesn't.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }
    bool chance(std::size_t percent) { return below(100) < percent; }
    double length(std::size_t limit) { return static_cast<double>(below(limit * 100)) / 100; }
    template <class Choices> auto pick(const Choices& choices) { return choices[below(choices.size())]; }
    Handle handle() { return m_drawing.nextHandle++; }

    void makeStyles();
    void makeNamedColors();
    void makeLayers();
    ColorId color();
    std::uint8_t flags();
    void makeStates();
    LayerColumns matchingColumns() const;
    LayerColumns changedColumns(bool withViewport);
    void makeEntities();
    void makeLayout();

    GeneratorOptions m_options;
    std::mt19937_64 m_random;
    Drawing m_drawing;
    std::vector<NameId> m_linetypes;
    std::vector<NameId> m_plotStyles;
    std::vector<ColorId> m_namedColors;
};

Drawing DrawingGenerator::generate() {
    makeStyles();
    makeNamedColors();
    makeLayers();
    makeStates();
    makeEntities();
    makeLayout();
    return std::move(m_drawing);
}

void DrawingGenerator::makeStyles() {
    const auto linetype = [&](const wchar_t* name, const wchar_t* description, std::vector<double> pattern) {
        m_linetypes.push_back(m_drawing.names.intern(name));
        m_drawing.linetypes.push_back({m_linetypes.back(), handle(), description, std::move(pattern)});
    };
    linetype(L"Continuous", L"Solid line", {});
    linetype(L"Dashed", L"__ __ __", {5, -2.5});
    linetype(L"Hidden", L"_ _ _ _", {2.5, -1.25});
    linetype(L"Center", L"____ _ ____", {12.5, -2.5, 2.5, -2.5});
    linetype(L"Dotted", L". . . .", {0, -2});
    for (const wchar_t* name : {L"Normal", L"Grey", L"Half tone", L"Black"}) {
        m_plotStyles.push_back(m_drawing.names.intern(name));
        m_drawing.plotStyles.push_back({m_plotStyles.back(), handle()});
    }
}

void DrawingGenerator::makeNamedColors() {
    for (std::size_t i = 1; i <= m_options.namedColors; ++i) {
        KelCmColor color = KelCmColor::fromPacked(kTrueColorTag | static_cast<std::uint32_t>(below(0x1000000)));
        color.setNames((L"Paint " + std::to_wstring(i)).c_str(), i % 4 == 0 ? nullptr : L"House Paints");
        m_namedColors.push_back(m_drawing.namedColors.intern(color));
    }
}

ColorId DrawingGenerator::color() {
    if (!m_namedColors.empty() && chance(10))
        return pick(m_namedColors);
    if (chance(15))
        return kTrueColorTag | static_cast<std::uint32_t>(below(0x1000000));
    return static_cast<std::uint32_t>(1 + below(chance(70) ? 9 : 255));
}

std::uint8_t DrawingGenerator::flags() {
    std::uint8_t flags = 0;
    const auto set = [&](LayerFlag flag, std::size_t percent) {
        if (chance(percent))
            flags = static_cast<std::uint8_t>(flags | flag);
    };
    set(kLayerOn, 90);
    set(kLayerFrozen, 10);
    set(kLayerLocked, 10);
    set(kLayerPlot, 95);
    set(kLayerNewViewportFrozen, 5);
    return flags;
}

void DrawingGenerator::makeLayers() {
    auto set = std::make_shared<LayerSet>();
    std::vector<std::uint8_t> flagValues;
    std::vector<std::uint32_t> colors;
    std::vector<NameId> linetypes, plotStyles;
    std::vector<std::int16_t> lineWeights;
    for (std::size_t i = 0; i < m_options.layers; ++i) {
        const std::wstring name =
            i == 0 ? L"Base" : std::wstring(kDisciplines[i % kDisciplines.size()]) + L"-" + std::to_wstring(i);
        m_drawing.layers.push_back({m_drawing.names.intern(name), handle(), L"", kNone});
        if (chance(10))
            m_drawing.layers.back().description = L"Sheet " + std::to_wstring(below(100)) + L" \x2013 by the architect";
        set->names.push_back(m_drawing.layers.back().name);
        flagValues.push_back(i == 0 ? kLayerOn | kLayerPlot : flags());
        colors.push_back(color());
        linetypes.push_back(chance(70) ? m_linetypes[0] : pick(m_linetypes));
        lineWeights.push_back(pick(kLineWeights));
        plotStyles.push_back(chance(70) ? m_plotStyles[0] : pick(m_plotStyles));
    }
    m_drawing.layerSet = std::move(set);
    m_drawing.columns = {Column(std::move(flagValues)), Column(std::move(colors)), Column(std::move(linetypes)),
                         Column(std::move(lineWeights)), Column(std::move(plotStyles))};
}

template <class T> Column<T> copied(const Column<T>& column) {
    return Column(std::vector<T>(column.values().begin(), column.values().end()));
}

/// Equal to the drawing's, but not shared with them: the most that a file can have to hold.
LayerColumns DrawingGenerator::matchingColumns() const {
    LayerColumns columns;
    forEachColumn([](auto& to, const auto& from) { to = copied(from); }, columns, m_drawing.columns);
    return columns;
}

LayerColumns DrawingGenerator::changedColumns(bool withViewport) {
    LayerColumns columns = matchingColumns();
    const std::size_t changes = 1 + m_options.layers / 20;
    for (std::size_t i = 0; i < changes; ++i) {
        const std::size_t layer = below(m_options.layers);
        columns.flags.set(layer, flags());
        columns.colors.set(layer, color());
        columns.linetypes.set(layer, pick(m_linetypes));
        columns.lineWeights.set(layer, pick(kLineWeights));
        columns.plotStyles.set(layer, pick(m_plotStyles));
        if (withViewport && chance(50))
            columns.flags.set(layer, static_cast<std::uint8_t>(columns.flags[layer] | kLayerViewportFrozen));
    }
    return columns;
}

void DrawingGenerator::makeStates() {
    for (std::size_t i = 0; i < m_options.states; ++i) {
        LayerState state;
        state.name = std::wstring(kPurposes[i % kPurposes.size()]) + L" " + std::to_wstring(i + 1);
        if (chance(60))
            state.description = L"Saved for sheet " + std::to_wstring(below(40) + 1);
        state.handle = handle();
        state.hasViewportData = i % 2 == 1 && chance(30);
        state.mask = chance(70) ? MaskAllProperties : MaskOn | MaskFrozen | MaskColor | MaskLinetype;
        state.layers = m_drawing.layerSet;
        state.columns = i % 2 == 0 ? matchingColumns() : changedColumns(state.hasViewportData);
        if (chance(80))
            state.currentLayer = m_drawing.layers[0].name;
        m_drawing.states.push_back(std::move(state));
    }
}

void DrawingGenerator::makeEntities() {
    for (std::size_t i = 0; i < m_options.entities; ++i) {
        Entity entity;
        entity.layer = i % m_options.layers;
        const Point start{length(400), length(280)};
        const Point end{start.x + length(40), start.y + length(40)};
        if (i % 5 == 4)
            entity.geometry = Circle{start, 1 + length(20)};
        else if (i % 5 == 3)
            entity.geometry = Polyline{{start, {end.x, start.y}, end, {start.x, end.y}}, true};
        else
            entity.geometry = Line{start, end};
        m_drawing.entities.push_back(std::move(entity));
    }
}

void DrawingGenerator::makeLayout() {
    Layout layout;
    layout.name = L"Sheet";
    layout.paperWidth = 420;
    layout.paperHeight = 297;
    for (std::int16_t number = 2; number <= 3; ++number) {
        Viewport viewport;
        viewport.handle = handle();
        viewport.number = number;
        viewport.corner = {number == 2 ? 10.0 : 215.0, 10};
        viewport.width = 195;
        viewport.height = 277;
        viewport.viewCenter = {200, 140};
        viewport.scale = 0.5;
        viewport.frozen.assign(m_options.layers, false);
        for (std::size_t i = 0; i < m_options.layers / 10; ++i)
            viewport.frozen[below(m_options.layers)] = true;
        layout.viewports.push_back(std::move(viewport));
    }
    m_drawing.layouts.push_back(std::move(layout));
}

} // namespace

Drawing generateDrawing(const GeneratorOptions& options) {
    return DrawingGenerator(options).generate();
}

} // namespace zdr
