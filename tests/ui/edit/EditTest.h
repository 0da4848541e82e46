// Tests of the dialog that edits a state: the real module in a fresh host, with a small house open.
#pragma once

#include "ManagerTest.h"

#include <optional>

/// The list of layers, of both dialogs.
inline constexpr int grid = IDC_LAYER_GRID;

inline constexpr const wchar_t* editDialogName = L"KelLayerApps:LayerStatesEdit";

/// What the dialog asks of a layer that is open, with the other values of a new one, and its close; in a drawing with
/// named plot styles.
Calls callsOfProperties(const std::string& id, const std::string& name, const std::string& color);

class EditTest : public ManagerTest {
  protected:
    /// Opens the manager and from there the edit dialog on that state, runs the script in it, which has to end the
    /// dialog, and closes the manager. The trace holds the calls from the press of the button on.
    bool edit(const std::wstring& state, const ui::Script& script);
    /// The same on the house's first state, "Ground floor", whose rows are Pipes, Doors, Walls, Base.
    bool edit(const ui::Script& script) { return edit(L"Ground floor", script); }

    /// From here on the trace is empty.
    static ui::Script countFromHere();
    /// The names of the layers that have rows, from the top.
    static std::vector<std::wstring> rows(const ui::View& view);
    /// Drags the right border of a heading by that many pixels to the right.
    static ui::Script dragDivider(int column, int by);
    /// A state of the drawing as it is kept there now; none when there is none of that name.
    std::optional<zdr::LayerState> stored(const std::wstring& name) const;

    /// What of the drawing isn't as in that copy of it; empty when all is. The next handle may be another one.
    std::string differenceFrom(const zdr::Drawing& before) const;
};

/// The calls without those that painting makes, and without those that the pointer makes where it rests.
Calls withoutPainting(const Calls& calls);
