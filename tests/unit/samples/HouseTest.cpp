// What the sample house must offer to whoever tries the product on it: layers, things drawn, a sheet, a reference.
#include "SampleHouse.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

using testing::Contains;
using testing::IsSupersetOf;

namespace {

class HouseTest : public SampleHouse {};

/// The leftmost place of an entity in model space, roughly: of a curve its centre.
double placeOf(const zdr::Entity& entity) {
    struct X {
        double operator()(const zdr::Line& line) const { return std::min(line.from.x, line.to.x); }
        double operator()(const zdr::Polyline& path) const {
            return std::ranges::min(path.points, {}, &zdr::Point::x).x;
        }
        double operator()(const zdr::Circle& circle) const { return circle.center.x; }
        double operator()(const zdr::Arc& arc) const { return arc.center.x; }
        double operator()(const zdr::Text& text) const { return text.position.x; }
    };
    return std::visit(X{}, entity.geometry);
}

std::set<zdr::Handle> handlesOf(const zdr::Drawing& drawing, std::size_t& count) {
    std::set<zdr::Handle> handles;
    const auto add = [&](const auto& objects) {
        for (const auto& object : objects)
            handles.insert(object.handle);
        count += objects.size();
    };
    add(drawing.linetypes);
    add(drawing.plotStyles);
    add(drawing.layers);
    add(drawing.states);
    for (const auto& layout : drawing.layouts)
        add(layout.viewports);
    return handles;
}

} // namespace

TEST_F(HouseTest, HasAboutSixtyLayersNamedByDiscipline) {
    ASSERT_GE(s_house.layers.size(), 55u);
    ASSERT_LE(s_house.layers.size(), 65u);
    std::set<wchar_t> disciplines;
    for (std::size_t i = 1; i < s_house.layers.size(); ++i) {
        const auto& layer = name(s_house.layers[i].name);
        EXPECT_EQ(layer[1], L'-') << "layer " << i;
        EXPECT_FALSE(s_house.layers[i].description.empty()) << "layer " << i;
        disciplines.insert(layer[0]);
    }
    EXPECT_THAT(disciplines, IsSupersetOf(std::wstring(L"AEGLMPS")));
}

TEST_F(HouseTest, StartsWithTheLayerThatEveryDrawingHas) {
    EXPECT_EQ(name(s_house.layers.at(0).name), L"Base");
    EXPECT_EQ(s_house.currentLayer, 0u);
}

TEST_F(HouseTest, UsesTheLineweightsOfPlans) {
    const auto weights = s_house.columns.lineWeights.values();
    EXPECT_THAT(std::set<int>(weights.begin(), weights.end()), IsSupersetOf({13, 18, 25, 35, 50, 70}));
}

TEST_F(HouseTest, NamesTheColorsOfTheGarden) {
    std::set<std::wstring> names;
    for (const auto id : s_house.columns.colors.values())
        if (const KelCmColor color = s_house.namedColors.color(id); color.hasColorName())
            names.insert(color.colorNameForDisplay());
    EXPECT_EQ(names, (std::set<std::wstring>{L"Pond Blue (Garden Colors)", L"Sandstone (Garden Colors)"}));
}

TEST_F(HouseTest, UsesLinetypesThatItHasWithPatterns) {
    std::set<std::wstring> dashed;
    std::set<zdr::NameId> known;
    for (const auto& linetype : s_house.linetypes) {
        known.insert(linetype.name);
        if (!linetype.pattern.empty())
            dashed.insert(name(linetype.name));
        EXPECT_EQ(linetype.pattern.empty(), name(linetype.name) == L"Continuous");
    }
    EXPECT_THAT(dashed, IsSupersetOf(std::vector<std::wstring>{L"Hidden", L"Center", L"Dashed", L"Phantom"}));
    for (const auto linetype : s_house.columns.linetypes.values())
        EXPECT_THAT(known, Contains(linetype));
}

TEST_F(HouseTest, UsesNamedPlotStylesThatItHas) {
    std::set<zdr::NameId> known, used;
    for (const auto& style : s_house.plotStyles)
        known.insert(style.name);
    for (const auto style : s_house.columns.plotStyles.values())
        used.insert(style);
    EXPECT_FALSE(s_house.colorDependentPlotStyles);
    EXPECT_GE(used.size(), 4u);
    EXPECT_THAT(known, IsSupersetOf(used));
}

TEST_F(HouseTest, HasHundredsOfEntitiesInBothStoreys) {
    constexpr double betweenTheStoreys = 25000;
    const auto upper = static_cast<std::size_t>(std::ranges::count_if(
        s_house.entities, [](const auto& entity) { return placeOf(entity) > betweenTheStoreys; }));
    EXPECT_GE(s_house.entities.size(), 400u);
    EXPECT_GE(upper, 400u);
    EXPECT_GE(s_house.entities.size() - upper, 400u);
}

TEST_F(HouseTest, DrawsSomethingOnEveryLayerButTheEmptyOnes) {
    std::set<std::size_t> drawn;
    for (const auto& entity : s_house.entities)
        drawn.insert(entity.layer);
    for (const auto& entity : s_house.layouts.at(0).entities)
        drawn.insert(entity.layer);
    std::set<std::wstring> empty;
    for (std::size_t i = 0; i < s_house.layers.size(); ++i)
        if (!drawn.contains(i))
            empty.insert(name(s_house.layers[i].name));
    // What every drawing has, and the one that only carries the reference.
    EXPECT_EQ(empty, (std::set<std::wstring>{L"Base", L"X-SITE"}));
}

TEST_F(HouseTest, ShowsEachStoreyInAViewportAtOneToFifty) {
    ASSERT_EQ(s_house.layouts.size(), 1u);
    const auto& sheet = s_house.layouts[0];
    EXPECT_EQ(sheet.name, L"A1 sheet");
    EXPECT_EQ(sheet.paperWidth, 841);
    EXPECT_EQ(sheet.paperHeight, 594);
    ASSERT_EQ(sheet.viewports.size(), 2u);
    for (const auto& viewport : sheet.viewports) {
        EXPECT_EQ(viewport.scale, 1.0 / 50);
        EXPECT_GE(viewport.number, 2);
        EXPECT_GE(viewport.corner.x, 0);
        EXPECT_LE(viewport.corner.x + viewport.width, sheet.paperWidth);
        EXPECT_LE(viewport.corner.y + viewport.height, sheet.paperHeight);
        // The house is 11 m by 9 m, and has its dimensions around it.
        EXPECT_GE(viewport.width / viewport.scale, 14000);
        EXPECT_GE(viewport.height / viewport.scale, 13000);
    }
    const auto& ground = sheet.viewports[0];
    const auto& upper = sheet.viewports[1];
    EXPECT_LE(ground.corner.x + ground.width, upper.corner.x);
    EXPECT_GE(upper.viewCenter.x - ground.viewCenter.x, 20000);
    EXPECT_EQ(std::ranges::count(ground.frozen, true), 2);
    EXPECT_EQ(std::ranges::count(upper.frozen, true), 4);
    EXPECT_EQ(ground.overrides.size(), 1u);
    EXPECT_EQ(upper.overrides.size(), 1u);
}

TEST_F(HouseTest, OpensInModelSpace) {
    EXPECT_FALSE(s_house.activeLayout.has_value());
}

TEST_F(HouseTest, AttachesTheSitePlanThatLiesBesideIt) {
    EXPECT_TRUE(s_problems.empty());
    ASSERT_EQ(s_house.references.size(), 1u);
    const auto& site = s_house.references[0];
    EXPECT_EQ(site.name, L"site");
    EXPECT_EQ(site.path, L"site.zdr");
    ASSERT_NE(site.drawing, nullptr);
    EXPECT_GE(site.drawing->entities.size(), 100u);
    std::set<std::wstring> states, layers;
    for (const auto& state : site.drawing->states)
        states.insert(state.name);
    for (const auto& layer : site.drawing->layers)
        layers.insert(site.drawing->names.text(layer.name));
    EXPECT_EQ(states, (std::set<std::wstring>{L"Survey", L"Planting", L"Access and parking"}));
    EXPECT_THAT(layers,
                IsSupersetOf(std::vector<std::wstring>{L"Base", L"C-PROP-LINE", L"C-ROAD-CURB", L"L-PLNT-TREE"}));
}

TEST_F(HouseTest, GivesEveryObjectAHandleOfItsOwn) {
    const zdr::Drawing* const drawings[] = {&s_house, s_house.references.at(0).drawing.get()};
    for (const auto* drawing : drawings) {
        ASSERT_NE(drawing, nullptr);
        std::size_t count = 0;
        const auto handles = handlesOf(*drawing, count);
        EXPECT_EQ(handles.size(), count);
        EXPECT_GT(*handles.begin(), 0u);
        EXPECT_LT(*handles.rbegin(), drawing->nextHandle);
    }
}
