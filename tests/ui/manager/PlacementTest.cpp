// The manager and the dialogs that it opens come back where a person has put them.

#include "ManagerTest.h"

#include "persistence/DialogStore.h"

namespace {

using ui::Script;
using ui::View;

POINT cornerOf(const View& view) {
    return {view.rect().left, view.rect().top};
}

class ManagerPlacement : public ManagerTest {
  protected:
    void SetUp() override {
        ManagerTest::SetUp();
        open(house());
    }
    /// Notes the upper left corner of the window in front.
    static Script& note(Script& script, POINT& corner) {
        return script.look("where it stands", [&corner](const View& view) { corner = cornerOf(view); });
    }
    /// Waits for the window with that control, and expects it where one of its kind was left.
    static Script& expectAt(Script& script, int control, const POINT& corner) {
        script.waitForControl(control);
        return script.look("where it stands", [&corner](const View& view) {
            EXPECT_EQ(cornerOf(view).x, corner.x);
            EXPECT_EQ(cornerOf(view).y, corner.y);
        });
    }
    /// How far the manager is from the right edge of the screen.
    static LONG roomAtTheRight(const View& view) {
        RECT work = {};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
        return work.right - view.rect().right;
    }
    POINT left = {};
};

TEST_F(ManagerPlacement, IsKeptHoweverTheManagerIsClosed) {
    Script closed, cancelled, again;
    closed.waitForControl(IDC_LSTATE_RES_LIST).dragWindow(90, -60);
    note(closed, left).click(IDC_LSTATE_RES_CLOSE);
    ASSERT_TRUE(manage(closed));
    expectAt(cancelled, IDC_LSTATE_RES_LIST, left).dragWindow(-200, 110);
    note(cancelled, left).press(VK_ESCAPE);
    ASSERT_TRUE(manage(cancelled));
    EXPECT_TRUE(manage(expectAt(again, IDC_LSTATE_RES_LIST, left).press(VK_ESCAPE)));
}

TEST_F(ManagerPlacement, IsKeptAtTheEdgeWhereTheOpenPanelWouldHaveNoRoom) {
    LONG room = 0;
    lookAtOpening([&room](const View& view) { room = roomAtTheRight(view); });
    Script drag, again;
    drag.waitForControl(IDC_LSTATE_RES_LIST).dragWindow(room, 0);
    note(drag, left).click(IDC_LSTATE_RES_CLOSE);
    ASSERT_TRUE(manage(drag));
    expectAt(again, IDC_LSTATE_RES_LIST, left).look("at the edge", [](const View& view) {
        EXPECT_FALSE(view.isVisible(IDC_LSTATE_RES_PANEL));
        EXPECT_EQ(roomAtTheRight(view), 0);
    });
    EXPECT_TRUE(manage(again.click(IDC_LSTATE_RES_CLOSE)));
}

TEST_F(ManagerPlacement, KeepsNoWidthWithThePanelOpen) {
    RECT expanded = {};
    Script open, again;
    open.waitForControl(IDC_LSTATE_RES_LIST).dragWindow(-150, 40).click(IDC_LSTATE_RES_EXPAND);
    open.look("with its panel", [&expanded](const View& view) { expanded = view.rect(); });
    ASSERT_TRUE(manage(open.click(IDC_LSTATE_RES_CLOSE)));
    const framework::DialogStore placement(managerName, L"Placement");
    EXPECT_TRUE(placement.number(L"Left"));
    EXPECT_FALSE(placement.number(L"Width"));
    again.waitForControl(IDC_LSTATE_RES_LIST).look("with its panel again", [&expanded](const View& view) {
        const RECT now = view.rect();
        EXPECT_TRUE(EqualRect(&now, &expanded));
    });
    EXPECT_TRUE(manage(again.click(IDC_LSTATE_RES_CLOSE)));
}

TEST_F(ManagerPlacement, OfTheNewStateDialogIsKeptThoughItIsCancelled) {
    Script script;
    script.click(IDC_LSTATE_RES_NEW).waitForControl(IDC_LSTATE_SAVE_NAME).dragWindow(130, 85);
    note(script, left).press(VK_ESCAPE).click(IDC_LSTATE_RES_NEW);
    expectAt(script, IDC_LSTATE_SAVE_NAME, left).press(VK_ESCAPE).click(IDC_LSTATE_RES_CLOSE);
    EXPECT_TRUE(manage(script));
}

TEST_F(ManagerPlacement, OfADeleteConfirmationIsThatOfTheNextOne) {
    Script script;
    script.clickCell(IDC_LSTATE_RES_LIST, 0, 0).clickCell(IDC_LSTATE_RES_LIST, 2, 0, ui::holdShift);
    script.click(IDC_LSTATE_RES_DELETE).waitForControl(IDC_LSTATE_KEEP_THIS).dragWindow(-120, 95);
    HWND first = nullptr;
    note(script, left).look("the first one", [&first](const View& view) { first = view.window(); });
    script.click(IDC_LSTATE_KEEP_THIS).waitUntil("the next one", [&first](const View& view) {
        return view.window() != first;
    });
    expectAt(script, IDC_LSTATE_KEEP_THIS, left).press(VK_ESCAPE).click(IDC_LSTATE_RES_CLOSE);
    EXPECT_TRUE(manage(script));
}

} // namespace
