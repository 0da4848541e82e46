// The list of states in a small dialog of its own, where its inner state can be seen.
#pragma once

#include "CLayerStateListCtrl.h"
#include "Driver.h"
#include "HostTest.h"
#include "ListDialogIds.h"
#include "instruments/HostCalls.h"
#include "resource.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

/// Host calls, as the lines of the trace.
using Calls = std::vector<std::string>;

/// One notification that the list has got back from its parent.
struct Notification {
    UINT code;
    LRESULT answer;
    /// It has ended at the list.
    bool ended;

    bool operator==(const Notification&) const = default;
};
void PrintTo(const Notification& notification, std::ostream* out);

/// A list that shows its inner state, and notes what happens to it.
class OpenList : public CLayerStateListCtrl {
  public:
    using CLayerStateListCtrl::m_activeEdit;
    using CLayerStateListCtrl::m_cellEditEnabled;
    using CLayerStateListCtrl::m_editColumn;
    using CLayerStateListCtrl::m_editRow;
    using CLayerStateListCtrl::m_inPlaceEdit;
    using CLayerStateListCtrl::m_sortAscending;
    using CLayerStateListCtrl::m_sortColumn;

    bool isEditorShown() const { return m_inPlaceEdit.m_hWnd && m_inPlaceEdit.IsWindowVisible(); }
    CString editorText() const;
    /// The texts of a column, from the top.
    std::vector<std::wstring> column(int index) const;

    /// Called before each message that the list gets.
    std::function<void(UINT message, WPARAM wParam, LPARAM lParam)> onMessage = [](UINT, WPARAM, LPARAM) {};
    /// The list's own notifications of clicks and changes.
    std::vector<Notification> notifications;
    /// The codes of the editor's notifications.
    std::vector<UINT> editorCodes;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

class ListTest : public ui::HostTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// The states "alpha", "Beta" and "gamma", of which "Beta" is described as "for the plan", and below them
    /// "site!Survey" of an attached reference.
    static ui::TestDrawing fourStates();
    /// Opens a dialog over the states of the open drawing, with the manager's columns or, without comparison, the three
    /// of an import, and runs the script in it. A last click closes the dialog.
    bool show(ui::Script script, bool compareToDrawing = true);
    /// Shows the drawing's states, and runs `see` when the dialog has opened and the host's calls so far are forgotten.
    void lookAt(const ui::TestDrawing& drawing, std::function<void()> see);

    /// Clicks a cell of the list twice, first in the name column, so that its editor opens if it may be edited.
    static ui::Script openCell(int row, int column);
    /// Runs `see` in the open dialog.
    static ui::Script look(std::string what, std::function<void()> see);

    OpenList m_list;
};

/// What is asked for before each use of the state service, then the other lines.
Calls withService(const Calls& calls);
