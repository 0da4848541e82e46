// Two points by the mouse, for ZOOM WINDOW and PAN.

#include "ShownDrawingTest.h"

#include <algorithm>

using ui::Script;
using ui::View;
using workbench::ViewTransform;

namespace {

constexpr POINT kFirst{100, 60};
constexpr POINT kSecond{300, 160};
constexpr const wchar_t* kAsksForCorners = L"or type them as x,y. Esc ends it.";

class PickPointsTest : public ShownDrawingTest {
  protected:
    Script start(const std::wstring& line) { return command(line).then(answered(kAsksForCorners)); }
    long bandPixels(const View& view) const {
        const std::vector<COLORREF> pixels = view.pixels(IDC_DRAWING_VIEW);
        return std::ranges::count(pixels, workbench::colors::kAccent);
    }
    Script bandIs(std::string what, std::function<bool(long)> right) {
        Script script;
        script.waitUntil("the rubber band is " + what,
                         [this, right](const View& view) { return right(bandPixels(view)); });
        return script;
    }
    static zdr::Point toPoint(POINT pixel) { return {static_cast<double>(pixel.x), static_cast<double>(pixel.y)}; }
    /// A step that looks whether the window between kFirst and kSecond of `before` fills the view.
    Script windowFills(const ViewTransform& before) {
        Script script;
        script.look("the window between the two points", [this, &before](const View&) {
            const zdr::Point left = view().toScreen(before.toPlane(toPoint(kFirst)));
            const zdr::Point right = view().toScreen(before.toPlane(toPoint(kSecond)));
            CRect client;
            shown().GetClientRect(client);
            const double grown = view().scale() / before.scale(); // a hundredth of a pixel may be missing before
            EXPECT_NEAR((left.x + right.x) / 2, client.Width() / 2.0, 0.01 * grown);
            EXPECT_NEAR((left.y + right.y) / 2, client.Height() / 2.0, 0.01 * grown);
            EXPECT_NEAR(grown, std::min(client.Width() / 200.0, client.Height() / 100.0), 0.01);
        });
        return script;
    }
};

} // namespace

TEST_F(PickPointsTest, TwoClicksShowTheWindowBetweenThem) {
    ViewTransform before;
    Script script;
    script.then(open())
        .then(note(before))
        .then(start(L"ZOOM WINDOW"))
        .then(click(kFirst))
        .then(click(kSecond))
        .then(answered(L"The window is shown."))
        .then(said(L"Command: ZOOM WINDOW "))
        .then(windowFills(before))
        .then(bandIs("gone", [](long pixels) { return pixels == 0; }))
        .then(command(L"ZOOM PREVIOUS"))
        .then(said(L"What was on view before is shown."))
        .then(isShown(before, "before the clicks"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, ADragGivesBothPoints) {
    ViewTransform before;
    Script script;
    script.then(open())
        .then(note(before))
        .then(start(L"Z W"))
        .then(press(kFirst))
        .then(release(kSecond))
        .then(answered(L"The window is shown."))
        .then(windowFills(before))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, ARubberBandFollowsThePointerUntilEsc) {
    ViewTransform before;
    Script script;
    script.then(open())
        .then(note(before))
        .then(start(L"ZOOM WINDOW"))
        .then(pointAt(kSecond))
        .look("none before the first point", [this](const View& view) { EXPECT_EQ(bandPixels(view), 0); })
        .then(click(kFirst))
        .then(pointAt(kSecond))
        .then(bandIs("a rectangle of 200 by 100", [](long pixels) { return pixels > 500 && pixels < 700; }))
        .then(pointAt({200, 110}))
        .then(bandIs("half as large", [](long pixels) { return pixels > 250 && pixels < 350; }))
        .press(VK_ESCAPE)
        .then(answered(L"No points are chosen, and what is on view stays."))
        .then(bandIs("gone", [](long pixels) { return pixels == 0; }))
        .then(click(kSecond))
        .then(isShown(before, "after Esc and a click"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, ThePointUnderThePanFollowsTheSecondClick) {
    ViewTransform before;
    Script script;
    script.then(open())
        .then(note(before))
        .then(start(L"PAN"))
        .then(click(kFirst))
        .then(pointAt({300, 60}))
        .then(bandIs("a line of 200", [](long pixels) { return pixels > 150 && pixels < 250; }))
        .then(click(kSecond))
        .then(answered(L"What is shown is moved."))
        .look("what lay at the first point lies at the second",
              [this, &before](const View&) {
                  const zdr::Point moved = view().toScreen(before.toPlane(toPoint(kFirst)));
                  EXPECT_NEAR(moved.x, kSecond.x, 0.02);
                  EXPECT_NEAR(moved.y, kSecond.y, 0.02);
                  EXPECT_EQ(view().scale(), before.scale());
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, ATypedPointIsAsGoodAsAClick) {
    Script script;
    script.then(open())
        .then(start(L"ZOOM WINDOW"))
        .then(command(L"100,20"))
        .then(command(L"300.125,-20"))
        .then(answered(L"Command: ZOOM WINDOW 100,20 300.125,-20\r\nThe window is shown."))
        .then(command(L"1,1"))
        .then(answered(L"Unknown command \"1,1\": HELP lists the commands."))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, TheSamePointTwiceIsRefusedAsWhenItIsTyped) {
    ViewTransform before;
    Script script;
    script.then(open())
        .then(note(before))
        .then(start(L"ZOOM WINDOW"))
        .step("double click the drawing",
              [](const View& view) -> ui::Obstacle {
                  const RECT rect = view.rect(IDC_DRAWING_VIEW);
                  if (!ui::pointerRestsAt({rect.left + kFirst.x, rect.top + kFirst.y}))
                      return "the pointer is under way";
                  ui::click(2);
                  return std::nullopt;
              })
        .then(answered(L"has no width or no height: give two that differ in x and in y."))
        .then(isShown(before, "after the double click"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, TheWheelZoomsMeanwhileAndTheFirstPointStaysWhereItIsInTheDrawing) {
    ViewTransform before, zoomed;
    Script script;
    script.then(open())
        .then(note(before))
        .then(start(L"PAN"))
        .then(click(kFirst))
        .then(turnWheel(kSecond, WHEEL_DELTA))
        .waitUntil("larger", [this, &before](const View&) { return view().scale() > before.scale(); })
        .then(note(zoomed))
        .then(click(kSecond))
        .then(answered(L"What is shown is moved."))
        .look("the point of the first click lies at the second",
              [this, &before](const View&) {
                  const zdr::Point moved = view().toScreen(before.toPlane(toPoint(kFirst)));
                  EXPECT_NEAR(moved.x, kSecond.x, 0.05);
                  EXPECT_NEAR(moved.y, kSecond.y, 0.05);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, AnotherCommandOrTabEndsIt) {
    ViewTransform before, sheet;
    Script script;
    script.then(open()).then(note(before)).then(start(L"ZOOM WINDOW")).then(click(kFirst));
    script.then(command(L"LAYER LIST Red"))
        .waitUntil("no point is awaited", [this](const View&) { return !shown().isPicking(); })
        .then(click(kSecond))
        .then(isShown(before, "after another command"))
        .then(start(L"ZOOM WINDOW"))
        .then(click(kFirst));
    script.press(VK_NEXT, ui::holdControl)
        .waitUntil("the sheet", [this](const View&) { return session().drawing().activeLayout == 0u; })
        .then(note(sheet))
        .then(click(kSecond))
        .then(isShown(sheet, "after another tab"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(PickPointsTest, EscDuringADragLetsTheMouseGo) {
    Script script;
    script.then(open())
        .then(start(L"ZOOM WINDOW"))
        .then(press(kFirst))
        .waitUntil("the view has the mouse", [this](const View&) { return GetCapture() == shown().m_hWnd; })
        .press(VK_ESCAPE)
        .waitUntil("the mouse is let go", [](const View&) { return !GetCapture(); })
        .then(release(kSecond))
        .then(command(L"QUIT"));
    runWith(script);
}
