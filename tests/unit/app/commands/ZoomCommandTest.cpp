// ZOOM, PAN and ABOUT: what they ask of the window, and what they tell.

#include "CommandFixture.h"
#include "HandmadeDrawing.h"

#include "engine/DatabaseAccess.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using workbench::PickedFor;

namespace {

class ZoomCommandTest : public CommandFixture {
  protected:
    ZoomCommandTest() {
        zdr::Drawing made = drawing();
        handmade::addLine(made, handmade::addLayer(made, L"Walls"), 1000);
        handmade::addLayer(made, L"Empty");
        session.rebuild(made);
        m_changes = engine::changeCount(session.database());
    }
    ~ZoomCommandTest() override {
        EXPECT_EQ(engine::changeCount(session.database()), m_changes) << "looking is no change";
        EXPECT_FALSE(session.canUndo());
    }
    std::uint64_t m_changes = 0;
};

} // namespace

TEST_F(ZoomCommandTest, AFactorZoomsByIt) {
    EXPECT_EQ(run(L"ZOOM 3"), L"Zoomed in.\n");
    EXPECT_EQ(window.scale, 3);
    EXPECT_EQ(run(L"Z 0.5x"), L"Zoomed out.\n");
    EXPECT_EQ(window.scale, 1.5);
    run(L"ZOOM 10000");
    run(L"ZOOM 0.0001");
    EXPECT_EQ(window.scale, 1.5) << "the largest and the smallest one";
    EXPECT_EQ(run(L"ZOOM IN"), L"Zoomed in.\n");
    EXPECT_EQ(window.scale, 3);
    EXPECT_EQ(run(L"ZOOM OUT"), L"Zoomed out.\n");
    EXPECT_EQ(window.scale, 1.5);
    for (const std::wstring line : {L"ZOOM IN", L"ZOOM OUT", L"ZOOM EXTENTS", L"ZOOM PREVIOUS"})
        EXPECT_EQ(run(line + L" 2"), line + L" takes no arguments: type " + line + L" alone.\n");
    EXPECT_EQ(window.scale, 1.5);
}

TEST_F(ZoomCommandTest, AFactorThatCantBeIsRefused) {
    const std::wstring bounds =
        L"ZOOM takes a factor from 0.0001 to 10000: 2 shows twice as large, 0.5 half as large.\n";
    for (const wchar_t* factor : {L"0", L"-2", L"10001", L"0.00009x", L"1e300"})
        EXPECT_EQ(run(std::wstring(L"ZOOM ") + factor), bounds);
    EXPECT_THAT(run(L"ZOOM 1"), StartsWith(L"A factor of 1 changes nothing:"));
    EXPECT_EQ(run(L"ZOOM 2 2"), L"ZOOM has too many arguments: type ZOOM and one factor.\n");
    EXPECT_THAT(run(L"ZOOM inf"), StartsWith(L"ZOOM has no option \"inf\":"));
    EXPECT_FALSE(done);
    EXPECT_EQ(window.scale, 1);
}

TEST_F(ZoomCommandTest, AtTheEndOfTheScaleItTellsTheOtherWay) {
    window.canZoom = false;
    EXPECT_EQ(run(L"ZOOM 2"), L"The drawing can't be shown any larger: zoom out.\n");
    EXPECT_FALSE(done);
    EXPECT_EQ(run(L"ZOOM OUT"), L"The drawing can't be shown any smaller: zoom in.\n");
    EXPECT_FALSE(done);
}

TEST_F(ZoomCommandTest, AWindowIsShownWhicheverCornersAreGiven) {
    EXPECT_EQ(run(L"ZOOM WINDOW 10,20 30,-5.5"), L"The window is shown.\n");
    EXPECT_THAT(window.shown, ElementsAre(10, 20, 30, -5.5));
    EXPECT_EQ(run(L"Z W 3,4 1,2"), L"The window is shown.\n");
    EXPECT_THAT(window.shown, ElementsAre(3, 4, 1, 2));
}

TEST_F(ZoomCommandTest, AWindowThatCantBeIsRefused) {
    const std::wstring flat = L"The window between these corners has no width or no height: give two that differ in x "
                              L"and in y.\n";
    for (const wchar_t* corners : {L"1,1 1,1", L"1,1 1,9", L"1,1 9,1"})
        EXPECT_EQ(run(std::wstring(L"ZOOM WINDOW ") + corners), flat);
    EXPECT_EQ(run(L"ZOOM WINDOW 1,1"),
              L"ZOOM WINDOW needs two corners: type ZOOM WINDOW x,y x,y, or ZOOM WINDOW alone.\n");
    EXPECT_EQ(run(L"ZOOM WINDOW 0,0 nan,1"),
              L"\"nan,1\" is no point: give two numbers with a comma between, as 10,-2.5, none of them beyond "
              L"1000000000000.\n");
    EXPECT_THAT(run(L"ZOOM WINDOW 1e300,0 1,1"), StartsWith(L"\"1e300,0\" is no point:"));
    EXPECT_THAT(window.shown, IsEmpty());
    window.canZoom = false;
    EXPECT_EQ(run(L"ZOOM WINDOW 0,0 1e-9,1e-9"),
              L"The window between these corners is too small or too large to be shown: give others.\n");
    EXPECT_FALSE(done);
}

TEST_F(ZoomCommandTest, WithoutPointsTheyAreAskedForButNotInAScript) {
    EXPECT_THAT(run(L"ZOOM WINDOW"), StartsWith(L"Click a corner of what is to be shown"));
    EXPECT_EQ(window.pickedFor, PickedFor::Window);
    EXPECT_THAT(run(L"PAN"), StartsWith(L"Click a point of the drawing"));
    EXPECT_EQ(window.pickedFor, PickedFor::Move);
    EXPECT_TRUE(done);
    window.canPick = false;
    EXPECT_EQ(run(L"ZOOM WINDOW"), L"A script waits for no clicks: type ZOOM WINDOW x,y x,y.\n");
    EXPECT_FALSE(done);
    EXPECT_EQ(run(L"PAN"), L"A script waits for no clicks: type PAN x,y.\n");
    EXPECT_FALSE(done);
}

TEST_F(ZoomCommandTest, PreviousGoesBackWhileThereIsSomething) {
    EXPECT_EQ(run(L"ZOOM PREVIOUS"), L"What was on view before is shown.\n");
    run(L"Z P");
    EXPECT_EQ(window.wentBack, 2);
    window.canZoom = false;
    EXPECT_EQ(run(L"ZOOM PREVIOUS"), L"Nothing else was on view here before: zoom or move the drawing first.\n");
    EXPECT_FALSE(done);
}

TEST_F(ZoomCommandTest, PanMovesByADisplacementOrFromPointToPoint) {
    EXPECT_EQ(run(L"PAN 10,-5"), L"What is shown is moved.\n");
    EXPECT_THAT(window.moved, ElementsAre(10, -5));
    run(L"P 100,100 130,90");
    EXPECT_THAT(window.moved, ElementsAre(30, -10));
    window.moved.clear();
    const std::wstring nothing =
        L"That moves nothing: give a displacement other than 0,0, or two points that differ.\n";
    EXPECT_EQ(run(L"PAN 0,0"), nothing);
    EXPECT_EQ(run(L"PAN 7,8 7,8"), nothing);
    EXPECT_THAT(run(L"PAN 7"), StartsWith(L"\"7\" is no point:"));
    EXPECT_THAT(run(L"PAN x,y 1,1"), StartsWith(L"\"x,y\" is no point:"));
    EXPECT_THAT(run(L"PAN 1,1 1e13,0"), StartsWith(L"\"1e13,0\" is no point:"));
    EXPECT_FALSE(done);
    EXPECT_THAT(window.moved, IsEmpty());
}

TEST_F(ZoomCommandTest, ALayerIsShownWithSomeRoomAround) {
    EXPECT_EQ(run(L"ZOOM LAYER walls"), L"All that is drawn on the layer \"Walls\" is shown.\n");
    EXPECT_THAT(window.shown, ElementsAre(-50, -50, 1050, 50));
    EXPECT_EQ(run(L"Z L Walls,Base"), L"All that is drawn on these 2 layers is shown.\n");
    window.canZoom = false;
    EXPECT_EQ(run(L"ZOOM LAYER Walls"),
              L"What is drawn on the layer \"Walls\" is too small or too large to be shown: give others.\n");
    EXPECT_FALSE(done);
}

TEST_F(ZoomCommandTest, ALayerWithoutAnythingOnItIsTold) {
    EXPECT_EQ(run(L"ZOOM LAYER Empty"),
              L"Nothing lies on the layer \"Empty\" here: give others, or look at another tab.\n");
    EXPECT_FALSE(done);
    EXPECT_EQ(run(L"ZOOM LAYER Base,Empty"),
              L"Nothing lies on these 2 layers here: give others, or look at another tab.\n");
    EXPECT_EQ(run(L"ZOOM LAYER nowhere"),
              L"No layer is called \"nowhere\": LAYER LIST shows the names; one with blanks goes in quotes.\n");
    EXPECT_THAT(window.shown, IsEmpty());
}

namespace {

/// Some with changed layers: what is hidden is told with what shows it.
class ZoomHiddenLayerTest : public CommandFixture {
  protected:
    ZoomHiddenLayerTest() {
        zdr::Drawing made = drawing();
        handmade::addLine(made, handmade::addLayer(made, L"Walls"), 1000);
        handmade::addLine(made, handmade::addLayer(made, L"Doors"), 10);
        session.rebuild(made);
    }
};

} // namespace

TEST_F(ZoomHiddenLayerTest, AHiddenLayerIsToldWithWhatShowsIt) {
    run(L"LAYER OFF Walls");
    EXPECT_EQ(run(L"ZOOM LAYER Walls"),
              L"Nothing on the layer \"Walls\" is drawn, because it is off: turn it on by LAYER ON.\n");
    EXPECT_EQ(run(L"ZOOM LAYER Walls,Doors"),
              L"All that is drawn on these 2 layers is shown; more is off or frozen.\n");
    EXPECT_THAT(window.shown, ElementsAre(-0.5, -0.5, 10.5, 0.5));
    window.shown.clear();
    run(L"LAYER FREEZE Walls,Doors");
    EXPECT_EQ(run(L"ZOOM LAYER Walls"),
              L"Nothing on the layer \"Walls\" is drawn, because it is frozen: thaw it by LAYER THAW.\n");
    EXPECT_EQ(run(L"ZOOM LAYER Walls,Doors"), L"Nothing on these 2 layers is drawn: they are off or frozen.\n");
    EXPECT_FALSE(done);
    EXPECT_THAT(window.shown, IsEmpty());
}

TEST_F(ZoomHiddenLayerTest, ALayerThatTheViewportsFreezeIsTold) {
    run(L"LAYOUT Layout1");
    EXPECT_EQ(run(L"ZOOM LAYER Doors"), L"All that is drawn on the layer \"Doors\" is shown.\n");
    run(L"VPLAYER FREEZE Doors IN ALL");
    EXPECT_EQ(run(L"ZOOM LAYER Doors"),
              L"Nothing on the layer \"Doors\" is drawn, because it is frozen in the viewports: "
              L"thaw it by VPLAYER THAW.\n");
    EXPECT_FALSE(done);
}

TEST_F(ZoomCommandTest, AboutShowsWhatTheProgramIs) {
    run(L"ABOUT");
    ASSERT_EQ(window.abouts.size(), 1u);
    EXPECT_THAT(window.abouts[0], StartsWith(L"Kel Workbench "));
    EXPECT_TRUE(done);
}
