// The lineweight dialog, as a person answers it.

#include "PickerFixture.h"

#include "KelEditor.h"
#include "OrvUiPickers.h"
#include "instruments/HostCalls.h"
#include "pickers/PickerIds.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr int kUntouched = 777;

class LineWeightPicker : public PickerFixture {
  protected:
    int chosen = kUntouched;
    bool answered = false;

    void SetUp() override {
        zdr::Drawing drawing = ui::TestDrawing().drawing();
        drawing.defaultLineWeight = 100;
        open(drawing);
    }
    void pick(const ui::Script& script, int current = 25, bool byReference = false) {
        answer(script, [&] { answered = keledLineWeightDialog(current, byReference, chosen); });
    }
};

/// The longest run of dark pixels down a column in the middle of a row's bar.
int barHeight(const ui::View& view, int row) {
    const auto cell = view.cellRect(IDC_PICKER_LIST, row, 1);
    if (!cell)
        return -1;
    const HDC screen = GetDC(nullptr);
    int height = 0;
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    for (LONG y = cell->top; y < cell->bottom; ++y)
        height += GetPixel(screen, (cell->left + cell->right) / 2, y) == ink;
    ReleaseDC(nullptr, screen);
    return height;
}

TEST_F(LineWeightPicker, offersTheDefaultAndTheWidthsAndMarksTheCurrentOne) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the rows",
              [](const ui::View& view) {
                  EXPECT_EQ(view.rowCount(IDC_PICKER_LIST), 25);
                  EXPECT_EQ(view.cell(IDC_PICKER_LIST, 0, 0), L"Default");
                  EXPECT_EQ(view.cell(IDC_PICKER_LIST, 24, 0), L"2.11 mm");
                  const int row = view.rowOf(IDC_PICKER_LIST, L"0.53 mm");
                  EXPECT_THAT(view.selectedRows(IDC_PICKER_LIST), ElementsAre(row));
                  EXPECT_TRUE(view.isRowInView(IDC_PICKER_LIST, row));
                  EXPECT_EQ(view.focusedControl(), IDC_PICKER_LIST);
              })
        .press(VK_ESCAPE);
    pick(script, 53);
}

TEST_F(LineWeightPicker, referencesAreOfferedWhereAskedFor) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the rows",
              [](const ui::View& view) {
                  EXPECT_EQ(view.rowCount(IDC_PICKER_LIST), 27);
                  EXPECT_EQ(view.cell(IDC_PICKER_LIST, 0, 0), L"ByLayer");
                  EXPECT_EQ(view.cell(IDC_PICKER_LIST, 1, 0), L"ByBlock");
                  EXPECT_THAT(view.selectedRows(IDC_PICKER_LIST), ElementsAre(1));
              })
        .press(VK_UP)
        .press(VK_RETURN);
    pick(script, -2, true);
    EXPECT_TRUE(answered);
    EXPECT_EQ(chosen, -1);
}

TEST_F(LineWeightPicker, arrowsAndEnterChoose) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_DOWN).press(VK_RETURN), 25);
    EXPECT_TRUE(answered);
    EXPECT_EQ(chosen, 30);
    EXPECT_THAT(tracedCalls("keledLineWeightDialog"),
                ElementsAre("keledLineWeightDialog(25, false) = true, chosen=30"));
}

TEST_F(LineWeightPicker, aClickAndOkChoose) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).clickCellOf(IDC_PICKER_LIST, L"0.05 mm").click(IDOK), -3);
    EXPECT_TRUE(answered);
    EXPECT_EQ(chosen, 5);
}

TEST_F(LineWeightPicker, aDoubleClickChooses) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).doubleClickCell(IDC_PICKER_LIST, 0, 0), 0);
    EXPECT_TRUE(answered);
    EXPECT_EQ(chosen, -3);
}

TEST_F(LineWeightPicker, cancellingLeavesTheAnswerAlone) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_DOWN).press(VK_ESCAPE));
    EXPECT_FALSE(answered);
    EXPECT_EQ(chosen, kUntouched);
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_DOWN).click(IDCANCEL));
    EXPECT_FALSE(answered);
    EXPECT_EQ(chosen, kUntouched);
}

TEST_F(LineWeightPicker, withNothingSelectedThereIsNothingToConfirm) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("no row is selected",
              [](const ui::View& view) {
                  EXPECT_THAT(view.selectedRows(IDC_PICKER_LIST), IsEmpty());
                  EXPECT_FALSE(view.isEnabled(IDOK));
              })
        .press(VK_RETURN)
        .press(VK_DOWN)
        .look("a row is selected",
              [](const ui::View& view) {
                  EXPECT_THAT(view.selectedRows(IDC_PICKER_LIST), SizeIs(1));
                  EXPECT_TRUE(view.isEnabled(IDOK));
              })
        .press(VK_ESCAPE);
    pick(script, 12);
}

TEST_F(LineWeightPicker, theBarsAreAsThickAsTheLines) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .waitUntil("the bars are drawn", [](const ui::View& view) { return barHeight(view, 1) == 1; })
        .look("bars",
              [](const ui::View& view) {
                  EXPECT_EQ(barHeight(view, 0), 4) << "the default is 1.00 mm here";
                  EXPECT_EQ(barHeight(view, 2), 1) << "0.05 mm";
              })
        .press(VK_END)
        .press(VK_UP)
        .waitUntil("the thickest bar", [](const ui::View& view) { return barHeight(view, 24) == 8; })
        .press(VK_ESCAPE);
    pick(script, 50);
}

TEST_F(LineWeightPicker, whereTheDefaultCannotBeReadItHasNoBar) {
    instruments::failCall("keledGetVar", 1);
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .waitUntil("the bars are drawn", [](const ui::View& view) { return barHeight(view, 1) == 1; })
        .look("no bar", [](const ui::View& view) { EXPECT_EQ(barHeight(view, 0), 0); })
        .press(VK_ESCAPE);
    pick(script, 50);
}

TEST_F(LineWeightPicker, itsListIsReachedByItsMnemonic) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .press(VK_TAB)
        .waitUntil("OK has the focus", [](const ui::View& view) { return view.focusedControl() == IDOK; })
        .pressAlt(L'l')
        .waitUntil("the list has it", [](const ui::View& view) { return view.focusedControl() == IDC_PICKER_LIST; })
        .press(VK_ESCAPE);
    pick(script);
}

TEST_F(LineWeightPicker, itsListGrowsWithItsBorder) {
    pick(growByItsCorner(70, 50));
}

TEST_F(LineWeightPicker, itsSizeAndPlaceAreKept) {
    const auto size = [](const ui::View& view) {
        const RECT rect = view.rect();
        return POINT{rect.right - rect.left, rect.bottom - rect.top};
    };
    POINT before = {}, after = {};
    RECT listBefore = {}, listAfter = {};
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("make it larger",
              [&](const ui::View& view) {
                  before = size(view);
                  listBefore = view.rect(IDC_PICKER_LIST);
                  SetWindowPos(view.window(), nullptr, 60, 40, before.x + 100, before.y + 80, SWP_NOZORDER);
              })
        .press(VK_ESCAPE);
    pick(script);
    ui::Script again;
    again.waitForControl(IDC_PICKER_LIST)
        .look("it is larger",
              [&](const ui::View& view) {
                  after = size(view);
                  listAfter = view.rect(IDC_PICKER_LIST);
                  EXPECT_EQ(view.rect().left, 60);
                  EXPECT_EQ(view.rect().top, 40);
              })
        .press(VK_ESCAPE);
    pick(again);
    EXPECT_EQ(after.x, before.x + 100);
    EXPECT_EQ(after.y, before.y + 80);
    EXPECT_EQ(listAfter.right - listAfter.left, listBefore.right - listBefore.left + 100);
    EXPECT_EQ(listAfter.bottom - listAfter.top, listBefore.bottom - listBefore.top + 80);
}

TEST_F(LineWeightPicker, setsItselfUpInTheOrderOfAllDialogs) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_ESCAPE));
    EXPECT_THAT(setUpCalls(), isSetUpOfList("Workbench:SelectLineweight", 4));
}

TEST_F(LineWeightPicker, typingTheBeginningOfATextFindsIt) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).type(L"0.3").press(VK_RETURN), 211);
    EXPECT_EQ(chosen, 30);
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).type(L"d").press(VK_RETURN), 211);
    EXPECT_EQ(chosen, -3) << "the default";
}

TEST_F(LineWeightPicker, theDialogThatOpensItCannotBeUsedMeanwhile) {
    TestDialog parent{IDD_FIXED};
    parent.onCommand = [&](UINT id) {
        if (id == IDC_TEST_BUTTON)
            answered = keledLineWeightDialog(25, false, chosen);
    };
    ui::Script script;
    script.click(IDC_TEST_BUTTON)
        .waitForControl(IDC_PICKER_LIST)
        .look("the parent",
              [&](const ui::View& view) {
                  EXPECT_FALSE(IsWindowEnabled(parent.GetSafeHwnd()));
                  EXPECT_EQ(GetWindow(view.window(), GW_OWNER), parent.GetSafeHwnd());
              })
        .press(VK_RETURN)
        .waitForControl(IDC_TEST_BUTTON)
        .look("the parent", [&](const ui::View&) { EXPECT_TRUE(IsWindowEnabled(parent.GetSafeHwnd())); });
    parent.run(script);
    EXPECT_TRUE(answered);
    EXPECT_EQ(chosen, 25);
}

TEST_F(LineWeightPicker, eachFailingCallIsSurvived) {
    const int calls = sweepFailures(
        [this] {
            chosen = kUntouched;
            answered = keledLineWeightDialog(25, true, chosen);
        },
        [this] { EXPECT_EQ(chosen, answered ? 25 : kUntouched); });
    EXPECT_EQ(calls, 5) << "itself, three words, and the default";
}

} // namespace
