// Tests of the migration: the real module in a fresh host, with a drawing that holds states of the older layer tool.
#pragma once

// First, since it names some of the ids that resource.h names too.
#include <afxwin.h>

#include "Driver.h"
#include "HostTest.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

/// Host calls, as the lines of the trace.
using Calls = std::vector<std::string>;

class MigrationTest : public ui::HostTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Opens a drawing of Base and Walls with so many states of the older tool, named PLAN1, PLAN2 and so on, in which
    /// Walls has the colours 1, 2 and so on; it has colour 7 in the drawing.
    void openWithLegacyStates(int count);
    /// The colour of Walls.
    int wallsColor() const;
    void setWallsColor(int color);
    /// The names of the drawing's layer states, from the top.
    std::vector<std::wstring> stateNames() const;
    /// The states of the older tool that are still in the layers.
    std::vector<std::wstring> legacyNames() const;

    /// Runs LAYERSTATE and the script in it. The trace holds its calls.
    bool runLayerState(ui::Script script);
    /// What the message says of so many states of the older tool where there is no add-on.
    static std::wstring messageOf(int count);
    /// Reads the message, which must be `text`, and confirms it.
    static ui::Script confirm(const std::wstring& text);
    /// Closes the manager once it is open.
    static ui::Script closeManager();
    /// The trace without the line that finds the command.
    static Calls callsOfCommand();

    /// Gives back the chains that a walk over the layers keeps on purpose: it releases the one of the last layer alone.
    static void releaseKeptChains();
};
