// What the engine's operations on layer states cost, next to moving or comparing the same bytes with memcpy and memcmp
// in the same run. Every state has columns of its own, so that memory is really touched, and all states match, so that
// no comparison ends early. For restores that isn't the whole truth, since they leave values alone that match: so some
// of them go to and fro between two states that differ in every value.
//   engine_bench [Google Benchmark's own arguments]
#include "DrawingCopies.h"
#include "RatioReporter.h"
#include "engine/DatabaseAccess.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <iterator>

namespace {

constexpr std::size_t kLayers = 10000;
constexpr std::size_t kStates = 1000;
constexpr std::size_t kBytesOfState =
    kLayers * (sizeof(std::uint8_t) + 3 * sizeof(std::uint32_t) + sizeof(std::int16_t));

/// How the layers of the states differ from those of the drawing.
enum class Order { Same, OneLayerMore, Reversed };

KelDbDatabase& database(Order order) {
    static std::unique_ptr<KelDbDatabase> made[3];
    auto& entry = made[static_cast<std::size_t>(order)];
    if (!entry) {
        entry = std::make_unique<KelDbDatabase>(false, false);
        engine::replaceDrawing(*entry, drawingWithOwnColumns(kLayers, kStates, order == Order::Reversed));
        if (order == Order::OneLayerMore)
            engine::addLayer(*entry, L"One more");
    }
    return *entry;
}

/// The first state matches, and the second differs from it in every value of every layer.
KelDbDatabase& databaseOfTwo(Order order) {
    static std::unique_ptr<KelDbDatabase> made[3];
    auto& entry = made[static_cast<std::size_t>(order)];
    if (!entry) {
        entry = std::make_unique<KelDbDatabase>(false, false);
        zdr::Drawing drawing = drawingWithOwnColumns(kLayers, 2, order == Order::Reversed);
        const zdr::NameId linetype = drawing.names.intern(L"Other linetype");
        const zdr::NameId plotStyle = drawing.names.intern(L"Other plot style");
        drawing.linetypes.push_back({linetype, 0, {}, {1, -1}});
        drawing.plotStyles.push_back({plotStyle, 0});
        zdr::LayerColumns& other = drawing.states[1].columns;
        for (std::size_t i = 0; i < kLayers; ++i) {
            const engine::LayerValues values = engine::valuesAt(other, i);
            const auto flags = static_cast<std::uint8_t>(values.flags ^ zdr::kLayerLocked);
            engine::setValuesAt(other, i, {flags, values.color % 255 + 1, linetype, 25, plotStyle});
        }
        engine::replaceDrawing(*entry, std::move(drawing));
        if (order == Order::OneLayerMore)
            engine::addLayer(*entry, L"One more");
    }
    return *entry;
}

void memcmpOfAllStates(benchmark::State& run) {
    const zdr::Drawing& drawing = engine::drawingOf(database(Order::Same));
    const auto equal = [](const auto& a, const auto& b) {
        return std::memcmp(a.values().data(), b.values().data(), a.values().size_bytes()) == 0;
    };
    for (auto _ : run)
        for (const zdr::LayerState& state : drawing.states) {
            const zdr::LayerColumns &a = state.columns, &b = drawing.columns;
            const bool same = equal(a.flags, b.flags) && equal(a.colors, b.colors) && equal(a.linetypes, b.linetypes) &&
                              equal(a.lineWeights, b.lineWeights) && equal(a.plotStyles, b.plotStyles);
            if (!same)
                run.SkipWithError("the states differ");
        }
}

// Makes the engine compare every state anew: it keeps answers until a layer changes, so one changes and changes back.
void forgetComparisons(KelDbDatabase& data) {
    engine::LayerValues values = engine::layerValues(data, 0);
    for (int times = 0; times < 2; ++times) {
        values.flags = static_cast<std::uint8_t>(values.flags ^ zdr::kLayerPlot);
        (void)engine::setLayerValues(data, 0, values);
    }
}

void compareAllStates(benchmark::State& run, Order order) {
    KelDbDatabase& data = database(order);
    KelDbLayerStateManager& states = *data.getLayerStateManager();
    std::vector<std::wstring> names;
    for (const zdr::LayerState& state : engine::drawingOf(data).states)
        names.push_back(state.name);
    for (auto _ : run) {
        forgetComparisons(data);
        for (const std::wstring& name : names)
            if (!states.compareLayerStateToDb(name.c_str(), {}))
                run.SkipWithError("a state doesn't match");
    }
}

void memcpyOfAState(benchmark::State& run) {
    const zdr::LayerColumns& columns = engine::drawingOf(database(Order::Same)).states[0].columns;
    std::vector<std::byte> target(kBytesOfState);
    for (auto _ : run) {
        std::byte* to = target.data();
        zdr::forEachColumn(
            [&to](const auto& column) {
                std::memcpy(to, column.values().data(), column.values().size_bytes());
                to += column.values().size_bytes();
            },
            columns);
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

// Restores two states in turn, each restore as a step of its own.
void restoreAState(benchmark::State& run, KelDbDatabase& (*databaseOf)(Order), Order order, int flags) {
    KelDbDatabase& data = databaseOf(order);
    KelDbLayerStateManager& states = *data.getLayerStateManager();
    const KelDbObjectId viewport =
        flags ? engine::objectId(data, engine::drawingOf(data).layouts.at(0).viewports.at(0).handle) : KelDbObjectId();
    const wchar_t* const names[] = {L"State 0", L"State 1"};
    std::size_t turn = 0;
    for (auto _ : run) {
        engine::beginUndoGroup(data);
        if (states.restoreLayerState(names[turn++ % 2], viewport, flags, nullptr) != Vorn::eOk)
            run.SkipWithError("a restore failed");
        engine::endUndoGroup(data);
    }
}

void recordAState(benchmark::State& run) {
    KelDbDatabase data(false, false);
    engine::replaceDrawing(data, drawingWithOwnColumns(kLayers, 1, false));
    KelDbLayerStateManager& states = *data.getLayerStateManager();
    std::size_t number = 0;
    for (auto _ : run) {
        engine::beginUndoGroup(data);
        if (states.saveLayerState((L"New " + std::to_wstring(number++)).c_str(), MaskAllProperties) != Vorn::eOk)
            run.SkipWithError("a state wasn't saved");
        engine::endUndoGroup(data);
    }
}

// One undo and one redo of a restore count as one each.
void undoARestore(benchmark::State& run) {
    KelDbDatabase& data = database(Order::OneLayerMore);
    engine::beginUndoGroup(data);
    data.getLayerStateManager()->restoreLayerState(L"State 1", {}, 0, nullptr);
    engine::endUndoGroup(data);
    bool undone = false;
    for (auto _ : run) {
        if (!(undone ? engine::redo(data) : engine::undo(data)))
            run.SkipWithError("nothing to undo");
        undone = !undone;
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    constexpr std::size_t kAll = kStates * kBytesOfState;
    RatioReporter reporter;
    const auto add = [&reporter](RatioReporter::Row row, auto function, auto... arguments) {
        benchmark::RegisterBenchmark(row.name, function, arguments...)
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(5)
            ->MinTime(0.1);
        reporter.expect(row);
    };
    add({"memcmp of all states", kAll}, memcmpOfAllStates);
    add({"compare all states", kAll, "memcmp of all states", 4}, compareAllStates, Order::Same);
    add({"compare, one layer more", kAll, "memcmp of all states", 4}, compareAllStates, Order::OneLayerMore);
    add({"compare, another order", kAll, "memcmp of all states", 4}, compareAllStates, Order::Reversed);
    add({"memcpy of a state", kBytesOfState}, memcpyOfAState);
    add({"restore", kBytesOfState, "memcpy of a state", 10}, restoreAState, database, Order::Same, 0);
    add({"restore, one layer more", kBytesOfState, "memcpy of a state", 10}, restoreAState, database,
        Order::OneLayerMore, 0);
    add({"restore, another order", kBytesOfState, "memcpy of a state", 10}, restoreAState, database, Order::Reversed,
        0);
    add({"restore others", kBytesOfState, "memcpy of a state", 10}, restoreAState, databaseOfTwo, Order::Same, 0);
    add({"others, one layer more", kBytesOfState, "memcpy of a state", 10}, restoreAState, databaseOfTwo,
        Order::OneLayerMore, 0);
    add({"others, another order", kBytesOfState, "memcpy of a state", 10}, restoreAState, databaseOfTwo,
        Order::Reversed, 0);
    add({"restore as overrides", kBytesOfState, "memcpy of a state", 30}, restoreAState, database, Order::Same,
        RestoreFlagAsOverrides);
    add({"others as overrides", kBytesOfState, "memcpy of a state", 30}, restoreAState, databaseOfTwo, Order::Same,
        RestoreFlagAsOverrides);
    // As many as the drawing is to have: with each the drawing grows, and in one of a hundred times as many states it
    // is the wait for new memory that would be measured.
    benchmark::RegisterBenchmark("record", recordAState)
        ->Unit(benchmark::kMillisecond)
        ->Repetitions(25)
        ->Iterations(kStates);
    reporter.expect({"record", kBytesOfState, "memcpy of a state", 1});
    add({"undo or redo a restore", kBytesOfState, "memcpy of a state", 10}, undoARestore);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("%zu layer states over %zu layers\n", kStates, kLayers);
    reporter.print();
    return 0;
}
