// A migration of both older stores that ends between any two calls of the host, with the real module and the real
// add-on in the process: what somebody saves of the drawing at that moment has every state, and the next migration goes
// on.

#include "SnapshotMigrationTest.h"

#include "MigrateLayerStates.h"
#include "OldStates.h"
#include "instruments/CallObserver.h"

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

namespace {

AddOnFunction findInAddOn(const char* name) {
    return reinterpret_cast<AddOnFunction>(GetProcAddress(GetModuleHandleW(L"TrelUiBase.xmod"), name));
}

class KilledMigration : public SnapshotMigrationTest {
  protected:
    void SetUp() override {
        SnapshotMigrationTest::SetUp();
        loadAddOn();
        openWithLegacyStates(2);
        saveSnapshots(2);
    }
    const zdr::Drawing& drawing() const { return engine::drawingOf(database()); }

    /// Runs LAYERSTATE, and answers the drawing as it stood when each of its calls began, up to the message.
    std::vector<std::pair<std::string, zdr::Drawing>> momentsOfCommand() {
        std::vector<std::pair<std::string, zdr::Drawing>> moments;
        instruments::observeCalls([&](const std::string& call) { moments.emplace_back(call, drawing()); });
        EXPECT_TRUE(runLayerState(Script()
                                      .waitForText(messageOf(2, 2))
                                      .look("all calls of the migration",
                                            [&moments](const View&) {
                                                instruments::observeCalls({});
                                                EXPECT_EQ(moments.size(), instruments::trace().size());
                                            })
                                      .press(VK_RETURN)
                                      .then(closeManager())));
        return moments;
    }
    /// Converts what is left in the older stores; answers how many states each of them has given.
    static std::pair<int, int> migrate() {
        std::pair<int, int> counts;
        convertLegacyLayerStates(counts.first, true);
        convertLayerSnapshots(counts.second, true);
        releaseKeptChains();
        return counts;
    }
};

TEST_F(KilledMigration, LosesNoStateOfEitherStoreAndGoesOnFromBetweenAnyTwoCalls) {
    const Looks before = looksOf(drawing());
    const OldStore tool = olderTool(), addOn = snapshotsOfAddOn(findInAddOn);
    const OldStates ofTool(database(), tool), ofAddOn(database(), addOn);
    ASSERT_EQ(std::pair(ofTool.count(), ofAddOn.count()), std::pair(std::size_t{2}, std::size_t{2}));
    for (auto& [call, stopped] : momentsOfCommand()) {
        SCOPED_TRACE(call);
        renameThrowAwayState(stopped);
        engine::replaceDrawing(database(), stopped);
        EXPECT_THAT(ofTool.lostIn(drawing()), IsEmpty());
        EXPECT_THAT(ofAddOn.lostIn(drawing()), IsEmpty());
        EXPECT_TRUE(keepsLooks(drawing(), before));
        const std::pair left(static_cast<int>(tool.names().size()), static_cast<int>(addOn.names().size()));
        EXPECT_EQ(migrate(), left);
        EXPECT_THAT(ofTool.notBroughtTo(drawing()), IsEmpty());
        EXPECT_THAT(ofAddOn.notBroughtTo(drawing()), IsEmpty());
        EXPECT_TRUE(keepsLooks(drawing(), before));
        EXPECT_EQ(looksOf(drawing()), looksOf(stopped));
        EXPECT_EQ(migrate(), std::pair(0, 0)) << "the second time";
        if (HasFailure())
            break;
    }
    EXPECT_THAT(tool.names(), IsEmpty());
    EXPECT_THAT(addOn.names(), IsEmpty());
    EXPECT_THAT(stateNames(), ElementsAre(L"PLAN1", L"PLAN2", L"SNAPSHOT_S1", L"SNAPSHOT_S2"));
}

} // namespace
