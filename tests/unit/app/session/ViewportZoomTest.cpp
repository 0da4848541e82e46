// What a viewport shows is a change of the drawing: it stands on the paper. Turning the wheel on is no step of its own.

#include "CommandFixture.h"
#include "HandmadeDrawing.h"

#include "engine/DatabaseAccess.h"

namespace {

class ViewportZoomTest : public CommandFixture {
  protected:
    ViewportZoomTest() {
        zdr::Drawing two = drawing();
        handmade::addSecondViewport(two);
        session.rebuild(two);
        run(L"SAVEAS " + path("plan.zdr"));
        before = viewport(0).scale;
    }
    const zdr::Viewport& viewport(std::size_t index) const { return drawing().layouts[0].viewports[index]; }
    void zoom(std::size_t index, double scale) {
        session.showInViewport(viewport(index).handle, {7, 8}, scale);
        EXPECT_EQ(viewport(index).scale, scale);
    }
    bool hasWalls() const { return engine::layerIndex(session.database(), L"Walls") != zdr::kNone; }
    double before = 0;
};

} // namespace

TEST_F(ViewportZoomTest, IsAChangeThatUndoTakesBackAndTheFileKeeps) {
    const zdr::Point center = viewport(0).viewCenter;
    EXPECT_FALSE(session.isModified());
    const int told = window.changed;
    zoom(0, 3);
    EXPECT_EQ(viewport(0).viewCenter, (zdr::Point{7, 8}));
    EXPECT_EQ(window.changed, told + 1);
    EXPECT_TRUE(session.isModified());
    run(L"U");
    EXPECT_EQ(viewport(0).viewCenter, center);
    run(L"REDO");
    EXPECT_EQ(viewport(0).viewCenter, (zdr::Point{7, 8}));
    run(L"SAVE");
    run(L"OPEN " + path("plan.zdr"));
    EXPECT_EQ(viewport(0).scale, 3);
    zoom(0, 4);
    run(L"U");
    EXPECT_EQ(viewport(0).scale, 3);
    EXPECT_EQ(viewport(0).viewCenter, (zdr::Point{7, 8}));
    EXPECT_FALSE(session.isModified());
}

TEST_F(ViewportZoomTest, TurnsOfTheWheelOneAfterTheOtherAreOneStep) {
    run(L"LAYER NEW Walls");
    zoom(0, 3);
    zoom(0, 4);
    run(L"LAYOUT Layout1");
    run(L"VPORT 2");
    zoom(0, 5);
    run(L"U");
    EXPECT_EQ(viewport(0).scale, before);
    EXPECT_TRUE(hasWalls()) << "the command before is a step of its own";
    run(L"REDO");
    EXPECT_EQ(viewport(0).scale, 5);
    run(L"U");
    run(L"U");
    EXPECT_FALSE(hasWalls());
    EXPECT_FALSE(session.isModified());
}

TEST_F(ViewportZoomTest, AnotherViewportIsAnotherStep) {
    zoom(0, 3);
    zoom(1, 4);
    zoom(0, 5);
    run(L"U");
    EXPECT_EQ(viewport(0).scale, 3);
    EXPECT_EQ(viewport(1).scale, 4);
    run(L"U");
    EXPECT_EQ(viewport(1).scale, before);
    run(L"U");
    EXPECT_EQ(viewport(0).scale, before);
}

TEST_F(ViewportZoomTest, TheStepBearsTheNumberOfTheViewportAndWhatIsMadeBeforeAndAfterItsOwnName) {
    run(L"LAYER NEW Walls");
    zoom(0, 3);
    zoom(1, 4);
    run(L"LAYER NEW Doors");
    EXPECT_EQ(run(L"U"), L"Undone: LAYER NEW.\n");
    EXPECT_EQ(run(L"U"), L"Undone: zoom in viewport 3.\n");
    EXPECT_EQ(run(L"U"), L"Undone: zoom in viewport 2.\n");
    EXPECT_EQ(run(L"REDO"), L"Made again: zoom in viewport 2.\n");
    EXPECT_EQ(run(L"U 2"), L"Undone: 2 changes, zoom in viewport 2, LAYER NEW.\n");
}

TEST_F(ViewportZoomTest, AChangeBetweenEndsTheStep) {
    zoom(0, 3);
    run(L"LAYER NEW Walls");
    zoom(0, 4);
    run(L"U");
    EXPECT_EQ(viewport(0).scale, 3);
    EXPECT_TRUE(hasWalls());
    run(L"U");
    EXPECT_FALSE(hasWalls());
    run(L"U");
    EXPECT_EQ(viewport(0).scale, before);
}

TEST_F(ViewportZoomTest, WhatWasTakenBackAndMadeAgainIsGoneOnWithInAStepOfItsOwn) {
    zoom(0, 3);
    run(L"U");
    run(L"REDO");
    zoom(0, 4);
    run(L"U");
    EXPECT_EQ(viewport(0).scale, 3);
}

TEST_F(ViewportZoomTest, WhatCantBeShownIsRefused) {
    const int told = window.changed;
    session.showInViewport(viewport(0).handle, {7, 8}, 0);
    session.showInViewport(viewport(0).handle + 1000, {7, 8}, 2);
    EXPECT_EQ(viewport(0).scale, before);
    EXPECT_EQ(window.changed, told);
    EXPECT_FALSE(session.isModified());
}
