// Snapshots of the real add-on become layer states.

#include "RegistryKeys.h"
#include "SnapshotMigrationTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

constexpr const wchar_t* kNone = L"The drawing has no layer snapshots.\n";
constexpr const wchar_t* kGeneral = L"Software\\KelWorkbench\\Profiles\\Default\\General";
constexpr const wchar_t* kBypass = L"BypassSnapshotConversion";

class AddOn : public SnapshotMigrationTest {
  protected:
    void SetUp() override {
        SnapshotMigrationTest::SetUp();
        loadAddOn();
    }
    /// Walls' colour in a state.
    int colorIn(const wchar_t* state) {
        EXPECT_EQ(states().restoreLayerState(state, {}, 0, nullptr), Vorn::eOk);
        return wallsColor();
    }
};

TEST_F(AddOn, HasItsSnapshotsTurnedIntoStates) {
    for (const int count : {1, 2, 12}) {
        openWithLegacyStates(0);
        saveSnapshots(count);
        EXPECT_TRUE(runLayerState(confirm(messageOf(0, count)).then(closeManager()))) << count;
        EXPECT_EQ(stateNames().size(), static_cast<std::size_t>(count));
        EXPECT_EQ(listedSnapshots(), kNone);
        EXPECT_EQ(wallsColor(), 7) << "the layers are as before";
        EXPECT_EQ(colorIn((L"S" + std::to_wstring(count)).c_str()), 10 + count);
    }
}

TEST_F(AddOn, HasThemTurnedAfterTheStatesOfTheOlderTool) {
    openWithLegacyStates(2);
    saveSnapshots(1);
    EXPECT_TRUE(runLayerState(confirm(messageOf(2, 1)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1", L"PLAN2", L"SNAPSHOT_S1"));
    EXPECT_TRUE(runLayerState(closeManager())) << "and nothing the second time";
    EXPECT_EQ(stateNames().size(), 3u);
}

TEST_F(AddOn, IsNamedInTheMessageAlsoWithoutASnapshot) {
    openWithLegacyStates(1);
    EXPECT_TRUE(runLayerState(confirm(messageOf(1, 0)).then(closeManager())));
}

TEST_F(AddOn, WithoutSnapshotsChangesAndTellsNothing) {
    openWithLegacyStates(0);
    EXPECT_TRUE(runLayerState(closeManager()));
    EXPECT_THAT(stateNames(), IsEmpty());
    EXPECT_THAT(ui::callsOf("saveLayerState"), IsEmpty());
}

TEST_F(AddOn, KeepsNamesThatStatesCantHaveUnderAnother) {
    openWithLegacyStates(0);
    runSnapshot(L"SAVE \"A|B\"");
    runSnapshot(L"SAVE C/D");
    runSnapshot(L"SAVE Ground floor");
    EXPECT_TRUE(runLayerState(confirm(messageOf(0, 3)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"SNAPSHOT_INVALIDNAME", L"SNAPSHOT_INVALIDNAME (1)", L"Ground floor"));
}

TEST_F(AddOn, IsPassedOverWhenTheProfileSaysSo) {
    RegistryKeys keys;
    keys.setNumber(HKEY_CURRENT_USER, kGeneral, kBypass, 1);
    openWithLegacyStates(0);
    saveSnapshots(2);
    EXPECT_TRUE(runLayerState(closeManager()));
    EXPECT_THAT(stateNames(), IsEmpty());
    EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
    EXPECT_THAT(ui::callsOf("saveLayerState"), IsEmpty()) << "not even to keep the layers";
    openWithLegacyStates(1);
    saveSnapshots(2);
    EXPECT_TRUE(runLayerState(confirm(messageOf(1, 0)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1"));
    EXPECT_EQ(listedSnapshots(), L"S1\nS2\n");
}

TEST_F(AddOn, IsntPassedOverWhenTheProfileSaysNo) {
    RegistryKeys keys;
    keys.setNumber(HKEY_CURRENT_USER, kGeneral, kBypass, 0);
    openWithLegacyStates(0);
    saveSnapshots(2);
    EXPECT_TRUE(runLayerState(confirm(messageOf(0, 2)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"S1", L"S2"));
}

TEST_F(AddOn, ThatIsNoLongerLoadedLeavesItsSnapshotsInTheDrawing) {
    openWithLegacyStates(1);
    saveSnapshots(1);
    unloadAddOn();
    EXPECT_TRUE(runLayerState(confirm(MigrationTest::messageOf(1)).then(closeManager())));
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1"));
    loadAddOn();
    EXPECT_EQ(listedSnapshots(), L"S1\n");
}

} // namespace
