// What OK and Cancel of the import selection do: the names, the refusal without a tick, the widths of the columns; and
// how the dialog is resized.

#include "ImportDialogTest.h"

#include "CResourceScope.h"
#include "persistence/DialogStore.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using ui::Script;
using ui::View;

constexpr const wchar_t* kNoneSelected = L"No layer state is selected.";

class ImportEnd : public ImportDialogTest {
  protected:
    static Script clearAll() {
        return look("no ticks", [](const View& view) {
            for (int row = 0; row < view.rowCount(kList); ++row)
                setTick(view, row, false);
            instruments::clearTrace();
        });
    }
    /// Makes the columns 70, 60 and 50 pixels wide.
    static Script widen() {
        return look("other widths", [](const View& view) {
            int width = 70;
            for (int column = 0; column < 3; ++column, width -= 10)
                ListView_SetColumnWidth(view.control(kList), column, width);
        });
    }
    /// The widths with which the dialog opens.
    std::vector<int> widthsAtOpening() {
        std::vector<int> widths;
        choose(withStates({L"One"}),
               look("the widths", [&widths](const View& view) { widths = view.columnWidths(kList); }).press(VK_ESCAPE));
        return widths;
    }
};

TEST_F(ImportEnd, OkHandsBackWhatIsTickedInThatRunAlone) {
    withStates({L"One", L"Two"}).save(file(L"offered.zdr"));
    const CResourceScope scope;
    CLayerStatesImportDlg dialog(nullptr, file(L"offered.zdr").c_str());
    for (int run = 0; run < 2; ++run) {
        ui::perform(untilInFront().press(VK_RETURN), [&] { EXPECT_EQ(dialog.DoModal(), IDOK); });
        EXPECT_EQ(dialog.m_selectedNames.length(), 2) << run;
    }
}

TEST_F(ImportEnd, OkHandsBackTheTickedNamesFromTheTop) {
    Script script = look("a state that the drawing has, ticked by hand", [](const View& view) {
        EXPECT_THAT(tickedRows(view), ElementsAre(0, 1, 3));
        setTick(view, 2, true);
        setTick(view, 0, false);
        instruments::clearTrace();
    });
    EXPECT_EQ(choose(withStates({L"Roof", L"Ground", L"Plan", L"Attic"}), script.click(IDOK)), IDOK);
    EXPECT_THAT(chosen, ElementsAre(L"Ground", L"Plan", L"Attic"));
    EXPECT_THAT(instruments::trace(), ElementsAre("SaveColumnSizes(1022)"));
}

TEST_F(ImportEnd, CancelHandsBackNothingAndAsksNothing) {
    for (const Script& leave : {Script().click(IDCANCEL), Script().press(VK_ESCAPE)}) {
        Script script = look("the calls count from here", [](const View&) { instruments::clearTrace(); });
        EXPECT_EQ(choose(withStates({L"One"}), script.then(leave)), IDCANCEL);
        EXPECT_THAT(chosen, IsEmpty());
        EXPECT_THAT(instruments::trace(), IsEmpty());
    }
}

TEST_F(ImportEnd, OkWithoutATickIsRefusedUntilThereIsOne) {
    Script script = clearAll();
    script.click(IDOK)
        .waitForText(kNoneSelected)
        .press(VK_ESCAPE)
        .then(untilInFront())
        .look("the calls",
              [](const View& view) {
                  EXPECT_THAT(
                      instruments::trace(),
                      ElementsAre("SaveColumnSizes(1022)",
                                  StartsWith("taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                                             "\"KelLayerApps.LayerStateNoneSelected\", null, 0)"),
                                  StartsWith("taskDialog.ShowDialog(")));
                  EXPECT_TRUE(IsWindowEnabled(view.window()));
                  setTick(view, 1, true);
              })
        .click(IDOK);
    EXPECT_EQ(choose(withStates({L"One", L"Two"}), script), IDOK);
    EXPECT_THAT(chosen, ElementsAre(L"Two"));
}

TEST_F(ImportEnd, OkOverAnEmptyListIsRefusedToo) {
    Script script;
    script.click(IDOK).waitForText(kNoneSelected).press(VK_ESCAPE).then(untilInFront()).press(VK_ESCAPE);
    EXPECT_EQ(choose(withStates({}), script), IDCANCEL);
}

TEST_F(ImportEnd, WhereTheRefusalCannotBeLoadedTheDialogStaysInSilence) {
    Script script = clearAll();
    script
        .look("the task dialog can't be loaded",
              [](const View&) { instruments::failCall("taskDialog.LoadFromFile", 1); })
        .click(IDOK)
        .look("still there",
              [](const View& view) {
                  EXPECT_TRUE(view.has(IDHELP));
                  EXPECT_THAT(ui::callsOf("taskDialog.LoadFromFile"), testing::SizeIs(1));
                  EXPECT_THAT(ui::callsOf("taskDialog.ShowDialog"), IsEmpty());
              })
        .press(VK_ESCAPE);
    EXPECT_EQ(choose(withStates({L"One"}), script), IDCANCEL);
}

TEST_F(ImportEnd, OkKeepsTheWidthsOfTheColumns) {
    EXPECT_EQ(choose(withStates({L"One"}), widen().click(IDOK)), IDOK);
    EXPECT_THAT(widthsAtOpening(), ElementsAre(70, 60, 50));
}

TEST_F(ImportEnd, ARefusedOkKeepsThemToo) {
    Script script = clearAll();
    script.then(widen()).click(IDOK).waitForText(kNoneSelected).press(VK_ESCAPE).then(untilInFront()).press(VK_ESCAPE);
    EXPECT_EQ(choose(withStates({L"One"}), script), IDCANCEL);
    EXPECT_THAT(widthsAtOpening(), ElementsAre(70, 60, 50));
}

TEST_F(ImportEnd, CancelKeepsNoWidths) {
    const std::vector<int> first = widthsAtOpening();
    EXPECT_EQ(choose(withStates({L"One"}), widen().press(VK_ESCAPE)), IDCANCEL);
    EXPECT_EQ(widthsAtOpening(), first);
}

TEST_F(ImportEnd, ResizingStretchesTheListAndMovesTheButtons) {
    static constexpr int kRight = 60, kDown = 40;
    std::vector<RECT> before;
    const auto rects = [](const View& view) {
        std::vector<RECT> all;
        for (const int control : {kList, static_cast<int>(IDOK), static_cast<int>(IDCANCEL), static_cast<int>(IDHELP)})
            all.push_back(view.rect(control));
        return all;
    };
    Script script = look("the dialog grows", [&before, rects](const View& view) {
        before = rects(view);
        const RECT window = view.rect();
        SetWindowPos(view.window(), nullptr, window.left, window.top, window.right - window.left + kRight,
                     window.bottom - window.top + kDown, SWP_NOZORDER);
        const std::vector<RECT> now = rects(view);
        for (std::size_t index = 0; index < now.size(); ++index) {
            const bool isList = index == 0;
            EXPECT_EQ(now[index].left - before[index].left, isList ? 0 : kRight);
            EXPECT_EQ(now[index].top - before[index].top, isList ? 0 : kDown);
            EXPECT_EQ(now[index].right - before[index].right, kRight);
            EXPECT_EQ(now[index].bottom - before[index].bottom, kDown);
        }
    });
    EXPECT_EQ(choose(withStates({L"One"}), script.press(VK_ESCAPE)), IDCANCEL);
}

TEST_F(ImportEnd, TheDialogComesBackWhereItWas) {
    POINT left = {};
    Script drag, again;
    drag.dragWindow(70, -40).look("where it is", [&left](const View& view) {
        left = {view.rect().left, view.rect().top};
    });
    EXPECT_EQ(choose(withStates({L"One"}), drag.press(VK_ESCAPE)), IDCANCEL);
    again.look("where it is", [&left](const View& view) {
        EXPECT_EQ(view.rect().left, left.x);
        EXPECT_EQ(view.rect().top, left.y);
    });
    EXPECT_EQ(choose(withStates({L"One"}), again.press(VK_ESCAPE)), IDCANCEL);
}

} // namespace
