// Tests of describing a state in its cell of the manager's list.
#pragma once

#include "ManagerTest.h"

class DescriptionTest : public ManagerTest {
  protected:
    using Calls = std::vector<std::string>;
    static constexpr int kList = IDC_LSTATE_RES_LIST;
    static constexpr int kDescriptionColumn = 3;

    void SetUp() override;

    /// The states One, Two and Three, in the order in which the list shows them, and below them "site!Survey" of an
    /// attached reference. "Two" is described as "the second". The first is selected when the manager opens.
    static ui::TestDrawing threeStates();
    /// As many states as the list needs to have to scroll, named from "State 10" on, without descriptions.
    static ui::TestDrawing manyStates();

    /// The editor over a description; null before the first one was opened.
    static HWND editor(const ui::View& view);
    static bool isEditorShown(const ui::View& view);

    /// Opens the editor over the description in that row, and forgets the calls so far.
    static ui::Script openCell(int row);
    /// The same, and types a text in place of what stands there.
    static ui::Script typeInto(int row, const std::wstring& text);
    /// What the host was asked since the editor opened is this, the editor is closed, and the list has the focus.
    static ui::Script expectEnd(const Calls& calls);
    /// The editor is open with that text and the focus.
    static ui::Script expectOpen(const std::wstring& text);
    /// From here on the host refuses a description for "Two", which is gone from the drawing; and no longer.
    ui::Script beginRefusing();
    ui::Script endRefusing();

    /// What a commit asks for.
    static Calls keeping(const std::string& state, const std::string& text);
    /// What the drawing holds; a state that it lacks is described as "(none)".
    std::wstring described(const wchar_t* state) const;
};
