// Random edits of random states, by the functions that the dialog uses, against what the simple model of the engine's
// tests says. Afterwards the state holds what it should, nothing else of the drawing is touched, and one undo takes the
// edit back.
//
//   KEL_EDIT_SEED=17    does the edit of this seed alone

#include "CellEdit.h"
#include "DrawingDifference.h"
#include "GridColumns.h"
#include "LayerRecords.h"
#include "StateCommit.h"
#include "StateReading.h"
#include "Subject.h"
#include "Tally.h"
#include "WholeDrawing.h"
#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using model::Kind;
using model::Look;
using model::same;

constexpr std::uint32_t kEdits = 300;
constexpr std::uint32_t kOperationsBefore = 30;
constexpr std::uint32_t kMostSteps = 8;
constexpr std::uint32_t kLayerNames = 12; ///< of the model's operations

Tally g_edits("random edits of a state");

/// What a row is expected to hold, and what was done to it.
struct Row {
    std::string name;
    Look look;
    bool current = false, dependent = false, added = false, removed = false, modified = false;
};

std::uint32_t flagsOf(const CLayerRcd& record) {
    const auto bit = [](bool set, std::uint32_t flag) { return set ? flag : 0; };
    return bit(!record.m_isOff, zdr::kLayerOn) | bit(record.m_isFrozen, zdr::kLayerFrozen) |
           bit(record.m_isLocked, zdr::kLayerLocked) | bit(record.m_isPlottable, zdr::kLayerPlot) |
           bit(record.m_isNewVpFrozen, zdr::kLayerNewViewportFrozen);
}

std::uint32_t bitOf(int column) {
    switch (column) {
    case onGridColumn:
        return zdr::kLayerOn;
    case freezeGridColumn:
        return zdr::kLayerFrozen;
    case lockGridColumn:
        return zdr::kLayerLocked;
    case plotGridColumn:
        return zdr::kLayerPlot;
    default:
        return zdr::kLayerNewViewportFrozen;
    }
}

class RandomEdit {
  public:
    explicit RandomEdit(std::uint32_t seed) : m_generator(seed) {
        apply({Kind::Start, {seed % 4 == 0}});
        for (std::uint32_t i = 0; i < kOperationsBefore; ++i)
            apply(m_generator.next());
        for (std::uint32_t i = 0; i < kOperationsBefore; ++i)
            apply({Kind::End, {}});
        giveKnownPlotStyles();
        chooseState();
        m_before = engine::drawingOf(m_database);
    }
    ~RandomEdit() { deleteRecords(m_layers); }
    RandomEdit(const RandomEdit&) = delete;
    RandomEdit& operator=(const RandomEdit&) = delete;

    void run() {
        const std::uint64_t changesBefore = engine::contentNumber(m_database);
        engine::beginUndoGroup(m_database);
        const bool any = readStateLayers(&m_database, m_wide.c_str(), m_layers);
        expectUntouched("after reading");
        expectRead(any);
        for (std::uint32_t steps = below(kMostSteps); steps > 0 && !testing::Test::HasFailure(); --steps)
            step();
        commit();
        engine::endUndoGroup(m_database);
        expectState();
        expectTheRestUntouched();
        EXPECT_THAT(wholenessProblems(m_database), testing::IsEmpty());
        // An edit that leaves the state as it was is no step to be undone.
        if (engine::contentNumber(m_database) != changesBefore) {
            ASSERT_TRUE(engine::undo(m_database));
        }
        expectUntouched("after undo");
    }

  private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(m_random() % bound); }
    const model::Drawing& drawing() const { return m_model.drawing(); }
    void apply(const model::Operation& operation) {
        m_model.apply(operation);
        m_subject.apply(operation);
    }
    /// A layer that comes in may name a plot style that the drawing lacks, and no restore can put that one back.
    void giveKnownPlotStyles() {
        constexpr std::uint32_t kNormal = 0; // the look that has it
        for (std::uint32_t number = 0; number < kLayerNames; ++number)
            if (const model::Layer* layer = liveLayer(model::layerName(number));
                layer && !model::has(drawing().plotStyles, layer->look.plotStyle))
                apply({Kind::SetLayer, {number, model::kPlotStyle, kNormal}});
    }
    /// Takes one of the drawing's own states, and saves one where there is none.
    void chooseState() {
        std::vector<const model::State*> own;
        for (const model::State& state : drawing().states)
            if (!state.dependent)
                own.push_back(&state);
        if (own.empty()) {
            apply({Kind::Save, {0, 1023}});
            return chooseState();
        }
        m_state = *own[below(own.size())];
        m_wide = model::wide(m_state.name);
    }
    const model::Layer* liveLayer(std::string_view name) const {
        const auto found =
            std::ranges::find_if(drawing().layers, [name](const model::Layer& each) { return same(each.name, name); });
        return found == drawing().layers.end() ? nullptr : &*found;
    }
    CLayerRcd& record(std::size_t row) {
        return *static_cast<CLayerRcd*>(m_layers.GetAt(m_layers.FindIndex(static_cast<INT_PTR>(row))));
    }

    /// The rows that the state has after a restore, as the model restores it.
    void expectRead(bool any) {
        std::uint32_t number = 0;
        while (!same(model::stateName(number), m_state.name))
            ++number;
        model::Model restored = m_model;
        const std::string status = restored.apply({Kind::RestoreQuietly, {number, 0, 0, 1023, 0}});
        EXPECT_THAT(status, testing::AnyOf("0", "162", "173", "384"));
        EXPECT_EQ(any, !m_state.layers.empty());
        for (const model::StateLayer& held : m_state.layers)
            for (const model::Layer& layer : restored.drawing().layers)
                if (same(layer.name, held.name))
                    m_rows.push_back({layer.name, layer.look, layer.id == restored.drawing().current, layer.dependent});
        ASSERT_EQ(static_cast<std::size_t>(m_layers.GetCount()), m_rows.size());
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            expectRecord(row);
    }
    void expectRecord(std::size_t row) {
        const CLayerRcd& actual = record(row);
        const Row& expected = m_rows[row];
        SCOPED_TRACE(expected.name);
        EXPECT_TRUE(same(expected.name, model::narrow(actual.m_name.GetString())));
        EXPECT_EQ(flagsOf(actual), expected.look.flags);
        EXPECT_TRUE(actual.m_color == expected.look.color);
        EXPECT_EQ(actual.m_lineWeight, expected.look.weight);
        if (!actual.m_linetypeId.isNull()) { // the drawing has it
            EXPECT_TRUE(same(expected.look.linetype, model::narrow(actual.m_linetypeName.GetString())));
        }
        if (!drawing().colorDependent && !actual.m_plotStyleId.isNull()) {
            EXPECT_TRUE(same(expected.look.plotStyle, model::narrow(actual.m_plotStyleName.GetString())));
        }
        EXPECT_EQ(actual.m_isCurrent, expected.current);
        EXPECT_EQ(actual.m_isDependent, expected.dependent);
    }

    void step() {
        std::vector<std::size_t> shown;
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            if (!m_rows[row].removed)
                shown.push_back(row);
        const std::uint32_t what = below(8);
        if (shown.empty() || what == 0)
            return add();
        const std::size_t row = shown[below(shown.size())];
        if (what == 1)
            return remove(row);
        if (what == 2)
            return chooseCurrent(row);
        editCell(shown, row);
    }
    void add() {
        std::vector<const model::Layer*> offered;
        const KelArray<KelString> taken = namesWithRows(m_layers);
        for (const model::Layer& layer : drawing().layers)
            if (std::ranges::none_of(
                    taken, [&layer](const KelString& name) { return same(model::narrow(name.kwszPtr()), layer.name); }))
                offered.push_back(&layer);
        if (offered.empty())
            return;
        const model::Layer& layer = *offered[below(offered.size())];
        bool outOfMemory = false;
        const KelDbObjectId id = engine::layerId(m_database, engine::layerIndex(m_database, model::wide(layer.name)));
        std::unique_ptr<CLayerRcd> added = readAddedLayer(m_database, id, outOfMemory);
        ASSERT_TRUE(added);
        m_layers.AddTail(added.release());
        m_rows.push_back({.name = layer.name, .look = layer.look, .added = true});
        expectRecord(m_rows.size() - 1);
    }
    void remove(std::size_t row) {
        record(row).markRemoved();
        m_rows[row].removed = true;
        m_rows[row].added = m_rows[row].modified = false;
    }
    void chooseCurrent(std::size_t row) {
        if (currentLayerChange(record(row)) != CurrentLayerChange::allowed)
            return;
        makeCurrent(m_layers, record(row));
        for (Row& each : m_rows)
            each.current = false;
        m_rows[row].current = m_rows[row].modified = true;
    }
    /// A click on a cell of one row, with another one selected or not.
    void editCell(const std::vector<std::size_t>& shown, std::size_t first) {
        const int column = static_cast<int>(below(gridColumnCount));
        const Look picked = model::lookOf(below(32 * 5 * 4 * 4 * 4 * 3));
        std::vector<std::size_t> rows = {first};
        if (below(2) == 0)
            rows.push_back(shown[below(shown.size())]);
        const CellEdit edit = cellEditOf(record(first), column, m_database);
        if (edit == CellEdit::none || edit == CellEdit::refuseFreeze)
            return;
        const bool value = edit == CellEdit::toggle && !(record(first).*flagOfKind(columnKind[column]));
        for (const std::size_t row : rows)
            if (change(row, edit, column, value, picked))
                m_rows[row].modified = true;
    }
    bool change(std::size_t row, CellEdit edit, int column, bool value, const Look& picked) {
        CLayerRcd& to = record(row);
        Look& look = m_rows[row].look;
        switch (edit) {
        case CellEdit::toggle:
            setFlag(to, columnKind[column], value);
            // The first of the columns says off, and the drawing keeps what is on.
            look.flags = value != (column == onGridColumn) ? look.flags | bitOf(column) : look.flags & ~bitOf(column);
            return true;
        case CellEdit::pickColor:
            setColor(to, picked.color);
            look.color = picked.color;
            return true;
        case CellEdit::pickLinetype: {
            const zdr::Linetype& linetype = m_before.linetypes[below(m_before.linetypes.size())];
            const std::wstring& name = m_before.names.text(linetype.name);
            setLinetype(to, engine::objectId(m_database, linetype.handle), name.c_str());
            look.linetype = model::narrow(name);
            return true;
        }
        case CellEdit::pickLineWeight:
            setLineWeight(to, picked.weight);
            look.weight = picked.weight;
            return true;
        default: {
            const zdr::PlotStyle& style = m_before.plotStyles[below(m_before.plotStyles.size())];
            const std::wstring& name = m_before.names.text(style.name);
            setPlotStyle(to, engine::objectId(m_database, style.handle), name.c_str());
            to.markModified(); // as the dialog does, whatever was picked
            look.plotStyle = model::narrow(name);
            return true;
        }
        }
    }

    void commit() {
        KelDbLayerStateManager& states = *m_database.getLayerStateManager();
        commitRemovals(states, m_wide.c_str(), m_layers);
        commitAdditions(states, m_wide.c_str(), m_layers);
        commitChanges(m_database, m_wide.c_str(), m_layers);
    }

    model::StateLayer* held(std::string_view name) {
        const auto found = std::ranges::find_if(
            m_state.layers, [name](const model::StateLayer& each) { return same(each.name, name); });
        return found == m_state.layers.end() ? nullptr : &*found;
    }
    /// Does to the model's state what the rows ask for.
    void editState() {
        bool any = false;
        for (const Row& row : m_rows)
            if (row.removed) {
                any = true;
                std::erase_if(m_state.layers,
                              [&row](const model::StateLayer& each) { return same(each.name, row.name); });
            }
        if (any && m_state.current && !held(*m_state.current))
            m_state.current.reset();
        for (const Row& row : m_rows)
            if (row.added && !held(row.name))
                m_state.layers.push_back({row.name, liveLayer(row.name)->look});
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            const Row& row = m_rows[i];
            model::StateLayer* layer = row.modified ? held(row.name) : nullptr;
            if (!layer)
                continue;
            Look look = row.look;
            look.flags |= layer->look.flags & zdr::kLayerViewportFrozen; // no record carries it
            if (record(i).m_linetypeId.isNull())
                look.linetype = layer->look.linetype;
            if (drawing().colorDependent || record(i).m_plotStyleId.isNull())
                look.plotStyle = layer->look.plotStyle;
            layer->look = look;
            if (row.current)
                m_state.current = row.name;
        }
    }
    const zdr::LayerState* storedState() const {
        for (const zdr::LayerState& state : engine::drawingOf(m_database).states)
            if (state.name == m_wide)
                return &state;
        return nullptr;
    }
    void expectState() {
        editState();
        const zdr::LayerState* actual = storedState();
        ASSERT_TRUE(actual);
        const zdr::Drawing& now = engine::drawingOf(m_database);
        const auto nameOf = [&now](zdr::NameId id) { return model::narrow(now.names.text(id)); };
        EXPECT_TRUE(same(nameOf(actual->currentLayer), m_state.current.value_or(""))) << nameOf(actual->currentLayer);
        EXPECT_EQ(actual->mask, m_state.mask);
        EXPECT_EQ(model::narrow(actual->description), m_state.description);
        ASSERT_EQ(actual->layers->names.size(), m_state.layers.size());
        for (std::size_t i = 0; i < m_state.layers.size(); ++i) {
            const Look& look = m_state.layers[i].look;
            const engine::LayerValues values = engine::valuesAt(actual->columns, i);
            SCOPED_TRACE(m_state.layers[i].name);
            EXPECT_TRUE(same(nameOf(actual->layers->names[i]), m_state.layers[i].name));
            EXPECT_EQ(values.flags, look.flags);
            EXPECT_TRUE(now.namedColors.color(values.color) == look.color);
            EXPECT_TRUE(same(nameOf(values.linetype), look.linetype)) << nameOf(values.linetype);
            EXPECT_EQ(values.lineWeight, look.weight);
            EXPECT_TRUE(same(nameOf(values.plotStyle), look.plotStyle)) << nameOf(values.plotStyle);
        }
    }
    void expectUntouched(const char* when) {
        zdr::Drawing now = engine::drawingOf(m_database);
        now.nextHandle = m_before.nextHandle;
        EXPECT_EQ(difference(m_before, now), "") << when;
    }
    void expectTheRestUntouched() {
        const zdr::LayerState* edited = storedState();
        ASSERT_TRUE(edited);
        zdr::Drawing now = engine::drawingOf(m_database);
        now.nextHandle = m_before.nextHandle;
        for (std::size_t i = 0; i < now.states.size() && i < m_before.states.size(); ++i)
            if (now.states[i].handle == edited->handle)
                now.states[i] = m_before.states[i];
        EXPECT_EQ(difference(m_before, now), "") << "after the commit, apart from the state";
    }

    model::Model m_model;
    model::Subject m_subject;
    KelDbDatabase& m_database = m_subject.database();
    model::Generator m_generator;
    std::mt19937& m_random = m_generator.random();
    model::State m_state;
    std::wstring m_wide;
    zdr::Drawing m_before;
    CObList m_layers;
    std::vector<Row> m_rows;
};

TEST(RandomEdits, LeaveTheStateAsTheModelSaysAndTheRestAlone) {
    const char* chosen = std::getenv("KEL_EDIT_SEED");
    const auto first = static_cast<std::uint32_t>(chosen ? std::strtoul(chosen, nullptr, 10) : 1);
    const std::uint32_t count = chosen ? 1 : kEdits;
    for (std::uint32_t seed = first; seed < first + count; ++seed) {
        RandomEdit(seed).run();
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
        g_edits.add(1);
    }
}

} // namespace
