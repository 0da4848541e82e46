// What the tests of New, Update and Delete share.
#pragma once

#include "ManagerTest.h"

class ActionTest : public ManagerTest {
  protected:
    using Texts = std::vector<std::wstring>;

    /// A house whose fourth state, "Wiring", is selected first: on and colour, described as "As of May", and not as the
    /// drawing is.
    static ui::TestDrawing wiredHouse();

    /// From this step on the calls are counted.
    static ui::Script countCalls();
    /// Waits for the message box with that text and clicks one of its buttons.
    static ui::Script answerBox(const std::wstring& text, int button);
    /// A text of the resource module with the name in the place of its %s.
    static std::wstring textWithName(unsigned int id, const std::wstring& name);

    /// The names of the drawing's own states, in its order.
    Texts stateNames() const;
    /// A state as the drawing holds it, until its next change; null when there is none of that name.
    const zdr::LayerState* stateOf(const std::wstring& name) const;
    bool matchesDrawing(const wchar_t* name) const;
};
