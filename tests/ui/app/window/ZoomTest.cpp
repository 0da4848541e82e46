// ZOOM and PAN as they are typed: what they show, and that they change nothing of the drawing.

#include "ShownDrawingTest.h"

#include <fstream>

using ui::Script;
using ui::View;
using workbench::ViewTransform;

namespace {

class ZoomTest : public ShownDrawingTest {
  protected:
    /// Types a line and waits for its answer, the last one in the history.
    static Script ask(const std::wstring& line, const std::wstring& answer) {
        return command(line).then(answered(L"Command: " + line + L"\r\n" + answer));
    }
    CRect client() const {
        CRect rect;
        shown().GetClientRect(rect);
        return rect;
    }
};

} // namespace

TEST_F(ZoomTest, AWindowFillsTheViewAndAFactorZoomsAboutItsMiddle) {
    Script script;
    script.then(open())
        .then(ask(L"ZOOM WINDOW 300,20 100,-20", L"The window is shown."))
        .look("the window as large as it fits",
              [this](const View&) {
                  EXPECT_NEAR(view().toScreen({100, 0}).x, 0, 1e-6);
                  EXPECT_NEAR(view().toScreen({300, 0}).x, client().Width(), 1e-6);
                  EXPECT_NEAR(view().toScreen({200, 0}).y, client().Height() / 2.0, 1e-6);
              })
        .then(ask(L"ZOOM 4", L"Zoomed in."))
        .look("a quarter of it",
              [this](const View&) {
                  EXPECT_NEAR(view().toScreen({175, 0}).x, 0, 1e-6);
                  EXPECT_NEAR(view().toScreen({225, 0}).x, client().Width(), 1e-6);
              })
        .then(ask(L"ZOOM 0.25x", L"Zoomed out."))
        .look("all of it",
              [this](const View&) {
                  EXPECT_NEAR(view().toScreen({100, 0}).x, 0, 1e-6);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ZoomTest, PanMovesTheDrawingInItsUnits) {
    ViewTransform before;
    const auto moved = [this, &before](double x, double y) {
        Script script;
        script.look("how far it has moved", [this, &before, x, y](const View&) {
            const zdr::Point was = before.toScreen({0, 0});
            const zdr::Point now = view().toScreen({0, 0});
            EXPECT_NEAR(now.x - was.x, x * view().scale(), 1e-6);
            EXPECT_NEAR(now.y - was.y, -y * view().scale(), 1e-6);
        });
        return script;
    };
    Script script;
    script.then(open())
        .then(note(before))
        .then(ask(L"PAN 50,25", L"What is shown is moved."))
        .then(moved(50, 25))
        .then(ask(L"PAN 100,100 60,80", L"What is shown is moved."))
        .then(moved(10, 5))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ZoomTest, ALayerIsShownAndOneThatIsntDrawnMovesNothing) {
    ViewTransform layer;
    Script script;
    script.then(open())
        .then(ask(L"ZOOM OUT", L"Zoomed out."))
        .then(ask(L"ZOOM LAYER red", L"All that is drawn on the layer \"Red\" is shown."))
        .look("the line over most of the width",
              [this](const View&) {
                  const double length = view().toScreen({1000, 0}).x - view().toScreen({0, 0}).x;
                  EXPECT_GT(length, 0.85 * client().Width());
                  EXPECT_LT(length, client().Width());
              })
        .then(note(layer))
        .then(
            ask(L"ZOOM LAYER Empty", L"Nothing lies on the layer \"Empty\" here: give others, or look at another tab."))
        .then(isShown(layer, "after an empty layer"))
        .then(command(L"LAYER FREEZE Red"))
        .then(ask(L"ZOOM LAYER Red",
                  L"Nothing on the layer \"Red\" is drawn, because it is frozen: thaw it by LAYER THAW."))
        .then(isShown(layer, "after a frozen layer"))
        .then(command(L"U"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ZoomTest, PreviousGoesBackInEachTabForItself) {
    ViewTransform all, window, sheet;
    const std::wstring back = L"What was on view before is shown.";
    const std::wstring nothing = L"Nothing else was on view here before: zoom or move the drawing first.";
    Script script;
    script.then(open())
        .then(note(all))
        .then(ask(L"ZOOM PREVIOUS", nothing))
        .then(ask(L"ZOOM WINDOW 0,0 10,10", L"The window is shown."))
        .then(note(window))
        .then(ask(L"ZOOM LAYER Red", L"All that is drawn on the layer \"Red\" is shown."))
        .then(ask(L"LAYOUT Layout1", L"The layout \"Layout1\" is shown."))
        .then(note(sheet))
        .then(ask(L"ZOOM PREVIOUS", nothing))
        .then(ask(L"ZOOM IN", L"Zoomed in."))
        .then(ask(L"ZOOM PREVIOUS", back))
        .then(isShown(sheet, "on the sheet"))
        .then(ask(L"MODEL", L"Model space is shown."))
        .then(ask(L"Z P", back))
        .then(isShown(window, "the window again"))
        .then(ask(L"Z P", back))
        .then(isShown(all, "all of it again"))
        .then(ask(L"Z P", nothing))
        .then(ask(L"ZOOM IN", L"Zoomed in."))
        .then(open())
        .then(ask(L"Z P", nothing))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ZoomTest, PreviousGoesBackOverTheWheelAtOnceAndOverTheExtents) {
    ViewTransform window, wheel;
    Script script;
    script.then(open())
        .then(ask(L"ZOOM WINDOW 0,0 10,10", L"The window is shown."))
        .then(note(window))
        .then(turnWheel({100, 100}, WHEEL_DELTA))
        .then(turnWheel({200, 150}, 2 * WHEEL_DELTA))
        .waitUntil("three steps larger", [this, &window](const View&) { return view().scale() > 1.9 * window.scale(); })
        .then(note(wheel))
        .then(ask(L"ZOOM EXTENTS", L"All of the drawing is shown."))
        .then(ask(L"ZOOM PREVIOUS", L"What was on view before is shown."))
        .then(isShown(wheel, "before the extents"))
        .then(ask(L"ZOOM PREVIOUS", L"What was on view before is shown."))
        .then(isShown(window, "before the wheel"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ZoomTest, LookingAroundIsNoChangeAndNoStepOfUndo) {
    const std::wstring plain = L"line.zdr";
    Script script;
    script.then(open()).then(command(L"LAYER NEW Walls")).then(command(L"U")).then(titleIs(plain));
    for (const wchar_t* line : {L"ZOOM WINDOW 0,0 10,10", L"ZOOM LAYER Red", L"ZOOM 2", L"ZOOM PREVIOUS", L"PAN 5,5"})
        script.then(command(line)).then(said(std::wstring(L"Command: ") + line)).then(titleIs(plain));
    script
        .look("nothing to take back, and what was is kept",
              [this](const View&) {
                  EXPECT_FALSE(session().canUndo());
                  EXPECT_TRUE(session().canRedo());
              })
        .then(ask(L"REDO", L"Made again: LAYER NEW."))
        .then(ask(L"U", L"Undone: LAYER NEW."))
        .then(titleIs(plain))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_EQ(window->m_hWnd, nullptr) << "nothing was asked";
}

TEST_F(ZoomTest, ABadArgumentLeavesWhatIsOnViewAlone) {
    ViewTransform before, largest;
    Script script;
    script.then(open()).then(note(before));
    for (const wchar_t* line :
         {L"ZOOM WINDOW 0,0 1e-9,1e-9", L"ZOOM WINDOW -1e12,-1e12 1e12,1e12", L"ZOOM WINDOW 5,5 5,5", L"ZOOM 0",
          L"ZOOM nan", L"PAN nan,0", L"PAN 1e300,0", L"ZOOM LAYER nowhere"})
        script.then(command(line))
            .then(said(std::wstring(L"Command: ") + line + L"\r\n"))
            .then(isShown(before, "after " + ui::narrow(line)));
    script.then(ask(L"ZOOM 10000", L"Zoomed in."))
        .then(ask(L"ZOOM 10000", L"Zoomed in."))
        .then(note(largest))
        .then(ask(L"ZOOM 10000", L"The drawing can't be shown any larger: zoom out."))
        .then(isShown(largest, "at the end of the scale"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(ZoomTest, AScriptUsesTheTypedFormsAndStopsWhereItWouldHaveToClick) {
    std::ofstream(folder / "look.scr") << "ZOOM WINDOW 0,0 10,10\nPAN 1,1\nZOOM LAYER Red\nZOOM 0.5x\nZOOM PREVIOUS\n";
    std::ofstream(folder / "click.scr") << "ZOOM WINDOW\nZOOM IN\n";
    Script script;
    script.then(open())
        .then(command(L"SCRIPT " + path("look.scr")))
        .then(said(L"has ended: 5 lines done"))
        .then(command(L"SCRIPT " + path("click.scr")))
        .then(said(L"A script waits for no clicks: type ZOOM WINDOW x,y x,y."))
        .then(said(L"has stopped, because a line couldn't be done: "))
        .look("no point is awaited", [this](const View&) { EXPECT_FALSE(shown().isPicking()); })
        .then(command(L"QUIT"));
    runWith(script);
}
