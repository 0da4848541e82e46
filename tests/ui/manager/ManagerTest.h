// Tests of the layer states manager: the real module in a fresh host, with a small house open.
#pragma once

#include "Driver.h"
#include "HostTest.h"
#include "LayerStateMask.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

inline constexpr const wchar_t* managerName = L"KelLayerApps:LayerStatesManager";

/// The ten property boxes with their bits, in the order in which the dialog shows them.
struct BoxBit {
    int box;
    LayerStateMask bit;
};
inline constexpr std::array<BoxBit, 10> propertyBoxes = {{
    {IDC_LSTATE_RES_ON, 1},
    {IDC_LSTATE_RES_FROZEN, 2},
    {IDC_LSTATE_RES_VPFROZEN, 512},
    {IDC_LSTATE_RES_LOCKED, 4},
    {IDC_LSTATE_RES_PLOT, 8},
    {IDC_LSTATE_RES_NEWVP, 16},
    {IDC_LSTATE_RES_COLOR, 32},
    {IDC_LSTATE_RES_LINETYPE, 64},
    {IDC_LSTATE_RES_LINEWEIGHT, 128},
    {IDC_LSTATE_RES_PLOTSTYLE, 256},
}};

/// Host calls, as the lines of the trace.
using Calls = std::vector<std::string>;
Calls joined(std::initializer_list<Calls> parts);
/// What is asked for before each use of the state service.
Calls callsOfService();
/// What a change of the selection asks for, with that state as the only selected one; in model space, without a
/// description.
Calls callsOfSelection(const std::string& name, LayerStateMask mask);
/// What the list asks for when it fills the row of such a state, which is as the drawing is.
Calls callsOfRow(const std::string& name, LayerStateMask mask);

class ManagerTest : public ui::HostTest {
  protected:
    void SetUp() override;

    /// Runs LAYERSTATE and the script in it.
    bool manage(ui::Script script);
    /// A script whose only step looks at the manager as it opened, and closes it.
    void lookAtOpening(std::function<void(const ui::View&)> see);

    /// A house of four layers (Base, Walls, Doors, Pipes) whose states, from the top, are "Ground floor" (all
    /// properties; as the drawing is), "Plumbing plan" (on, colour and linetype; Walls off, Pipes in colour 5) and
    /// "Bare" (none of the properties that can be overridden in a viewport).
    static ui::TestDrawing house();
    /// A house with the site plan attached, whose states "site!Survey" and "site!Trees" stand below the house's own.
    static ui::TestDrawing houseOnSite();

    /// The mask that the boxes show.
    static LayerStateMask shownMask(const ui::View& view);
    /// Which of the dialog's controls are enabled, of those whose enabled state ever changes.
    static std::vector<int> enabledControls(const ui::View& view);
};
