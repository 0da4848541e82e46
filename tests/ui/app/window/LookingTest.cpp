// Looking at a drawing: which part of which space is on view. Saving leaves it alone, and looking changes nothing that
// would have to be saved or could be taken back.

#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <array>

using ui::Script;
using ui::View;

namespace {

class LookingTest : public WorkbenchTest {
  protected:
    LookingTest() { writeSample("plan.zdr"); }

    Script open() { return command(L"OPEN " + path("plan.zdr")).then(said(L"Opened ")); }
    /// Scale and place of what is on view.
    std::array<double, 3> seen() const {
        auto* drawing = static_cast<workbench::DrawingView*>(
            CWnd::FromHandlePermanent(GetDlgItem(window->m_hWnd, IDC_DRAWING_VIEW)));
        const zdr::Point origin = drawing->view().toScreen({0, 0});
        return {drawing->view().scale(), origin.x, origin.y};
    }
    /// A step that keeps what is on view in `place`.
    Script note(std::array<double, 3>& place) {
        Script script;
        script.look("what is on view", [this, &place](const View&) { place = seen(); });
        return script;
    }
    Script stillSeen(const std::array<double, 3>& place, const std::string& when) {
        Script script;
        script.look("what is on view " + when, [this, &place, when](const View&) { EXPECT_EQ(seen(), place) << when; });
        return script;
    }
};

} // namespace

TEST_F(LookingTest, SavingLeavesAloneWhatIsOnViewInModelSpaceAndOnASheet) {
    std::array<double, 3> zoomed{}, model{}, sheet{};
    Script script;
    script.then(open()).then(command(L"ZOOM IN")).then(said(L"Zoomed in.")).then(note(zoomed));
    script.press(VK_LEFT, ui::holdAlt)
        .waitUntil("the drawing has moved", [&](const View&) { return seen()[1] > zoomed[1]; })
        .then(note(model))
        .then(command(L"LAYOUT Layout1"))
        .then(said(L"is shown."))
        .then(command(L"ZOOM OUT"))
        .then(said(L"Zoomed out."))
        .then(note(sheet))
        .then(command(L"LAYER NEW Walls"))
        .then(command(L"SAVE"))
        .then(said(L"Saved " + path("plan.zdr")))
        .then(stillSeen(sheet, "after SAVE"))
        .then(command(L"SAVEAS " + path("other.zdr")))
        .then(said(L"Saved " + path("other.zdr")))
        .then(stillSeen(sheet, "after SAVEAS"))
        .then(command(L"MODEL"))
        .then(said(L"Model space is shown."))
        .then(stillSeen(model, "in model space"))
        .then(command(L"LAYER NEW Doors"))
        .waitUntil("the title has its mark",
                   [](const View& view) { return view.title() == L"other.zdr* - Kel Workbench"; })
        .press('S', ui::holdControl)
        .waitUntil("saved by the key", [](const View& view) { return view.title() == L"other.zdr - Kel Workbench"; })
        .then(stillSeen(model, "after Ctrl+S"))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(LookingTest, LookingElsewhereTakesNoStepOfUndoAndLeavesWhatCanBeDoneAgain) {
    Script script;
    script.then(open()).then(command(L"LAYER NEW Walls")).then(titleIs(L"plan.zdr*"));
    script.press(VK_NEXT, ui::holdControl)
        .waitUntil("the sheet", [this](const View&) { return session().drawing().activeLayout == 0u; })
        .then(command(L"VPORT 2"))
        .then(said(L"Viewport 2 is current."))
        .then(command(L"U"))
        .then(titleIs(L"plan.zdr"))
        .look("the layer is taken back and nothing else",
              [this](const View&) {
                  EXPECT_EQ(session().drawing().layers.size(), 1u);
                  EXPECT_EQ(session().drawing().activeLayout, 0u);
                  EXPECT_TRUE(session().drawing().currentViewport);
              })
        .then(command(L"VPORT none"))
        .then(said(L"The paper of the layout is current."));
    script.press(VK_PRIOR, ui::holdControl)
        .waitUntil("the model tab", [this](const View&) { return !session().drawing().activeLayout; })
        .then(titleIs(L"plan.zdr"))
        .then(command(L"REDO"))
        .then(titleIs(L"plan.zdr*"))
        .look("the layer is there again", [this](const View&) { EXPECT_EQ(session().drawing().layers.size(), 2u); })
        .then(command(L"U"))
        .then(titleIs(L"plan.zdr"))
        .then(command(L"QUIT"));
    runWith(script);
    EXPECT_EQ(window->m_hWnd, nullptr) << "nothing was asked";
}

TEST_F(LookingTest, WhatIsLookedAtIsKeptWithTheDrawingWhenItIsSaved) {
    Script script;
    script.then(open())
        .then(command(L"LAYOUT Layout1"))
        .then(command(L"VPORT 2"))
        .then(command(L"SAVE"))
        .then(said(L"Saved "))
        .then(command(L"MODEL"))
        .then(said(L"Model space is shown."))
        .then(open())
        .waitUntil("the viewport of the sheet",
                   [this](const View&) {
                       return session().drawing().activeLayout == 0u && session().drawing().currentViewport;
                   })
        .then(command(L"QUIT"));
    runWith(script);
}
