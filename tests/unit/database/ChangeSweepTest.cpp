// Each change of a drawing with each of its allocations failing once: the drawing is whole, and undo gives back what
// was there. The same with undoing each change, and doing it again. Only natively.

#include "DrawingDifference.h"
#include "EngineTest.h"
#include "FailingAllocation.h"
#include "SweepScenarios.h"
#include "WholeDrawing.h"
#include "engine/DatabaseImp.h"
#include "engine/LayerStates.h"

using engine::DatabaseImp;
using testing::IsEmpty;

namespace {

struct NamedChange {
    const char* name;
    void (*run)(DatabaseImp&);
};

void PrintTo(const NamedChange& change, std::ostream* out) {
    *out << change.name;
}

const zdr::Viewport& viewportOf(const DatabaseImp& database) {
    return database.drawing().layouts.at(0).viewports.at(0);
}

void restore(DatabaseImp& database, int flags) {
    engine::restoreState(database, 0, {&viewportOf(database), flags, MaskAllProperties});
}

KelCmColor namedColor() {
    KelCmColor color;
    color.setRGB(0, 60, 140);
    color.setNames(L"A color that is too long for a short string", L"A book that is too long for a short string");
    return color;
}

const NamedChange kChanges[] = {
    {"save", [](DatabaseImp& d) { engine::saveState(d, L"A name that is too long for a short string", 5, nullptr); }},
    {"save over", [](DatabaseImp& d) { engine::saveState(d, L"Plan", 5, &viewportOf(d)); }},
    {"put",
     [](DatabaseImp& d) {
         std::size_t place = 0;
         engine::putState(d, L"Cut", d.drawing().states[0], place);
     }},
    {"delete", [](DatabaseImp& d) { engine::deleteState(d, 0); }},
    {"rename", [](DatabaseImp& d) { engine::renameState(d, 0, L"A name that is too long for a short string"); }},
    {"add layers",
     [](DatabaseImp& d) {
         engine::addLayersToState(d, 0, {0, 1, 2, 3});
     }},
    {"remove layers", [](DatabaseImp& d) { engine::removeLayersFromState(d, 0, {d.drawing().layers[1].name}); }},
    {"update a layer",
     [](DatabaseImp& d) {
         engine::updateStateLayer(d, 0, {L"Walls", 3, namedColor(), L"Dotted", 25, L"A plot style of its own"});
     }},
    {"restore", [](DatabaseImp& d) { restore(d, RestoreFlagLayerNotFound); }},
    {"restore as overrides", [](DatabaseImp& d) { restore(d, RestoreFlagAsOverrides); }},
    {"append a layer",
     [](DatabaseImp& d) { d.appendLayer({}, L"A name that is too long for a short string", {.color = 5}); }},
    {"remove a layer", [](DatabaseImp& d) { d.removeLayer(1); }},
    {"rename a layer", [](DatabaseImp& d) { d.renameLayer(1, L"A name that is too long for a short string"); }},
    {"respell a layer", [](DatabaseImp& d) { d.renameLayer(1, L"WALLS"); }},
    {"rename a layer to one that is gone", [](DatabaseImp& d) { d.removeLayer(2), d.renameLayer(1, L"Doors"); }},
    {"describe a layer",
     [](DatabaseImp& d) { d.setLayerDescription(1, L"A description that is too long for a short string"); }},
    {"write a layer",
     [](DatabaseImp& d) {
         engine::setValuesAt(*d.editColumns(), 1, {3, 3, 3, 30, 3});
     }},
    {"freeze in a viewport",
     [](DatabaseImp& d) { engine::setFrozenInViewport(d.owner(), viewportOf(d).handle, 2, true); }},
    {"override",
     [](DatabaseImp& d) {
         engine::setOverride(d.owner(), viewportOf(d).handle, {2, MaskColor, 3});
     }},
    {"what a viewport shows",
     [](DatabaseImp& d) {
         EXPECT_EQ(engine::setViewportView(d.owner(), viewportOf(d).handle, {1, 2}, 3), Vorn::eOk);
     }},
    {"settings",
     [](DatabaseImp& d) {
         d.setCurrentLayer(1);
         d.setLastRestored(L"A name that is too long for a short string");
         d.setLinetypeScale(2);
     }},
    {"extended data",
     [](DatabaseImp& d) {
         d.registerApplication(L"An application with a long name");
         d.setExtendedData(d.drawing().layers[1].handle, L"An application with a long name", {{1070, 5}});
         d.setExtendedData(d.drawing().layers[1].handle, L"An application with a long name", {{1070, 6}});
         d.setExtendedData(d.drawing().layers[1].handle, L"An application with a long name", {});
     }},
    {"plot styles",
     [](DatabaseImp& d) {
         d.insertPlotStyle(1, {d.intern(L"A plot style with a long name"), 0});
         d.removePlotStyle(0);
     }},
};

/// A drawing with a layer that is frozen in a viewport and overridden, so that a failed change can lose something.
zdr::Drawing preparedDrawing() {
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, makeDrawing());
    prepareStates(database);
    const zdr::Handle viewport = engine::drawingOf(database).layouts.at(0).viewports.at(0).handle;
    engine::setFrozenInViewport(database, viewport, 1, true);
    engine::setOverride(database, viewport, {1, MaskColor, 5});
    database.getLayerStateManager()->removeLayerStateLayers(L"Plan", [] {
        KelArray<KelString> layers;
        layers.append(L"Furniture");
        return layers;
    }());
    return engine::drawingOf(database);
}

/// Runs `action` with its n-th allocation failing; answers whether it was ended by the lack of memory.
template <class Action> bool isCutShort(int nth, bool& struck, Action action) {
    const FailingAllocation failing(nth);
    try {
        action();
        struck = failing.hasStruck();
        return false;
    } catch (const std::bad_alloc&) {
        struck = true;
        return true;
    }
}

} // namespace

class ChangeSweep : public testing::TestWithParam<NamedChange> {
  protected:
    static void change(KelDbDatabase& database) {
        engine::beginUndoGroup(database);
        try {
            GetParam().run(engine::impOf(database));
        } catch (const std::bad_alloc&) {
            engine::endUndoGroup(database);
            throw;
        }
        engine::endUndoGroup(database);
    }
    /// What differs from another drawing. The next handle may differ: handles that were given and taken back are lost.
    static std::string differenceTo(zdr::Drawing expected, const KelDbDatabase& database) {
        expected.nextHandle = engine::drawingOf(database).nextHandle;
        return difference(engine::drawingOf(database), expected);
    }
    static void expectWhole(const KelDbDatabase& database, int nth) {
        ASSERT_THAT(wholenessProblems(database), IsEmpty()) << "allocation " << nth;
    }

    const zdr::Drawing m_before = preparedDrawing();
};

TEST_P(ChangeSweep, IsWholeAndCanBeUndoneWhicheverAllocationFails) {
    bool struck = true;
    int failures = 0;
    for (int nth = 1; struck; ++nth) {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, m_before);
        isCutShort(nth, struck, [&] { change(database); });
        expectWhole(database, nth);
        while (engine::undo(database)) {
        }
        ASSERT_EQ(differenceTo(m_before, database), "") << "allocation " << nth;
        expectWhole(database, nth);
        failures += struck;
    }
    EXPECT_GT(failures, 0);
}

TEST_P(ChangeSweep, CanBeUndoneAndDoneAgainWhicheverAllocationFails) {
    bool undoStruck = true, redoStruck = true;
    for (int nth = 1; undoStruck || redoStruck; ++nth) {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, m_before);
        change(database);
        const zdr::Drawing after = engine::drawingOf(database);
        isCutShort(nth, undoStruck, [&] { engine::undo(database); });
        expectWhole(database, nth);
        while (engine::undo(database)) {
        }
        ASSERT_EQ(differenceTo(m_before, database), "") << "allocation " << nth;
        isCutShort(nth, redoStruck, [&] { engine::redo(database); });
        expectWhole(database, nth);
        while (engine::redo(database)) {
        }
        ASSERT_EQ(differenceTo(after, database), "") << "allocation " << nth;
        expectWhole(database, nth);
    }
}

// Whether a group has put a state back as it was is found out at its end, which needs memory of its own.
TEST(GroupEndSweep, AGroupThatPutsAStateBackEndsWhicheverAllocationFails) {
    const zdr::Drawing before = preparedDrawing();
    const std::wstring name = before.states[0].name;
    bool struck = true;
    int failures = 0;
    for (int nth = 1; struck; ++nth) {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, before);
        DatabaseImp& imp = engine::impOf(database);
        engine::beginUndoGroup(database);
        engine::renameState(imp, 0, L"Other");
        engine::renameState(imp, 0, name);
        {
            const FailingAllocation failing(nth);
            engine::endUndoGroup(database);
            struck = failing.hasStruck();
        }
        EXPECT_EQ(engine::canUndo(database), struck) << "what could not be looked at stays a step";
        ASSERT_THAT(wholenessProblems(database), IsEmpty()) << "allocation " << nth;
        EXPECT_EQ(engine::setLinetypeScale(database, 2), Vorn::eOk);
        while (engine::undo(database)) {
        }
        ASSERT_EQ(difference(engine::drawingOf(database), before), "") << "allocation " << nth;
        failures += struck;
    }
    EXPECT_GT(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(All, ChangeSweep, testing::ValuesIn(kChanges), [](const auto& test) {
    std::string name = test.param.name;
    std::ranges::replace(name, ' ', '_');
    return name;
});

// Replacing a drawing can't be undone, but it is done whole or not at all.

TEST(ReplacementSweep, ADrawingIsReplacedOrStaysWhicheverAllocationFails) {
    const zdr::Drawing old = preparedDrawing();
    const zdr::Drawing fresh = engine::makeNewDrawing();
    bool struck = true;
    int failures = 0;
    for (int nth = 1; struck; ++nth) {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, old);
        const bool isCut = isCutShort(nth, struck, [&] { engine::replaceDrawing(database, fresh); });
        ASSERT_THAT(wholenessProblems(database), IsEmpty()) << "allocation " << nth;
        ASSERT_EQ(engine::drawingOf(database).layers.size(), isCut ? old.layers.size() : 1) << "allocation " << nth;
        failures += struck;
    }
    EXPECT_GT(failures, 0);
}

TEST(ReplacementSweep, AReferenceIsAttachedOrPartOfItWhicheverAllocationFails) {
    const auto site = std::make_shared<const zdr::Drawing>(preparedDrawing());
    zdr::Drawing drawing = preparedDrawing();
    drawing.references.push_back({.name = L"site", .path = L"site.zdr", .drawing = nullptr});
    bool struck = true;
    int failures = 0;
    for (int nth = 1; struck; ++nth) {
        KelDbDatabase database(false, false);
        engine::replaceDrawing(database, drawing);
        isCutShort(nth, struck, [&] { engine::attachReference(database, 0, site); });
        ASSERT_THAT(wholenessProblems(database), IsEmpty()) << "allocation " << nth;
        ASSERT_FALSE(engine::canUndo(database)) << "allocation " << nth;
        failures += struck;
    }
    EXPECT_GT(failures, 0);
}
