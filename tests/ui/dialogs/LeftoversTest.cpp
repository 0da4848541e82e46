// The small dialogs opened again and again leave nothing of the system's behind.

#include "SaveDialogTest.h"

#include "GuiObjects.h"
#include "HandleCount.h"

namespace {

using ui::Script;
using ui::View;

struct Held {
    int windows = countWindows();
    std::optional<int> drawing = countGdiObjects();
    std::optional<int> menusIconsAndCursors = countUserObjects();
    std::optional<unsigned> handles = countHandles();
};

class Leftovers : public SaveDialogTest {
  protected:
    /// Runs the action so often that one thing kept by each run is seen, after some runs in which the system makes what
    /// it keeps for good.
    static void expectNothingKept(const std::function<void()>& run) {
        for (int i = 0; i < 3; ++i)
            run();
        const Held before;
        constexpr int kRuns = 10;
        for (int i = 0; i < kRuns; ++i)
            run();
        const Held after;
        ASSERT_TRUE(before.drawing && before.menusIconsAndCursors && before.handles);
        EXPECT_EQ(after.windows, before.windows);
        EXPECT_LT(*after.drawing, *before.drawing + kRuns);
        EXPECT_LT(*after.menusIconsAndCursors, *before.menusIconsAndCursors + kRuns);
        EXPECT_LT(*after.handles, *before.handles + kRuns);
    }
};

TEST_F(Leftovers, NoneOfTheNewLayerStateDialogThatIsCancelledOrSaves) {
    open(house());
    expectNothingKept([] { save(Script().press(VK_ESCAPE)); });
    expectNothingKept([] { save(Script().then(pick(1)).press(VK_RETURN).click(1001)); });
}

TEST_F(Leftovers, NoneOfTheDeleteConfirmation) {
    open(house());
    expectNothingKept([this] {
        Script script;
        script.waitForControl(IDC_LSTATE_RES_LIST)
            .clickCell(IDC_LSTATE_RES_LIST, 0, 0)
            .press(VK_DOWN, ui::holdShift)
            .click(IDC_LSTATE_RES_DELETE)
            .click(IDC_LSTATE_KEEP_THIS)
            .click(IDC_LSTATE_KEEP_THIS)
            .waitForControl(IDC_LSTATE_RES_LIST)
            .press(VK_ESCAPE);
        ui::perform(std::move(script), [this] { runCommand(L"LAYERSTATE"); });
    });
}

} // namespace
