// Tests of the dialog that adds layers to a state under edit.
#pragma once

#include "EditTest.h"

inline constexpr const wchar_t* nothingToAdd = L"The layer state holds all layers of the drawing.";

class AddLayersTest : public EditTest {
  protected:
    /// A house whose state "Plan" holds Base and Walls; later came Attic (#4), Yard (#5) and Cellar (#6).
    static ui::TestDrawing grown();
    void describe(const wchar_t* layer, const wchar_t* description);
    /// Opens the edit dialog on the plan and does the steps, which have to end it.
    bool editPlan(const ui::Script& steps) { return edit(L"Plan", steps); }
    /// Presses the button and waits for the dialog. The trace holds the calls from there on.
    static ui::Script openDialog();
    /// Opens the dialog on the plan, does the steps in it, which have to end it, looks at the edit dialog, and leaves
    /// that by Escape.
    bool add(
        const ui::Script& steps, std::function<void(const ui::View&)> see = [](const ui::View&) {});

    /// What the calls so far were, but for those of painting.
    static Calls callsSoFar() { return withoutPainting(instruments::trace()); }
};
