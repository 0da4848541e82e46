// The linetype dialog and the plot style dialog, as a person answers them.

#include "PickerFixture.h"

#include "OrvUiPickers.h"
#include "instruments/HostCalls.h"
#include "pickers/PickerIds.h"

#include <algorithm>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

zdr::Drawing sampleDrawing() {
    zdr::Drawing drawing = ui::TestDrawing().linetype(L"hidden").linetype(L"Dashed").drawing();
    for (zdr::Linetype& linetype : drawing.linetypes)
        if (drawing.names.text(linetype.name) == L"Dashed") {
            linetype.pattern = {6, -6};
            linetype.description = L"Long dashes";
        } else if (drawing.names.text(linetype.name) == L"hidden") {
            linetype.pattern = {3, -3};
        }
    for (const wchar_t* name : {L"screened", L"Fine"})
        drawing.plotStyles.push_back({drawing.names.intern(name), drawing.nextHandle++});
    return drawing;
}

/// The lengths in pixels of the dashes along the middle of a row's sample.
std::vector<int> dashesOf(const ui::View& view, int row) {
    std::vector<int> dashes;
    const auto cell = view.cellRect(IDC_PICKER_LIST, row, 1);
    if (!cell)
        return dashes;
    const HDC screen = GetDC(nullptr);
    const LONG middle = (cell->top + cell->bottom - 1) / 2;
    bool inked = false;
    for (LONG x = cell->left; x < cell->right; ++x) {
        const bool ink = GetPixel(screen, x, middle) == GetSysColor(COLOR_WINDOWTEXT);
        if (ink && !inked)
            dashes.push_back(0);
        if (ink)
            ++dashes.back();
        inked = ink;
    }
    ReleaseDC(nullptr, screen);
    return dashes;
}

class LinetypePicker : public PickerFixture {
  protected:
    wchar_t* name = nullptr;
    KelDbObjectId chosen;
    bool answered = false;

    void SetUp() override { open(sampleDrawing()); }
    void TearDown() override { kelutDelBuffer(name); }
    void pick(const ui::Script& script, const wchar_t* current = L"Continuous", bool byReference = false) {
        answer(script, [&] { answered = keledLinetypeDialog(linetypeId(current), byReference, name, chosen); });
    }
};

TEST_F(LinetypePicker, offersTheLinetypesInOrderAndMarksTheCurrentOne) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the rows",
              [](const ui::View& view) {
                  EXPECT_THAT(view.column(IDC_PICKER_LIST, 0), ElementsAre(L"Continuous", L"Dashed", L"hidden"));
                  EXPECT_THAT(view.column(IDC_PICKER_LIST, 2), ElementsAre(L"", L"Long dashes", L""));
                  EXPECT_THAT(view.selectedRows(IDC_PICKER_LIST), ElementsAre(1));
                  EXPECT_EQ(view.focusedControl(), IDC_PICKER_LIST);
              })
        .press(VK_ESCAPE);
    pick(script, L"Dashed");
}

TEST_F(LinetypePicker, anAnswerIsANameOfTheCallersAndAnId) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_DOWN).press(VK_RETURN));
    EXPECT_TRUE(answered);
    EXPECT_STREQ(name, L"Dashed");
    EXPECT_EQ(chosen, linetypeId(L"Dashed"));
    EXPECT_THAT(instruments::ledger(), ElementsAre(HasSubstr("name of a picked linetype \"Dashed\"")));
    kelutDelBuffer(name);
    EXPECT_EQ(name, nullptr);
    EXPECT_THAT(instruments::ledger(), SizeIs(0));
}

TEST_F(LinetypePicker, cancellingHandsOutNothing) {
    chosen = linetypeId(L"hidden");
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_DOWN).press(VK_ESCAPE));
    EXPECT_FALSE(answered);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(chosen, linetypeId(L"hidden"));
    EXPECT_THAT(instruments::ledger(), SizeIs(0));
}

TEST_F(LinetypePicker, typingTheBeginningOfANameFindsIt) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).type(L"h").press(VK_RETURN));
    EXPECT_STREQ(name, L"hidden");
}

TEST_F(LinetypePicker, itsListGrowsWithItsBorder) {
    pick(growByItsCorner(70, 50));
}

TEST_F(LinetypePicker, referencesAreOfferedWhereAskedForAndHaveNoId) {
    chosen = linetypeId(L"hidden");
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the rows",
              [](const ui::View& view) {
                  EXPECT_THAT(view.column(IDC_PICKER_LIST, 0),
                              ElementsAre(L"ByLayer", L"ByBlock", L"Continuous", L"Dashed", L"hidden"));
                  EXPECT_THAT(dashesOf(view, 0), SizeIs(0));
              })
        .doubleClickCell(IDC_PICKER_LIST, 0, 0);
    pick(script, L"Continuous", true);
    EXPECT_TRUE(answered);
    EXPECT_STREQ(name, L"ByLayer");
    EXPECT_TRUE(chosen.isNull());
}

TEST_F(LinetypePicker, samplesHaveTheDashesOfTheLinetypes) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .waitUntil("the samples are drawn", [](const ui::View& view) { return !dashesOf(view, 2).empty(); })
        .look("samples",
              [](const ui::View& view) {
                  const double pixel = 96 / 25.4;
                  const std::vector<int> dashed = dashesOf(view, 1), hidden = dashesOf(view, 2);
                  ASSERT_GT(dashed.size(), 2u);
                  EXPECT_NEAR(dashed[0], 6 * pixel, 1);
                  EXPECT_NEAR(dashed[1], 6 * pixel, 1);
                  EXPECT_GT(hidden.size(), dashed.size());
                  EXPECT_NEAR(hidden[1], 3 * pixel, 1);
              })
        .press(VK_DOWN)
        .waitUntil("the continuous one is drawn", [](const ui::View& view) { return dashesOf(view, 0).size() == 1; })
        .press(VK_ESCAPE);
    pick(script);
}

TEST_F(LinetypePicker, aTableThatCannotBeReadIsTold) {
    instruments::failCall("getLinetypeTable", 1);
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the note",
              [](const ui::View& view) {
                  EXPECT_EQ(view.text(IDC_PICKER_NOTE), L"The linetypes of the drawing can't be read.");
                  EXPECT_EQ(view.rowCount(IDC_PICKER_LIST), 0);
                  EXPECT_FALSE(view.isEnabled(IDOK));
              })
        .press(VK_RETURN)
        .press(VK_ESCAPE);
    pick(script);
    EXPECT_TRUE(instruments::faultStruck());
    EXPECT_FALSE(answered);
}

TEST_F(LinetypePicker, aLinetypeThatCannotBeReadIsLeftOutAndTold) {
    instruments::failCall("iterator.getRecord", 2);
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the rest",
              [](const ui::View& view) {
                  EXPECT_THAT(view.column(IDC_PICKER_LIST, 0), SizeIs(2));
                  EXPECT_THAT(view.text(IDC_PICKER_NOTE), HasSubstr(L"Some linetypes"));
              })
        .press(VK_ESCAPE);
    pick(script);
    EXPECT_TRUE(instruments::faultStruck());
}

TEST_F(LinetypePicker, eachFailingCallIsSurvived) {
    const int calls = sweepFailures(
        [this] {
            kelutDelBuffer(name);
            chosen = {};
            answered = keledLinetypeDialog(linetypeId(L"Dashed"), true, name, chosen);
        },
        [this] {
            EXPECT_EQ(answered, name != nullptr);
            EXPECT_EQ(chosen, answered ? linetypeId(L"Dashed") : KelDbObjectId());
            kelutDelBuffer(name);
        });
    EXPECT_GE(calls, 10);
}

TEST_F(LinetypePicker, setsItselfUpInTheOrderOfAllDialogs) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_ESCAPE));
    EXPECT_THAT(setUpCalls(), isSetUpOfList("Workbench:SelectLinetype", 4));
}

class PlotStylePicker : public PickerFixture {
  protected:
    wchar_t* chosen = nullptr;
    bool answered = false;

    void SetUp() override { open(sampleDrawing()); }
    void TearDown() override { kelutDelBuffer(chosen); }
    void pick(const ui::Script& script, const wchar_t* current = L"normal", bool byReference = false) {
        answer(script, [&] { answered = keledPlotstyleDialog(current, byReference, chosen); });
    }
};

TEST_F(PlotStylePicker, offersTheNamesInOrderAndMarksTheCurrentOne) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the rows",
              [](const ui::View& view) {
                  EXPECT_THAT(view.column(IDC_PICKER_LIST, 0), ElementsAre(L"Fine", L"Normal", L"screened"));
                  EXPECT_THAT(view.selectedRows(IDC_PICKER_LIST), ElementsAre(1));
              })
        .press(VK_ESCAPE);
    pick(script);
}

TEST_F(PlotStylePicker, anAnswerIsANameOfTheCallers) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_UP).press(VK_RETURN));
    EXPECT_TRUE(answered);
    EXPECT_STREQ(chosen, L"Fine");
    EXPECT_THAT(instruments::ledger(), ElementsAre(HasSubstr("name of a picked plot style \"Fine\"")));
    kelutDelBuffer(chosen);
    EXPECT_THAT(instruments::ledger(), SizeIs(0));
}

TEST_F(PlotStylePicker, cancellingHandsOutNothing) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_UP).press(VK_ESCAPE));
    EXPECT_FALSE(answered);
    EXPECT_EQ(chosen, nullptr);
}

TEST_F(PlotStylePicker, setsItselfUpInTheOrderOfAllDialogs) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_ESCAPE));
    EXPECT_THAT(setUpCalls(), isSetUpOfList("Workbench:SelectPlotStyle", 4));
}

TEST_F(PlotStylePicker, typingTheBeginningOfANameFindsIt) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).type(L"sc").press(VK_RETURN));
    EXPECT_STREQ(chosen, L"screened");
}

TEST_F(PlotStylePicker, itsListGrowsWithItsBorder) {
    pick(growByItsCorner(70, 50));
}

TEST_F(PlotStylePicker, withoutACurrentOneNothingIsMarked) {
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("nothing is marked", [](const ui::View& view) { EXPECT_FALSE(view.isEnabled(IDOK)); })
        .press(VK_ESCAPE);
    pick(script, nullptr);
}

TEST_F(PlotStylePicker, referencesComeFirstWhereAskedFor) {
    pick(ui::Script().waitForControl(IDC_PICKER_LIST).press(VK_HOME).press(VK_RETURN), L"Normal", true);
    EXPECT_STREQ(chosen, L"ByLayer");
}

TEST_F(PlotStylePicker, aDrawingWhoseStylesDependOnColorHasNone) {
    zdr::Drawing drawing = sampleDrawing();
    drawing.colorDependentPlotStyles = true;
    open(drawing);
    ui::Script script;
    script.waitForControl(IDC_PICKER_LIST)
        .look("the note",
              [](const ui::View& view) {
                  EXPECT_EQ(view.rowCount(IDC_PICKER_LIST), 0);
                  EXPECT_THAT(view.text(IDC_PICKER_NOTE), HasSubstr(L"depend on color"));
              })
        .press(VK_ESCAPE);
    pick(script);
    EXPECT_FALSE(answered);
}

TEST_F(PlotStylePicker, eachFailingCallIsSurvived) {
    const int calls = sweepFailures(
        [this] {
            kelutDelBuffer(chosen);
            answered = keledPlotstyleDialog(L"Normal", true, chosen);
        },
        [this] {
            EXPECT_EQ(answered, chosen != nullptr);
            kelutDelBuffer(chosen);
        });
    EXPECT_GE(calls, 5);
}

/// Without an open drawing both dialogs say so.
class NoDrawingPicker : public PickerFixture {
  protected:
    static ui::Script expectNote() {
        ui::Script script;
        script.waitForControl(IDC_PICKER_LIST)
            .look("the note",
                  [](const ui::View& view) { EXPECT_EQ(view.text(IDC_PICKER_NOTE), L"No drawing is open."); })
            .press(VK_ESCAPE);
        return script;
    }
};

TEST_F(NoDrawingPicker, isToldByTheLinetypesAndThePlotStyles) {
    wchar_t* name = nullptr;
    KelDbObjectId chosen;
    answer(expectNote(), [&] { EXPECT_FALSE(keledLinetypeDialog({}, false, name, chosen)); });
    answer(expectNote(), [&] { EXPECT_FALSE(keledPlotstyleDialog(nullptr, false, name)); });
}

} // namespace
