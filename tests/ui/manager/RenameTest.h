// Tests of renaming a state in the manager's list, over three small states.
#pragma once

#include "ManagerTest.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

/// The first lines of the host's dialogs about a name.
inline constexpr const wchar_t* kEmptyRefused = L"A name is needed.";
inline constexpr const wchar_t* kCharactersRefused = L"The name contains characters that can't be used.";
inline constexpr const wchar_t* kLengthRefused = L"The name is too long.";

/// What is asked for when the box over a name of the drawing's own opens: how long a name may be, and whether the state
/// is dependent.
Calls callsOfBox(const std::string& name);
/// What is asked for to check a name that isn't another row's, and the answer's status.
Calls callsOfCheck(const std::string& name, int status = 0);

class RenameTest : public ManagerTest {
  protected:
    /// The states One (selected as the manager opens), Two and Three, whose mask is the colour and which are as the
    /// drawing is.
    static ui::TestDrawing threeStates();
    static constexpr LayerStateMask kMask = MaskColor;

    /// Opens the box over the selected name by F2.
    static ui::Script begin();
    /// Types a name in place of the selected state's.
    static ui::Script typeName(const std::wstring& name);
    /// Types a name in place of the selected state's, and presses Enter.
    static ui::Script rename(const std::wstring& name);
    /// Waits until the box holds that text.
    static ui::Script boxHolds(const std::wstring& text);
    /// The calls count from here.
    static ui::Script count();
    /// Compares the calls so far; they count anew from here.
    static ui::Script expectCalls(const Calls& calls);
    /// The box is closed, no rename is under way, and the names stand like this; Close then ends the manager.
    static ui::Script expectOver(const std::vector<std::wstring>& names);
    /// The message box or task dialog with that text is answered.
    static ui::Script answer(const std::wstring& text);
    /// A text of the resource module with a name in its one placeholder.
    static std::wstring resourceTextWith(unsigned int id, const std::wstring& name);

    /// The names of the drawing's states.
    std::vector<std::wstring> namesOfDrawing() const;
};
