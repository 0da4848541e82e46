// What is left where the add-on lacks an export, or one of its functions fails.

#include "SnapshotMigrationTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AddOnFailure : public SnapshotMigrationTest {
  protected:
    /// Opens a drawing with two snapshots in the whole add-on, and makes the n-th call of an operation fail while the
    /// manager opens.
    void openWithFailure(const char* operation, int nth) {
        openWithLegacyStates(0);
        saveSnapshots(2);
        instruments::failCall(operation, nth, Vorn::eOutOfMemory);
    }
    void runWithFailure(ui::Script script) {
        EXPECT_TRUE(runLayerState(std::move(script)));
        EXPECT_TRUE(instruments::faultStruck());
        instruments::clearFaults();
        EXPECT_EQ(wallsColor(), 7) << "the layers are as before";
    }
};

// The sentence about snapshots stands there, since the add-on does.
TEST_F(AddOnFailure, WithoutOneOfItsExportsNoSnapshotIsTouched) {
    for (const wchar_t* missing : {L"getLayerSnapshotNames", L"restoreLayerSnapshot", L"deleteLayerSnapshot"}) {
        loadAddOn(std::wstring(L"without_") + missing);
        const HMODULE module = GetModuleHandleW(L"TrelUiBase.xmod");
        EXPECT_EQ(GetProcAddress(module, ui::narrow(missing).c_str()), nullptr);
        openWithLegacyStates(0);
        saveSnapshots(2);
        EXPECT_TRUE(runLayerState(closeManager()));
        EXPECT_THAT(ui::callsOf("saveLayerState"), IsEmpty());
        EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
        openWithLegacyStates(1);
        saveSnapshots(2);
        EXPECT_TRUE(runLayerState(confirm(messageOf(1, 0)).then(closeManager())));
        EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
        EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1"));
        unloadAddOn();
    }
}

TEST_F(AddOnFailure, SnapshotsThatCantBeListedStayWithoutAWord) {
    loadAddOn();
    openWithFailure("getLayerTable", 2); // the first is of the search for states of the older tool
    runWithFailure(closeManager());
    EXPECT_THAT(stateNames(), IsEmpty());
    EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
}

TEST_F(AddOnFailure, ASnapshotThatCantBeRestoredEndsTheConversion) {
    loadAddOn();
    openWithFailure("getLayerTable", 5); // after the search, the list, and the first one's restore and delete
    runWithFailure(confirm(messageOf(0, 1)).then(closeManager()));
    EXPECT_THAT(stateNames(), ElementsAre(L"S1"));
    EXPECT_EQ(listedSnapshots(), L"S2\n");
    EXPECT_TRUE(runLayerState(confirm(messageOf(0, 1)).then(closeManager()))) << "the next run brings the rest";
    EXPECT_THAT(stateNames(), ElementsAre(L"S1", L"SNAPSHOT_S2"));
}

TEST_F(AddOnFailure, ASnapshotThatCantBeSavedEndsTheConversion) {
    loadAddOn();
    openWithFailure("saveLayerState", 3); // the first keeps the layers
    runWithFailure(confirm(messageOf(0, 1)).then(closeManager()));
    EXPECT_THAT(stateNames(), ElementsAre(L"S1"));
    EXPECT_EQ(listedSnapshots(), L"S2\n");
}

TEST_F(AddOnFailure, ASnapshotThatCantBeDeletedCountsAndEndsTheConversion) {
    loadAddOn();
    openWithFailure("setExtendedData", 1);
    runWithFailure(confirm(messageOf(0, 1)).then(closeManager()));
    EXPECT_THAT(stateNames(), ElementsAre(L"S1"));
    EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
    EXPECT_TRUE(runLayerState(confirm(messageOf(0, 2)).then(closeManager()))) << "it comes again under a free name";
    EXPECT_THAT(stateNames(), ElementsAre(L"S1", L"SNAPSHOT_S1", L"SNAPSHOT_S2"));
}

TEST_F(AddOnFailure, NothingIsTouchedWithoutTheDrawingsStates) {
    loadAddOn();
    openWithFailure("getLayerStateManager", 1);
    runWithFailure(closeManager());
    EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
}

} // namespace
