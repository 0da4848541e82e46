// Restoring a state whose layers stand otherwise than the drawing's: enough of them that some are copied in runs.

#include "EngineTest.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::size_t kCount = 200;
/// In the place of a layer: one that the drawing lacks.
constexpr std::size_t kGone = zdr::kNone;

using Places = std::vector<std::size_t>;

/// The places of the drawing's layers, in the order of the state's.
struct Order {
    const char* name;
    void (*arrange)(Places& places);
};
void PrintTo(const Order& order, std::ostream* out) {
    *out << order.name;
}

const std::vector<Order> kOrders{
    Order{"same", [](Places&) {}},
    Order{"lacksTheFirst", [](Places& places) { places.erase(places.begin()); }},
    Order{"lacksOneBetween", [](Places& places) { places.erase(places.begin() + 90); }},
    Order{"lacksTheLastTwo", [](Places& places) { places.resize(kCount - 2); }},
    Order{"hasOneMore", [](Places& places) { places.insert(places.begin() + 90, kGone); }},
    Order{"halvesSwapped", [](Places& places) { std::rotate(places.begin(), places.begin() + 100, places.end()); }},
    Order{"halvesSwappedAndOneMore",
          [](Places& places) {
              std::rotate(places.begin(), places.begin() + 100, places.end());
              places.push_back(kGone);
          }},
    Order{"reversed", [](Places& places) { std::ranges::reverse(places); }},
    Order{"reversedAndOneMore",
          [](Places& places) {
              std::ranges::reverse(places);
              places[3] = kGone;
          }},
    Order{"none", [](Places& places) { places.clear(); }}};

Places placesOf(const Order& order) {
    Places places(kCount);
    std::iota(places.begin(), places.end(), 0);
    order.arrange(places);
    return places;
}

/// Only those of the layer that misses its style.
constexpr std::size_t kWithoutStyle = 170;
std::vector<Order> ordersOfTheLayerWithoutStyle() {
    std::vector<Order> orders = kOrders;
    std::erase_if(orders, [](const Order& order) { return std::ranges::count(placesOf(order), kWithoutStyle) == 0; });
    return orders;
}

std::string nameOf(const testing::TestParamInfo<Order>& test) {
    return test.param.name;
}

class RestoreOrder : public EngineTest, public testing::WithParamInterface<Order> {
  protected:
    RestoreOrder() {
        std::vector<std::wstring> names(kCount);
        std::vector<TestLayer> layers;
        for (std::size_t place = 1; place < kCount; ++place) { // behind Base
            names[place] = L"Layer " + std::to_wstring(place);
            layers.push_back({.name = names[place].c_str(), .color = static_cast<std::uint32_t>(1 + place % 200)});
        }
        use(makeDrawing(layers));
    }

    /// Values that no layer has, and that differ from layer to layer.
    engine::LayerValues saved(std::size_t place) const {
        const auto number = static_cast<std::uint32_t>(place % 50);
        return {static_cast<std::uint8_t>(number % 2 ? zdr::kLayerLocked : zdr::kLayerOn), 201 + number,
                nameId(number % 3 ? L"Dashed" : L"Dotted"), static_cast<std::int16_t>(number % 2 ? 25 : 50),
                nameId(L"Fine")};
    }
    /// Puts the state "Plan" of the layers at these places into the drawing.
    template <class Values> void useState(const Places& places, Values values) {
        zdr::Drawing changed = drawing();
        auto set = std::make_shared<zdr::LayerSet>();
        zdr::LayerState& state = changed.states.emplace_back();
        state.name = L"Plan";
        state.handle = changed.nextHandle++;
        state.mask = MaskAllProperties;
        for (const std::size_t place : places) {
            set->names.push_back(place == kGone ? changed.names.intern(L"Gone") : changed.layers[place].name);
            engine::appendValues(state.columns, values(place));
        }
        state.layers = set;
        use(std::move(changed));
    }
    std::vector<engine::LayerValues> allValues() const {
        std::vector<engine::LayerValues> all;
        for (std::size_t place = 0; place < kCount; ++place)
            all.push_back(engine::layerValues(m_database, place));
        return all;
    }
    static Places arranged() { return placesOf(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Each, RestoreOrder, testing::ValuesIn(kOrders), nameOf);

class RestoreWithoutStyle : public RestoreOrder {};
INSTANTIATE_TEST_SUITE_P(Each, RestoreWithoutStyle, testing::ValuesIn(ordersOfTheLayerWithoutStyle()), nameOf);

TEST_P(RestoreOrder, WritesEachLayerItsOwnValuesAndLeavesTheOthers) {
    const Places places = arranged();
    useState(places, [this](std::size_t place) { return saved(place); });
    std::vector<engine::LayerValues> expected = allValues();
    for (const std::size_t place : places)
        if (place != kGone)
            expected[place] = saved(place);
    ASSERT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(allValues(), expected);
}

TEST_P(RestoreOrder, SeesThatOneLayersColourIsTheNextOne) {
    const Places places = arranged();
    const zdr::Drawing before = drawing();
    for (const std::size_t changed : {std::size_t{0}, std::size_t{120}, kCount - 1}) {
        SCOPED_TRACE(changed);
        use(zdr::Drawing(before));
        useState(places, [&](std::size_t place) {
            engine::LayerValues values = engine::layerValues(m_database, place == kGone ? 0 : place);
            values.color ^= place == changed ? 1 : 0;
            return values;
        });
        std::vector<engine::LayerValues> expected = allValues();
        expected[changed].color ^= std::ranges::count(places, changed) == 1 ? 1 : 0;
        ASSERT_EQ(restore(L"Plan"), Vorn::eOk);
        EXPECT_EQ(allValues(), expected);
    }
}

TEST_P(RestoreOrder, CopiesNoColumnThatHasTheValuesAlready) {
    const Places places = arranged();
    useState(places, [this](std::size_t place) {
        engine::LayerValues values = place == kGone ? saved(0) : engine::layerValues(m_database, place);
        values.lineWeight = 50;
        return values;
    });
    const zdr::LayerColumns before = drawing().columns;
    std::vector<engine::LayerValues> expected = allValues();
    for (const std::size_t place : places)
        if (place != kGone)
            expected[place].lineWeight = 50;
    ASSERT_EQ(restore(L"Plan"), Vorn::eOk);
    EXPECT_EQ(allValues(), expected);
    // A state of just the drawing's layers shares its columns with the drawing, but for the flags, of which it has
    // more.
    const bool isWhole = places.size() == kCount && std::ranges::is_sorted(places);
    const zdr::LayerColumns& kept = isWhole ? drawing().states[0].columns : before;
    EXPECT_EQ(drawing().columns.flags.values().data(), before.flags.values().data());
    EXPECT_EQ(drawing().columns.colors.values().data(), kept.colors.values().data());
    EXPECT_EQ(drawing().columns.linetypes.values().data(), kept.linetypes.values().data());
    EXPECT_EQ(drawing().columns.plotStyles.values().data(), kept.plotStyles.values().data());
}

TEST_P(RestoreWithoutStyle, TellsOfOneMissingStyleAmongMany) {
    const Places places = arranged();
    zdr::Drawing known = drawing();
    const zdr::NameId missing = known.names.intern(L"No linetype");
    use(std::move(known));
    useState(places, [&](std::size_t place) {
        engine::LayerValues values = saved(place);
        if (place == kWithoutStyle)
            values.linetype = missing;
        else if (place > 100)
            values.linetype = nameId(L"Dotted"); // many neighbours with one style
        return values;
    });
    EXPECT_EQ(restore(L"Plan"), Vorn::eStyleMissing);
    EXPECT_EQ(engine::layerValues(m_database, kWithoutStyle).linetype, nameId(L"Continuous"));
    EXPECT_EQ(engine::layerValues(m_database, kWithoutStyle).lineWeight, saved(kWithoutStyle).lineWeight);
    EXPECT_EQ(engine::layerValues(m_database, kWithoutStyle + 1).linetype, nameId(L"Dotted"));
}

} // namespace
