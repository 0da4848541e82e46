// The colour dialog, as a person answers it.

#include "Accessibility.h"
#include "PickerFixture.h"

#include "OrvUiPickers.h"
#include "instruments/HostCalls.h"
#include "pickers/PickerIds.h"

using testing::ElementsAre;

namespace {

constexpr int kAll = 7;

KelCmColor indexed(unsigned short index) {
    KelCmColor color;
    color.setColorIndex(index);
    return color;
}

KelCmColor trueColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    KelCmColor color;
    color.setRGB(red, green, blue);
    return color;
}

/// The middle of a cell of the palette on the screen: the field has 24 columns and 11 rows.
POINT cellOnScreen(const ui::View& view, int column, int row) {
    RECT field = {};
    GetClientRect(view.control(IDC_COLOR_PALETTE), &field);
    POINT point = {(2 * column + 1) * field.right / 48, (2 * row + 1) * field.bottom / 22};
    ClientToScreen(view.control(IDC_COLOR_PALETTE), &point);
    return point;
}

ui::Script clickCell(int column, int row, int times = 1) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .step("click a cell of the palette", [=](const ui::View& view) -> ui::Obstacle {
            if (!ui::pointerRestsAt(cellOnScreen(view, column, row)))
                return "the pointer hasn't arrived";
            ui::click(times);
            return std::nullopt;
        });
    return script;
}

class ColorPicker : public PickerFixture {
  protected:
    const KelCmColor untouched = trueColor(9, 9, 9);
    KelCmColor color = untouched;
    int answered = -1;

    void pick(const ui::Script& script, const KelCmColor& current, bool byReference = false, int offered = kAll) {
        answer(script, [&] { answered = keledSetColorDialogTrueColor(color, byReference, current, offered); });
    }
};

TEST_F(ColorPicker, setsItselfUpInTheOrderOfAllDialogs) {
    pick(ui::Script().waitForControl(IDC_COLOR_PALETTE).press(VK_ESCAPE), indexed(5));
    EXPECT_THAT(setUpCalls(),
                ElementsAre("SetDialogName(\"Workbench:SelectColor\")", "OnInitDialog()",
                            "SetContextHelpPrefix(\"LAST\")",
                            "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                            "SetUseTips(2)", "SetPersistency(1)"));
}

TEST_F(ColorPicker, beginsOnThePaletteWithTheColorMarked) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .look("what it shows",
              [](const ui::View& view) {
                  EXPECT_EQ(view.text(IDC_COLOR_PALETTE), L"Color 30 (255,128,0)");
                  EXPECT_EQ(view.text(IDC_COLOR_CURRENT_TEXT), L"Color 30 (255,128,0)");
                  EXPECT_EQ(view.text(IDC_COLOR_NEW_TEXT), L"Color 30 (255,128,0)");
                  EXPECT_EQ(view.focusedControl(), IDC_COLOR_PALETTE);
                  EXPECT_TRUE(view.isEnabled(IDOK));
              })
        .press(VK_RETURN);
    pick(script, indexed(30));
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, indexed(30));
}

TEST_F(ColorPicker, aNamedColorIsShownByItsNameAndKeptWhenNothingElseIsChosen) {
    KelCmColor named = trueColor(0, 60, 140);
    named.setNames(L"Signal Blue", L"House Paints");
    ui::Script script;
    script.waitForControl(IDC_COLOR_RED)
        .look("what it shows",
              [](const ui::View& view) {
                  EXPECT_EQ(view.text(IDC_COLOR_CURRENT_TEXT), L"Signal Blue (House Paints)");
                  EXPECT_EQ(view.text(IDC_COLOR_NEW_TEXT), L"Signal Blue (House Paints)");
                  EXPECT_EQ(view.text(IDC_COLOR_BLUE), L"140");
              })
        .press(VK_RETURN);
    pick(script, named);
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, named);
}

TEST_F(ColorPicker, aClickAndOkChoose) {
    pick(clickCell(4, 0).click(IDOK), indexed(1));
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, indexed(5));
    EXPECT_EQ(tracedCalls("keledSetColorDialogTrueColor").size(), 1u);
}

TEST_F(ColorPicker, aDoubleClickChooses) {
    pick(clickCell(0, 1, 2), indexed(1));
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, indexed(10));
}

TEST_F(ColorPicker, aClickIntoTheGapChoosesNothing) {
    pick(clickCell(12, 0).click(IDOK), indexed(3));
    EXPECT_EQ(color, indexed(3));
}

TEST_F(ColorPicker, arrowsWalkThePalette) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .press(VK_RIGHT)
        .press(VK_DOWN)
        .press(VK_DOWN)
        .look("what it says",
              [](const ui::View& view) {
                  EXPECT_EQ(view.text(IDC_COLOR_PALETTE), view.text(IDC_COLOR_NEW_TEXT));
                  EXPECT_EQ(view.text(IDC_COLOR_CURRENT_TEXT), L"Red (255,0,0)");
              })
        .press(VK_RETURN);
    pick(script, indexed(1));
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, indexed(22));
}

TEST_F(ColorPicker, homeAndEndAndThePageKeysGoFar) {
    const auto keys = [](WORD first, WORD second) {
        return ui::Script().waitForControl(IDC_COLOR_PALETTE).press(first).press(second).press(VK_RETURN);
    };
    pick(keys(VK_NEXT, VK_HOME), indexed(1));
    EXPECT_EQ(color, indexed(19));
    pick(keys(VK_PRIOR, VK_END), indexed(100));
    EXPECT_EQ(color, indexed(255));
}

TEST_F(ColorPicker, cancellingLeavesTheColorAlone) {
    pick(clickCell(4, 0).press(VK_ESCAPE), indexed(1));
    EXPECT_EQ(answered, 0);
    EXPECT_EQ(color, untouched);
    pick(clickCell(4, 0).click(IDCANCEL), indexed(1));
    EXPECT_EQ(answered, 0);
    EXPECT_EQ(color, untouched);
}

TEST_F(ColorPicker, referencesAreOfferedOnlyWhereAskedFor) {
    ui::Script without;
    without.waitForControl(IDC_COLOR_PALETTE)
        .look("no references",
              [](const ui::View& view) {
                  EXPECT_FALSE(view.isVisible(IDC_COLOR_BYLAYER));
                  EXPECT_FALSE(view.isVisible(IDC_COLOR_BYBLOCK));
                  EXPECT_FALSE(view.isEnabled(IDOK)) << "by layer can't be chosen here";
              })
        .press(VK_RETURN)
        .press(VK_ESCAPE);
    pick(without, indexed(256));
    EXPECT_EQ(answered, 0);
    pick(ui::Script().waitForControl(IDC_COLOR_BYLAYER).click(IDC_COLOR_BYLAYER).click(IDOK), indexed(1), true);
    EXPECT_EQ(color, indexed(256));
    pick(ui::Script().waitForControl(IDC_COLOR_BYBLOCK).pressMnemonicOf(IDC_COLOR_BYBLOCK).click(IDOK), indexed(1),
         true);
    EXPECT_EQ(color, indexed(0));
}

TEST_F(ColorPicker, aTrueColorIsTypedIntoTheFields) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_RED)
        .look("what it begins with",
              [](const ui::View& view) {
                  EXPECT_EQ(view.text(IDC_COLOR_RED), L"1");
                  EXPECT_EQ(view.text(IDC_COLOR_GREEN), L"2");
                  EXPECT_EQ(view.text(IDC_COLOR_BLUE), L"3");
                  EXPECT_EQ(view.focusedControl(), IDC_COLOR_RED);
              })
        .pressAlt(L'g')
        .type(L"250")
        .waitUntil("it is shown",
                   [](const ui::View& view) { return view.text(IDC_COLOR_NEW_TEXT) == L"True color 1,250,3"; })
        .press(VK_RETURN);
    pick(script, trueColor(1, 2, 3));
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, trueColor(1, 250, 3));
}

TEST_F(ColorPicker, theArrowsOfAFieldCount) {
    pick(ui::Script().waitForControl(IDC_COLOR_RED).press(VK_UP).press(VK_UP).press(VK_RETURN), trueColor(1, 2, 3));
    EXPECT_EQ(color, trueColor(3, 2, 3));
}

TEST_F(ColorPicker, aFieldThatIsNoChannelCantBeConfirmed) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_RED)
        .pressAlt(L'b')
        .type(L"256")
        .waitUntil("OK is off", [](const ui::View& view) { return !view.isEnabled(IDOK); })
        .press(VK_RETURN)
        .press(VK_BACK)
        .waitUntil("OK is on", [](const ui::View& view) { return view.isEnabled(IDOK); })
        .press(VK_RETURN);
    pick(script, trueColor(1, 2, 3));
    EXPECT_EQ(color, trueColor(1, 2, 25));
}

TEST_F(ColorPicker, lookingAtTheOtherTabChangesNothing) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .press(VK_TAB, ui::holdControl)
        .waitForControl(IDC_COLOR_RED)
        .look("the fields", [](const ui::View& view) { EXPECT_EQ(view.text(IDC_COLOR_RED), L"255"); })
        .press(VK_RETURN);
    pick(script, indexed(1));
    EXPECT_EQ(color, indexed(1));
    ui::Script back;
    back.waitForControl(IDC_COLOR_RED)
        .press(VK_PRIOR, ui::holdControl)
        .waitForControl(IDC_COLOR_PALETTE)
        .look("nothing is marked",
              [](const ui::View& view) { EXPECT_EQ(view.text(IDC_COLOR_PALETTE), L"No palette color"); })
        .press(VK_RETURN);
    pick(back, trueColor(1, 2, 3));
    EXPECT_EQ(color, trueColor(1, 2, 3));
}

TEST_F(ColorPicker, aHiddenPageDoesNotTakeKeys) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .pressAlt(L'r')
        .look("the palette keeps the focus",
              [](const ui::View& view) { EXPECT_EQ(view.focusedControl(), IDC_COLOR_PALETTE); })
        .press(VK_ESCAPE);
    pick(script, indexed(1));
}

TEST_F(ColorPicker, theSystemsDialogChoosesToo) {
    constexpr int kSystemsRed = 706; // COLOR_RED of the system's template
    ui::Script script;
    script.waitForControl(IDC_COLOR_MORE)
        .pressMnemonicOf(IDC_COLOR_MORE)
        .waitForControl(kSystemsRed)
        .doubleClick(kSystemsRed)
        .type(L"200")
        .press(VK_RETURN)
        .waitForControl(IDC_COLOR_MORE)
        .look("it is in the fields", [](const ui::View& view) { EXPECT_EQ(view.text(IDC_COLOR_RED), L"200"); })
        .click(IDOK);
    pick(script, trueColor(10, 20, 30));
    EXPECT_EQ(answered, kColorChosen);
    EXPECT_EQ(color, trueColor(200, 20, 30));
}

TEST_F(ColorPicker, onlyTheTabsAskedForAreThere) {
    const auto titles = [](const ui::View& view) {
        return static_cast<int>(SendMessageW(view.control(IDC_COLOR_TABS), TCM_GETITEMCOUNT, 0, 0));
    };
    ui::Script palette;
    palette.waitForControl(IDC_COLOR_PALETTE)
        .look("one tab", [&](const ui::View& view) { EXPECT_EQ(titles(view), 1); })
        .press(VK_TAB, ui::holdControl)
        .look("the same", [](const ui::View& view) { EXPECT_TRUE(view.isVisible(IDC_COLOR_PALETTE)); })
        .press(VK_ESCAPE);
    pick(palette, trueColor(1, 2, 3), false, kOrvUiColorPalette);
    ui::Script fields;
    fields.waitForControl(IDC_COLOR_RED)
        .look("one tab",
              [&](const ui::View& view) {
                  EXPECT_EQ(titles(view), 1);
                  EXPECT_FALSE(view.isVisible(IDC_COLOR_MORE));
              })
        .press(VK_ESCAPE);
    pick(fields, indexed(1), false, kOrvUiColorTrueColor);
}

TEST_F(ColorPicker, tabReachesEveryControl) {
    const auto focused = std::make_shared<std::vector<int>>();
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE);
    for (int i = 0; i < 6; ++i)
        script.look("note the focus", [focused](const ui::View& view) { focused->push_back(view.focusedControl()); })
            .press(VK_TAB);
    script.press(VK_ESCAPE);
    pick(script, indexed(1), true);
    EXPECT_THAT(*focused,
                ElementsAre(IDC_COLOR_PALETTE, IDC_COLOR_BYLAYER, IDC_COLOR_BYBLOCK, IDOK, IDCANCEL, IDC_COLOR_TABS));
}

TEST_F(ColorPicker, arrowsOnTheTabsSwitchThePageAndTabEntersIt) {
    const auto focusOn = [](int control) {
        return [control](const ui::View& view) { return view.focusedControl() == control; };
    };
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .press(VK_TAB, ui::holdShift)
        .waitUntil("the tabs have the focus", focusOn(IDC_COLOR_TABS))
        .press(VK_RIGHT)
        .waitUntil("the other page", [](const ui::View& view) { return view.isVisible(IDC_COLOR_RED); })
        .look("the tabs still have the focus",
              [](const ui::View& view) { EXPECT_EQ(view.focusedControl(), IDC_COLOR_TABS); })
        .press(VK_LEFT)
        .waitUntil("the palette", [](const ui::View& view) { return view.isVisible(IDC_COLOR_PALETTE); })
        .press(VK_TAB)
        .waitUntil("the palette has the focus", focusOn(IDC_COLOR_PALETTE))
        .press(VK_RIGHT)
        .press(VK_RETURN);
    pick(script, indexed(1));
    EXPECT_EQ(color, indexed(2));
}

TEST_F(ColorPicker, itsPaletteHasANameForScreenReaders) {
    std::wstring name;
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .press(VK_RIGHT)
        .look("its name", [&](const ui::View& view) { name = ui::toldAbout(view.control(IDC_COLOR_PALETTE)).name; })
        .press(VK_ESCAPE);
    pick(script, indexed(1));
    EXPECT_EQ(name, L"Yellow (255,255,0)");
}

TEST_F(ColorPicker, itsPlaceIsKept) {
    ui::Script script;
    script.waitForControl(IDC_COLOR_PALETTE)
        .look(
            "move it",
            [](const ui::View& view) { SetWindowPos(view.window(), nullptr, 33, 44, 0, 0, SWP_NOSIZE | SWP_NOZORDER); })
        .press(VK_ESCAPE);
    pick(script, indexed(1));
    ui::Script again;
    again.waitForControl(IDC_COLOR_PALETTE)
        .look("it stands there",
              [](const ui::View& view) {
                  EXPECT_EQ(view.rect().left, 33);
                  EXPECT_EQ(view.rect().top, 44);
              })
        .press(VK_ESCAPE);
    pick(again, indexed(1));
}

TEST_F(ColorPicker, eachFailingCallIsSurvived) {
    const int calls = sweepFailures(
        [this] {
            color = untouched;
            answered = keledSetColorDialogTrueColor(color, true, indexed(5), kAll);
        },
        [this] { EXPECT_EQ(color, answered == kColorChosen ? indexed(5) : untouched); });
    EXPECT_EQ(calls, 1) << "only itself";
}

} // namespace
