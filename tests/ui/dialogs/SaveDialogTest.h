// Tests of the new layer state dialog: the real module in a fresh host, with a small house open.
#pragma once

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "Driver.h"
#include "HostTest.h"
#include "LayerStateMask.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

using Calls = std::vector<std::string>;

/// One list of calls after the other.
Calls joined(std::initializer_list<Calls> parts);

class SaveDialogTest : public ui::HostTest {
  protected:
    void SetUp() override;

    /// A house of three layers (Base, Walls, Doors) whose states are "Plan" (all properties, described as "All of it")
    /// and "Bare" (on and frozen, without a description).
    static ui::TestDrawing house();
    /// A house with the site attached, whose states are "site!Survey" (on; described as "By laser") and "site!Trees".
    static ui::TestDrawing houseOnSite();

    /// Opens the dialog by the module's export, without a parent, and runs the script in it. The trace holds the calls
    /// from there on.
    static bool save(ui::Script script);
    /// Opens the dialog by the manager's button New, runs the script in it, and closes the manager. The trace holds the
    /// calls from the click on.
    bool saveFromManager(const ui::Script& script);

    /// @name What the host is asked for, whatever opens the dialog
    /// @{
    /// While it opens. `names` is the list of names as the trace shows it.
    static Calls opening(const std::string& names);
    static Calls stateManager();
    /// When a name is picked from the list.
    static Calls picking(const std::string& name, LayerStateMask mask, const std::string& description);
    /// At OK, up to the answer whether the name is there.
    static Calls checking(const std::string& name, bool exists);
    /// The prompt, which answers 2 for cancel and 1001 for replace.
    static Calls asking(const std::string& name, int answer);
    static Calls saving(const std::string& name, LayerStateMask mask, const std::string& description,
                        const std::string& viewport = "null");
    /// After the dialog, where the export has opened it.
    static Calls restoring(const std::string& name, const std::string& viewport = "null");
    /// @}
    /// The calls since the trace was last cleared, up to the last one of `operation`.
    static Calls callsUpTo(const std::string& operation);

    /// A state of the drawing as it stands there now; none when there is none of exactly that name.
    std::optional<zdr::LayerState> stored(const std::wstring& name) const;
    std::vector<std::wstring> storedNames() const;

    /// @name Steps
    /// @{
    /// From here on the trace is empty.
    static ui::Script countFromHere();
    /// Opens the list of names and clicks the entry, the topmost of which is 0.
    static ui::Script pick(int entry);
    /// Waits until the dialog stands in front again with all of its name selected and the focus in there.
    static ui::Script nameIsSelected(const std::wstring& name);
    /// Answers a message of the dialog's that the host has refused something.
    static ui::Script refusalIsTold();
    /// @}
    static bool nameHasFocus(const ui::View& view);
    static std::vector<std::wstring> listedNames(const ui::View& view);
};
