// Which controls are enabled: every combination of the number of selected rows, the viewport, dependent states, and the
// mask, in the real dialog.

#include "ManagerTest.h"

#include <algorithm>

namespace {

using testing::ElementsAreArray;
using ui::Script;
using ui::View;

enum class Mask { overridable, bare, unreadable };

// The rows that are clicked; the second one with Control held.
struct Selection {
    const char* what;
    std::vector<std::wstring> names;
    bool dependent;
    Mask mask;
};

struct Case {
    bool inViewport;
    Selection selection;
};

std::vector<int> sorted(std::vector<int> controls) {
    std::sort(controls.begin(), controls.end());
    return controls;
}

/// The controls that have to be enabled, group by group as the dialog's rules say.
std::vector<int> expectedControls(const Case& each) {
    const Selection& selection = each.selection;
    std::vector<int> expected{IDC_LSTATE_RES_NEW, IDC_LSTATE_RES_IMPORT};
    const auto add = [&expected](std::initializer_list<int> controls) { expected.insert(expected.end(), controls); };
    const std::size_t rows = selection.names.size();
    if (rows == 0)
        return sorted(expected);
    add({IDC_LSTATE_RES_LAYERNOTFOUND});
    if (!selection.dependent)
        add({IDC_LSTATE_RES_DELETE});
    if (rows > 1) {
        add({IDC_LSTATE_RES_OVERRIDES});
        return sorted(expected);
    }
    add({IDC_LSTATE_RES_RESTORE, IDC_LSTATE_RES_PANEL, IDC_LSTATE_RES_SELECTALL, IDC_LSTATE_RES_CLEARALL,
         IDC_LSTATE_RES_LOCKED, IDC_LSTATE_RES_PLOT, IDC_LSTATE_RES_NEWVP, IDC_LSTATE_RES_COLOR,
         IDC_LSTATE_RES_LINETYPE, IDC_LSTATE_RES_LINEWEIGHT, IDC_LSTATE_RES_PLOTSTYLE});
    if (!selection.dependent)
        add({IDC_LSTATE_RES_EXPORT, IDC_LSTATE_RES_RENAME, IDC_LSTATE_RES_EDIT, IDC_LSTATE_RES_UPDATE});
    if (each.inViewport)
        add({IDC_LSTATE_RES_VPFROZEN});
    else
        add({IDC_LSTATE_RES_ON, IDC_LSTATE_RES_FROZEN});
    if (selection.mask == Mask::unreadable || (each.inViewport && selection.mask == Mask::overridable))
        add({IDC_LSTATE_RES_OVERRIDES});
    return sorted(expected);
}

const std::vector<Selection>& selections() {
    static const std::vector<Selection> all = {
        {"nothing", {}, false, Mask::overridable},
        {"one state with overridable properties", {L"Ground floor"}, false, Mask::overridable},
        {"one state with one overridable property", {L"Lines"}, false, Mask::overridable},
        {"one state without overridable properties", {L"Bare"}, false, Mask::bare},
        {"one state whose mask can't be read", {L"Ground floor"}, false, Mask::unreadable},
        {"one dependent state with overridable properties", {L"site!Survey"}, true, Mask::overridable},
        {"one dependent state without overridable properties", {L"site!Trees"}, true, Mask::bare},
        {"one dependent state whose mask can't be read", {L"site!Survey"}, true, Mask::unreadable},
        {"two states", {L"Ground floor", L"Bare"}, false, Mask::overridable},
        {"two states whose masks can't be read", {L"Ground floor", L"Bare"}, false, Mask::unreadable},
        {"two states, the second dependent", {L"Ground floor", L"site!Survey"}, true, Mask::overridable},
        {"two states, the first in the list dependent", {L"site!Trees", L"site!Survey"}, true, Mask::bare},
    };
    return all;
}

class EnableTable : public ManagerTest, public testing::WithParamInterface<bool> {
  protected:
    // Clicks the rows of a selection, by name.
    static Script selecting(const Selection& selection) {
        Script script;
        script.clickEmptySpace(IDC_LSTATE_RES_LIST);
        for (std::size_t i = 0; i < selection.names.size(); ++i)
            script.clickCellOf(IDC_LSTATE_RES_LIST, selection.names[i], i == 0 ? ui::holdNothing : ui::holdControl);
        return script;
    }
    static void failAllMasks() {
        for (int nth = 1; nth <= 100; ++nth)
            instruments::failCall("getLayerStateMask", nth);
    }
};

TEST_P(EnableTable, HoldsForEverySelection) {
    const bool inViewport = GetParam();
    ui::TestDrawing drawing = houseOnSite().state(L"Lines", MaskLinetype);
    open(inViewport ? drawing.inViewport() : drawing);
    keep(managerName, L"Expanded", 1);
    Script script;
    for (const Selection& selection : selections()) {
        const Case each{inViewport, selection};
        // The masks are made unreadable only after a click beside the rows has unselected them.
        script.clickEmptySpace(IDC_LSTATE_RES_LIST);
        if (selection.mask == Mask::unreadable)
            script.look("no mask can be read from here on", [](const View&) { failAllMasks(); });
        script.then(selecting(selection));
        script.look(selection.what, [each](const View& view) {
            instruments::clearFaults();
            EXPECT_EQ(view.selectedRows(IDC_LSTATE_RES_LIST).size(), each.selection.names.size());
            EXPECT_THAT(enabledControls(view), ElementsAreArray(expectedControls(each)))
                << each.selection.what << (each.inViewport ? ", in a viewport" : ", in model space");
        });
    }
    manage(script.click(IDC_LSTATE_RES_CLOSE));
}

INSTANTIATE_TEST_SUITE_P(Spaces, EnableTable, testing::Bool(), [](const testing::TestParamInfo<bool>& named) {
    return named.param ? std::string("InAViewport") : std::string("InModelSpace");
});

class Boxes : public ManagerTest {};

TEST_F(Boxes, ShowTheStoredMaskOfTheOneSelectedStateAndNothingOtherwise) {
    open(house());
    manage(Script()
               .look("all ten", [](const View& view) { EXPECT_EQ(shownMask(view), MaskAllProperties); })
               .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
               .look("three", [](const View& view) { EXPECT_EQ(shownMask(view), MaskOn | MaskColor | MaskLinetype); })
               .clickCell(IDC_LSTATE_RES_LIST, 0, 0, ui::holdControl)
               .look("none with two rows", [](const View& view) { EXPECT_EQ(shownMask(view), 0u); })
               .clickEmptySpace(IDC_LSTATE_RES_LIST)
               .look("none without a row", [](const View& view) { EXPECT_EQ(shownMask(view), 0u); })
               .click(IDC_LSTATE_RES_CLOSE));
}

TEST_F(Boxes, EveryBoxStandsForItsOwnBit) {
    ui::TestDrawing drawing;
    for (const BoxBit& row : propertyBoxes)
        drawing.state(L"Bit " + std::to_wstring(row.bit), row.bit);
    open(drawing);
    Script script;
    for (std::size_t i = 0; i < propertyBoxes.size(); ++i)
        script.clickCell(IDC_LSTATE_RES_LIST, static_cast<int>(i), 0)
            .look("the one box", [bit = propertyBoxes[i].bit](const View& view) { EXPECT_EQ(shownMask(view), bit); });
    manage(script.click(IDC_LSTATE_RES_CLOSE));
}

TEST_F(Boxes, StayAsTheyAreWhenTheMaskCantBeRead) {
    open(house().lastRestored(L"Plumbing plan"));
    keep(managerName, L"Expanded", 1);
    // Opening the panel reads the mask again, and without it leaves what the person has ticked.
    manage(Script()
               .click(IDC_LSTATE_RES_COLOR)
               .click(IDC_LSTATE_RES_PLOT)
               .pressAlt(L'<')
               .look("no mask can be read from here on",
                     [](const View&) {
                         for (int nth = 1; nth <= 20; ++nth)
                             instruments::failCall("getLayerStateMask", nth);
                     })
               .pressAlt(L'>')
               .look("the boxes as they were",
                     [](const View& view) {
                         EXPECT_TRUE(instruments::faultStruck());
                         instruments::clearFaults();
                         EXPECT_EQ(shownMask(view), MaskOn | MaskPlot | MaskLinetype);
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_OVERRIDES));
                     })
               .press(VK_ESCAPE));
}

TEST_F(Boxes, ShowTheStoredMaskAgainWhenThePanelIsOpened) {
    open(house().lastRestored(L"Plumbing plan"));
    keep(managerName, L"Expanded", 1);
    manage(Script()
               .click(IDC_LSTATE_RES_PLOT)
               .pressAlt(L'<')
               .pressAlt(L'>')
               .look("the stored ones",
                     [](const View& view) { EXPECT_EQ(shownMask(view), MaskOn | MaskColor | MaskLinetype); })
               .press(VK_ESCAPE));
}

TEST_F(Boxes, AControlThatIsAbsentIsPassedOver) {
    open(house());
    keep(managerName, L"Expanded", 1);
    manage(Script()
               .look("some controls are gone",
                     [](const View& view) {
                         for (const int control : {IDC_LSTATE_RES_DELETE, IDC_LSTATE_RES_LOCKED, IDC_LSTATE_RES_COLOR,
                                                   IDC_LSTATE_RES_OVERRIDES})
                             DestroyWindow(view.control(control));
                     })
               .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
               .look("the others",
                     [](const View& view) {
                         EXPECT_EQ(shownMask(view), MaskOn | MaskLinetype);
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_EXPORT));
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_PLOTSTYLE));
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_CLEARALL));
                     })
               .click(IDC_LSTATE_RES_SELECTALL)
               .look("all that are left and enabled",
                     [](const View& view) {
                         EXPECT_EQ(shownMask(view), MaskAllProperties & ~(MaskViewportFrozen | MaskLocked | MaskColor));
                     })
               .clickEmptySpace(IDC_LSTATE_RES_LIST)
               .look("none",
                     [](const View& view) {
                         EXPECT_EQ(shownMask(view), 0u);
                         EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_EXPORT));
                     })
               .click(IDC_LSTATE_RES_CLOSE));
}

TEST_F(Boxes, InAViewportOnAndFrozenAreDisabledAndStillShowTheStoredMask) {
    open(house().inViewport());
    lookAtOpening([](const View& view) {
        EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_ON));
        EXPECT_FALSE(view.isEnabled(IDC_LSTATE_RES_FROZEN));
        EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_VPFROZEN));
        EXPECT_EQ(shownMask(view), MaskAllProperties);
    });
}

TEST_F(Boxes, ADescriptionThatCantBeReadChangesNothing) {
    open(house());
    manage(Script()
               .look("no description can be read from here on",
                     [](const View&) {
                         for (int nth = 1; nth <= 20; ++nth)
                             instruments::failCall("getLayerStateDescription", nth);
                     })
               .clickCell(IDC_LSTATE_RES_LIST, 1, 0)
               .look("the row",
                     [](const View& view) {
                         EXPECT_EQ(instruments::struckOperation(), "getLayerStateDescription");
                         instruments::clearFaults();
                         EXPECT_EQ(shownMask(view), MaskOn | MaskColor | MaskLinetype);
                         EXPECT_TRUE(view.isEnabled(IDC_LSTATE_RES_RESTORE));
                     })
               .click(IDC_LSTATE_RES_CLOSE));
}

} // namespace
