// The display operations and their observer.

#include "Display.h"
#include "KelEditor.h"
#include "RuntimeTest.h"

namespace {

class Recorder : public runtime::DisplayObserver {
  public:
    void regenerateLayers(const KelArray<KelDbObjectId>& layers) override {
        events.push_back("regenerate " + std::to_string(layers.length()));
    }
    void layersPublished() override { events.push_back("published"); }
    void updateDisplay() override { events.push_back("update"); }
    std::vector<std::string> events;
};

} // namespace

class DisplayTest : public RuntimeTest {
  protected:
    DisplayTest() { runtime::setDisplayObserver(&recorder); }
    Recorder recorder;
};

TEST_F(DisplayTest, TellsTheObserverInOrder) {
    KelArray<KelDbObjectId> layers;
    layers.append({});
    layers.append({});
    keledRegenLayers(layers, keledRegenPending());
    EXPECT_EQ(applyCurZdrLayerTableChanges(), Vorn::eOk);
    keledUpdateDisplay();
    EXPECT_THAT(recorder.events, testing::ElementsAre("regenerate 2", "published", "update"));
    EXPECT_THAT(instruments::trace(),
                testing::ElementsAre("keledRegenPending() = 0", "keledRegenLayers(2, 0)",
                                     "applyCurZdrLayerTableChanges() = 0", "keledUpdateDisplay()"));
}

TEST_F(DisplayTest, ARegenerationIsDueUntilItIsDone) {
    runtime::requestRegeneration();
    EXPECT_NE(keledRegenPending(), 0);
    keledRegenLayers(KelArray<KelDbObjectId>(), keledRegenPending());
    EXPECT_EQ(keledRegenPending(), 0);
}

TEST_F(DisplayTest, WorksWithoutAnObserver) {
    runtime::setDisplayObserver(nullptr);
    keledRegenLayers(KelArray<KelDbObjectId>(), 0);
    EXPECT_EQ(applyCurZdrLayerTableChanges(), Vorn::eOk);
    keledUpdateDisplay();
    EXPECT_THAT(recorder.events, testing::IsEmpty());
}

TEST_F(DisplayTest, AFailedPublicationReachesNobody) {
    instruments::failCall("applyCurZdrLayerTableChanges", 1, Vorn::eNotApplicable);
    EXPECT_EQ(applyCurZdrLayerTableChanges(), Vorn::eNotApplicable);
    EXPECT_THAT(recorder.events, testing::IsEmpty());
}
