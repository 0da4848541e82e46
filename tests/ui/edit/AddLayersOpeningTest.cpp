// What the add layers dialog offers, in which order, and what it asks of the host for that.

#include "AddLayersTest.h"

#include "engine/DatabaseAccess.h"

#include <commctrl.h>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using ui::Script;
using ui::TestDrawing;
using ui::View;

class AddLayersOpening : public AddLayersTest {
  protected:
    /// Opens the dialog, looks at it and cancels it.
    bool look(std::function<void(const View&)> see) {
        return add(Script().look("the dialog as it opened", std::move(see)).press(VK_ESCAPE));
    }
    /// Presses the button with that failing, and answers what is told; nothing is offered then.
    void expectNothingOffered(const std::function<void()>& fail) {
        editPlan(Script()
                     .look("what fails", [&fail](const View&) { fail(); })
                     .then(countFromHere())
                     .click(IDC_ADD_LAYERS)
                     .waitForText(nothingToAdd)
                     .press(VK_RETURN)
                     .waitForControl(IDC_ADD_LAYERS)
                     .look("the calls, and the rows",
                           [this](const View& view) {
                               m_calls = callsSoFar();
                               EXPECT_THAT(rows(view), ElementsAre(L"Walls", L"Base"));
                           })
                     .press(VK_ESCAPE));
    }
    Calls m_calls;
};

const Calls setUp = {"CKelUiDialog(163)",
                     "SetDialogName(\"KelLayerApps:LayerStatesAddLayers\")",
                     "OnInitDialog()",
                     "SetControlProperty(6)",
                     "SetContextHelpPrefix(\"LAST\")",
                     "SetContextHelpFileName(\"/KelDialogToolTips;Component/DialogToolTips.xaml\")",
                     "SetUseTips(2)"};

/// What is asked of a layer that has a row in the edit dialog.
Calls callsOfTaken(const std::string& id, const std::string& name) {
    return {"iterator.done() = false", "iterator.getRecordId() = 0, id=" + id, "openObject(" + id + ", 0, false) = 0",
            "record.getName(" + id + ") = 0, name=\"" + name + "\"", "close(" + id + ") = 0"};
}
const Calls step = {"iterator.step(true, true)"};
const Calls end = {"iterator.done() = true", "iterator.delete()"};

/// What each dialog of this thread answers as it opens: whether the system is to place the focus.
class OpeningAnswers {
  public:
    OpeningAnswers() { s_answers.clear(); }
    ~OpeningAnswers() { UnhookWindowsHookEx(m_hook); }
    OpeningAnswers(const OpeningAnswers&) = delete;
    OpeningAnswers& operator=(const OpeningAnswers&) = delete;
    const std::vector<LRESULT>& get() const { return s_answers; }

  private:
    static LRESULT CALLBACK note(int code, WPARAM wParam, LPARAM lParam) {
        const auto& done = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
        if (code == HC_ACTION && done.message == WM_INITDIALOG)
            s_answers.push_back(done.lResult);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline std::vector<LRESULT> s_answers;
    HHOOK m_hook = SetWindowsHookExW(WH_CALLWNDPROCRET, note, nullptr, GetCurrentThreadId());
};

TEST_F(AddLayersOpening, LetsTheSystemPlaceTheFocusAsTheDialogsBelowItDo) {
    open(grown());
    const OpeningAnswers answers;
    EXPECT_TRUE(look([&answers](const View&) {
        // Wine places it unasked.
        EXPECT_THAT(answers.get(), ElementsAre(TRUE, TRUE, TRUE)) << "the manager, the edit dialog and this one";
    }));
}

TEST_F(AddLayersOpening, AsksTheHostForTheseStepsInThisOrder) {
    open(TestDrawing().layer(L"Walls").state(L"Plan", MaskColor).layer(L"Attic"));
    describe(L"Attic", L"under the roof");
    Calls calls;
    look([&](const View&) { calls = callsSoFar(); });
    const Calls table = {"getLayerTable(0) = 0", "layerTable.newIterator(true, true) = 0"};
    const Calls offered = {"iterator.done() = false",
                           "iterator.getRecordId() = 0, id=#4",
                           "openObject(#4, 0, false) = 0",
                           "record.getName(#4) = 0, name=\"Attic\"",
                           "record.description(#4) = \"under the roof\"",
                           "kelutDelBuffer(\"under the roof\")",
                           "close(#4) = 0"};
    EXPECT_THAT(calls,
                ElementsAreArray(joined({setUp,
                                         table,
                                         callsOfTaken("#1", "Base"),
                                         step,
                                         callsOfTaken("#2", "Walls"),
                                         step,
                                         offered,
                                         step,
                                         end,
                                         {"GetColumnSizes(16214)", "SetPersistency(1)", "close(#layerTable) = 0"}})));
}

TEST_F(AddLayersOpening, OffersTheLayersWithoutARowLastFirstWithTheirDescriptions) {
    open(grown());
    describe(L"Yard", L"in front");
    look([](const View& view) {
        EXPECT_EQ(view.title(), L"Select Layers to Add");
        EXPECT_EQ(view.rowCount(grid), 3);
        EXPECT_THAT(view.cells(grid, 0), ElementsAre(L"Cellar", L""));
        EXPECT_THAT(view.cells(grid, 1), ElementsAre(L"Yard", L"in front"));
        EXPECT_THAT(view.cells(grid, 2), ElementsAre(L"Attic", L""));
        EXPECT_THAT(view.selectedRows(grid), IsEmpty());
        EXPECT_THAT(view.headings(grid), ElementsAre(resourceText(114), resourceText(116)));
    });
}

TEST_F(AddLayersOpening, OffersWhateverHasNoRow) {
    TestDrawing site;
    open(TestDrawing()
             .layer(L"Walls")
             .state(L"Plan", MaskColor)
             .layer(L"Frozen")
             .layer(L"Now current")
             .reference(L"site", site.layer(L"Trees")));
    engine::LayerValues frozen = engine::layerValues(database(), 2);
    frozen.flags |= zdr::kLayerFrozen;
    ASSERT_EQ(engine::setLayerValues(database(), 2, frozen), Vorn::eOk);
    ASSERT_EQ(engine::setCurrentLayer(database(), 3), Vorn::eOk);
    look([](const View& view) {
        EXPECT_THAT(rows(view), ElementsAre(L"site!Trees", L"site!Base", L"Now current", L"Frozen"));
    });
}

TEST_F(AddLayersOpening, OffersARemovedLayerAgainAndAnAddedOneNoMore) {
    open(grown());
    editPlan(Script()
                 .clickCellOf(grid, L"Walls")
                 .click(IDC_REMOVE_LAYERS)
                 .then(openDialog())
                 .look("offered",
                       [](const View& view) {
                           EXPECT_THAT(rows(view), ElementsAre(L"Cellar", L"Yard", L"Attic", L"Walls"));
                       })
                 .clickCellOf(grid, L"Yard")
                 .click(IDOK)
                 .waitForControl(IDC_ADD_LAYERS)
                 .then(openDialog())
                 .look("offered",
                       [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Cellar", L"Attic", L"Walls")); })
                 .press(VK_ESCAPE)
                 .waitForControl(IDC_ADD_LAYERS)
                 .press(VK_ESCAPE));
}

TEST_F(AddLayersOpening, SharesTheWidthByThirdsAtFirstAndTakesTheKeptWidthsLater) {
    open(grown());
    std::vector<int> first, dragged, cancelled, kept;
    LONG width = 0;
    const auto note = [](std::vector<int>& widths) {
        return Script().look("the widths", [&widths](const View& view) { widths = view.columnWidths(grid); });
    };
    add(note(first)
            .look("the width of the list",
                  [&width](const View& view) {
                      RECT client = {};
                      GetClientRect(view.control(grid), &client);
                      width = client.right;
                  })
            .then(dragDivider(0, 40))
            .then(note(dragged))
            .press(VK_ESCAPE));
    add(note(cancelled).then(dragDivider(0, 40)).click(IDOK));
    add(note(kept).press(VK_ESCAPE));
    EXPECT_THAT(first, ElementsAre(width / 3 - 1, 2 * (width / 3 - 1)));
    EXPECT_THAT(dragged, ElementsAre(width / 3 + 39, 2 * (width / 3 - 1)));
    EXPECT_EQ(cancelled, first);
    EXPECT_EQ(kept, dragged);
}

TEST_F(AddLayersOpening, LeavesOutALayerThatCantBeOpened) {
    open(grown());
    editPlan(Script()
                 .look("the fourth layer can't be opened",
                       [](const View&) { instruments::failCall("openObject", 4, Vorn::eWasOpenForWrite); })
                 .then(openDialog())
                 .look("offered", [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Cellar", L"Attic")); })
                 .press(VK_ESCAPE)
                 .waitForControl(IDC_ADD_LAYERS)
                 .press(VK_ESCAPE));
}

const Calls told = {"taskDialog.LoadFromFile(\"/KelTaskDialogs;component/TaskDialogs.xaml\", "
                    "\"KelLayerApps.LayerStateAddLayer\", null, 1) = true",
                    "taskDialog.ShowDialog(null) = 8"};

TEST_F(AddLayersOpening, WithNothingToOfferTellsSoOnceAndLeavesTheRowsAsTheyAre) {
    open(TestDrawing().layer(L"Walls").state(L"Plan", MaskColor));
    expectNothingOffered([] {});
    EXPECT_THAT(m_calls,
                ElementsAreArray(joined({setUp,
                                         {"getLayerTable(0) = 0", "layerTable.newIterator(true, true) = 0"},
                                         callsOfTaken("#1", "Base"),
                                         step,
                                         callsOfTaken("#2", "Walls"),
                                         step,
                                         end,
                                         told,
                                         {"GetColumnSizes(16214)", "SetPersistency(1)", "close(#layerTable) = 0"}})));
}

TEST_F(AddLayersOpening, WithoutTheTableOffersNothing) {
    open(grown());
    expectNothingOffered([] { instruments::failCall("getLayerTable", 1, Vorn::eWasOpenForWrite); });
    EXPECT_THAT(m_calls, ElementsAreArray(joined(
                             {setUp, {"getLayerTable(0) = 7"}, told, {"GetColumnSizes(16214)", "SetPersistency(1)"}})));
}

TEST_F(AddLayersOpening, WithoutAnIteratorOffersNothing) {
    open(grown());
    expectNothingOffered([] { instruments::failCall("layerTable.newIterator", 1); });
    EXPECT_THAT(m_calls,
                ElementsAreArray(joined({setUp,
                                         {"getLayerTable(0) = 0", "layerTable.newIterator(true, true) = 3"},
                                         told,
                                         {"GetColumnSizes(16214)", "SetPersistency(1)", "close(#layerTable) = 0"}})));
}

TEST_F(AddLayersOpening, WithNothingToOfferAndNoTextsForItEndsWithoutAWord) {
    open(TestDrawing().state(L"Plan", MaskColor));
    Calls calls;
    editPlan(
        Script()
            .look("the texts can't be loaded", [](const View&) { instruments::failCall("taskDialog.LoadFromFile", 1); })
            .then(countFromHere())
            .click(IDC_ADD_LAYERS)
            .waitUntil(
                "it has come and gone",
                [](const View& view) { return view.has(IDC_ADD_LAYERS) && !ui::callsOf("SetPersistency").empty(); })
            .look("the calls", [&](const View&) { calls = callsSoFar(); })
            .press(VK_ESCAPE));
    EXPECT_THAT(ui::callsOf("taskDialog.ShowDialog", calls), IsEmpty());
    EXPECT_EQ(ui::callsOf("taskDialog.LoadFromFile", calls).size(), 1u);
}

TEST_F(AddLayersOpening, IsHelpedByItsOwnTopic) {
    open(grown());
    for (const bool byKey : {false, true}) {
        Script ask = countFromHere();
        byKey ? ask.press(VK_F1) : ask.click(ID_HELP);
        add(ask.waitUntil("the help is asked for", [](const View&) { return !ui::callsOf("keledHelp").empty(); })
                .look("the topic",
                      [](const View&) {
                          EXPECT_THAT(ui::callsOf("keledHelp"),
                                      ElementsAre("keledHelp(null, \"SELECTLAYERSTOADDDIALOG\", 0)"));
                      })
                .press(VK_ESCAPE));
    }
}

TEST_F(AddLayersOpening, ComesBackWhereItWasLeft) {
    open(grown());
    RECT left = {}, found = {};
    const auto note = [](RECT& rect) {
        return Script().look("where it stands", [&rect](const View& view) { rect = view.rect(); });
    };
    add(Script().dragWindow(70, 50).then(note(left)).press(VK_ESCAPE));
    add(note(found).press(VK_ESCAPE));
    EXPECT_TRUE(EqualRect(&left, &found));
}

} // namespace
