// Tests of the import selection: the dialog on its own, over files that a test saves, with a small house open.
#pragma once

#include "CLayerStatesImportDlg.h"
#include "Driver.h"
#include "HostTest.h"
#include "TemporaryFolder.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

/// Host calls, as the lines of the trace.
using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

inline constexpr const wchar_t* kImportDialog = L"KelLayerApps:ImportLayerStates";

class ImportDialogTest : public ui::HostTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// A drawing with states of those names, each as the drawing is.
    static ui::TestDrawing withStates(const Texts& names);
    /// The names "S00", "S01" and so on.
    static Texts numbered(int count);

    std::wstring file(const std::wstring& name) const { return m_folder.file(name); }
    /// Opens the dialog over a file, runs the script in it, and answers what DoModal does; `chosen` has the names then.
    INT_PTR chooseFrom(const std::wstring& path, const ui::Script& script);
    /// The same over a file that holds the drawing. The trace holds the calls from the dialog's making on.
    INT_PTR choose(const ui::TestDrawing& offered, const ui::Script& script);
    Texts chosen;

    /// The rows with a tick.
    static std::vector<int> tickedRows(const ui::View& view);
    static Texts tickedNames(const ui::View& view);
    /// Ticks or clears a row, as the list itself does at a click on its box.
    static void setTick(const ui::View& view, int row, bool on);
    /// Gives exactly these rows the selection, and one the focus; -1 gives none the focus.
    static void select(const ui::View& view, const std::vector<int>& rows, int focused);

    /// @name Steps
    /// @{
    /// Clicks the box of a row.
    static ui::Script clickBox(int row, unsigned held = ui::holdNothing);
    /// Waits until the dialog is in front.
    static ui::Script untilInFront();
    static ui::Script look(std::string what, std::function<void(const ui::View&)> see);
    static ui::Script expectTicked(const std::vector<int>& rows);
    /// @}

    static constexpr int kList = IDC_LSTATE_IMPORT_LIST;

  private:
    TemporaryFolder m_folder;
};
