// The entries of the module: which of them bring over the states of older stores, and what they ask of the host.

#include "MigrateLayerStates.h"
#include "MigrationTest.h"

#include <algorithm>
#include <regex>

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using ui::Script;
using ui::View;

namespace {

using Entry = void (*)(CWnd*);

Entry exported(const char* name) {
    return reinterpret_cast<Entry>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"KelLayerApps.xmod"), name)));
}

const Calls kDrawing = {"keldbHostApplicationServices()", "workingDatabase() = object"};
const Calls kService = {"keldbHostApplicationServices()", "workingDatabase() = object",
                        "getLayerStateManager() = object"};

Calls joined(std::initializer_list<Calls> parts) {
    Calls all;
    for (const Calls& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// A walk over both layers, with what is asked about each.
Calls walk(const Calls& base, const Calls& walls) {
    const Calls step = {"iterator.step(true, true)"};
    return joined({kDrawing,
                   {"getLayerTable(0) = 0", "layerTable.newIterator(true, true) = 0", "iterator.done() = false"},
                   base,
                   step,
                   {"iterator.done() = false"},
                   walls,
                   step,
                   {"iterator.done() = true", "iterator.delete()"}});
}

/// The search for states in a layer of that id.
Calls search(const std::string& id, bool found) {
    return joined({{"iterator.getRecordId() = 0, id=" + id, "openObject(" + id + ", 0, false) = 0",
                    "getExtendedData(" + id + ", \"ZVH\") = " + (found ? "object" : "null")},
                   found ? Calls{"kelutRelRb(object)"} : Calls{},
                   {"close(" + id + ") = 0"}});
}
Calls search(bool found) {
    return joined({walk(search("#1", found), search("#2", found)), {"close(#layerTable) = 0"}});
}

Calls openedForWrite(const std::string& id) {
    return {"iterator.getRecord(1, false) = 0, id=" + id, "getExtendedData(" + id + ", \"ZVH\") = object"};
}

/// A state is put on a layer; `current` is what the mark of the current layer asks for.
Calls putOn(const std::string& id, const std::string& color, const Calls& current) {
    return joined({openedForWrite(id),
                   {"record.setIsFrozen(" + id + ", false) = 0", "record.setVPDFLT(" + id + ", false)",
                    "record.setIsLocked(" + id + ", false)", "record.setIsOff(" + id + ", false)",
                    "record.setColor(" + id + ", color " + color + ")"},
                   kDrawing,
                   {"getLinetypeTable(0) = 0", "table.getAt(#linetypeTable, \"Continuous\", false) = 0, id=#E0",
                    "record.setLinetypeObjectId(" + id + ", #E0)", "close(#linetypeTable) = 0"},
                   current,
                   {"record.setLineWeight(" + id + ", -3) = 0", "record.setIsPlottable(" + id + ", true) = 0",
                    "getKelDbObjectId(false, 232, 0) = 0, id=#E8", "record.setPlotStyleName(" + id + ", #E8) = 0",
                    "close(" + id + ") = 0"}});
}

Calls takenOut(const std::string& id) {
    return joined({openedForWrite(id),
                   {"kelutRelRb(object)", "setExtendedData(" + id + ", object) = 0", "close(" + id + ") = 0"}});
}

/// The number in the name of the state that keeps the layers differs each time.
Calls withoutNumbers(Calls calls) {
    for (std::string& call : calls)
        call = std::regex_replace(call, std::regex("TempState_[0-9]+"), "TempState");
    return calls;
}

class Entries : public MigrationTest {
  protected:
    /// Runs an export without a parent and the script in what it opens.
    static bool runExport(const char* name, Script script) {
        const Entry entry = exported(name);
        if (!entry)
            return false;
        instruments::clearTrace();
        return ui::perform(std::move(script), [entry] { entry(nullptr); });
    }
    /// As many of the calls as bring over nothing.
    static Calls firstOf(Calls calls) {
        calls.resize(std::min(calls.size(), search(false).size()));
        return calls;
    }
};

TEST_F(Entries, ADrawingWithNothingToBringOverCostsOneWalkOverItsLayersAndNoMessage) {
    openWithLegacyStates(0);
    EXPECT_TRUE(ui::perform(Script(), [] { migrateLayerStates(); }));
    EXPECT_THAT(instruments::trace(), ElementsAreArray(search(false)));
}

TEST_F(Entries, TheCommandBringsThemOverBeforeAnythingElse) {
    openWithLegacyStates(0);
    EXPECT_TRUE(runLayerState(closeManager()));
    EXPECT_THAT(firstOf(callsOfCommand()), ElementsAreArray(search(false)));
}

TEST_F(Entries, TheManagersExportBringsThemOverToo) {
    openWithLegacyStates(0);
    EXPECT_TRUE(runExport("keldbLayerStateManagerDialog", closeManager()));
    EXPECT_THAT(firstOf(instruments::trace()), ElementsAreArray(search(false)));
    openWithLegacyStates(1);
    EXPECT_TRUE(runExport("keldbLayerStateManagerDialog", confirm(messageOf(1)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1"));
}

TEST_F(Entries, TheSaveDialogsExportLeavesThemWhereTheyAre) {
    openWithLegacyStates(1);
    EXPECT_TRUE(runExport("keldbLayerStateSaveDialog", Script().waitForControl(IDC_LSTATE_SAVE_NAME).press(VK_ESCAPE)));
    EXPECT_THAT(instruments::trace(), Not(Contains(StartsWith("getExtendedData("))));
    EXPECT_THAT(legacyNames(), ElementsAre(L"PLAN1"));
    EXPECT_THAT(stateNames(), IsEmpty());
}

TEST_F(Entries, AskTheHostForEachStepOfAMigrationInItsOrder) {
    openWithLegacyStates(1);
    Calls calls;
    EXPECT_TRUE(runLayerState(Script()
                                  .waitForText(messageOf(1))
                                  .look("the calls", [&](const View&) { calls = withoutNumbers(callsOfCommand()); })
                                  .press(VK_RETURN)
                                  .then(closeManager())));
    const Calls becomesCurrent =
        joined({{"downgradeOpen(#1) = 0"}, kDrawing, {"setClayer(#1) = 0", "upgradeOpen(#1) = 0"}});
    const Calls endOfWalk = {"kelutRelRb(object)", "close(#layerTable) = 0"};
    EXPECT_THAT(
        calls, ElementsAreArray(joined({
                   search(true),
                   kService,
                   {"getLayerStateNames(true, true) = 0, names=[]"},
                   kService,
                   {"saveLayerState(\"TempState\", 1023) = 0", "validateSymbolName(\"PLAN1\", false) = 0",
                    "hasLayerState(\"PLAN1\") = false"},
                   walk(putOn("#1", "7", becomesCurrent), putOn("#2", "1", {})),
                   endOfWalk,
                   {"saveLayerState(\"PLAN1\", 1023) = 0"},
                   walk(takenOut("#1"), takenOut("#2")),
                   endOfWalk,
                   kDrawing,
                   {"impDatabase() = object", "getImpLayerStateManager() = object",
                    "imp.restoreLayerState(\"TempState\", null, 0, 1023, false) = 0"},
                   kService,
                   {"deleteLayerState(\"TempState\") = 0", "stringExp.LoadString(182) = true",
                    "keldbHostApplicationServices()",
                    "productName() = \"Kel Workbench\"", // for what the text may name
                    "keldbHostApplicationServices()", "productName() = \"Kel Workbench\"",
                    "GetProductRegistryRootKey(512) = 21", "COrvUiRegistryAccess(\"Software\\\\KelWorkbench\") = false",
                    "CKelUiStringExp(\"\n\nLayer states converted: %d\")", "keldbHostApplicationServices()",
                    "productName() = \"Kel Workbench\"", "orvsw_vornMainWnd() = null"},
               })));
}

} // namespace
