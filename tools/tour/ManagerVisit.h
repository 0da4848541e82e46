// What the scripted person does in the layer states manager, up to the restore that closes it.
#pragma once

#include "DrivenProgram.h"
#include "EditVisit.h"
#include "Pictures.h"
#include "RemoteList.h"

#include <string>
#include <vector>

namespace tour {

/// The manager, open in the driven program. Each action is seen to succeed by what the list then shows, and is
/// photographed; what doesn't come to pass throws a Disappointment.
class ManagerVisit {
  public:
    ManagerVisit(DrivenProgram& program, HWND manager, Pictures& pictures);

    /// Saves the layers as they are under a name that is free.
    void makeState(const std::wstring& name, const std::wstring& description);
    /// Renames the selected state.
    void rename(const std::wstring& newName);
    /// Writes a description into the cell of the selected state.
    void describe(const std::wstring& description);
    /// Clicks the heading of the names and looks at their order.
    void sortByName();
    /// Deletes the selected state and says yes to the question.
    void deleteSelected();
    void pick(const std::wstring& name);
    /// Opens the edit dialog on the selected state.
    EditVisit edit();
    /// Writes the selected state into a layer states file of that path.
    void exportTo(const std::wstring& path);
    /// Imports from a drawing what is ticked for being missing here, and also one state whose name is taken here. That
    /// one is seen to have another description than before.
    void importFromDrawing(const std::wstring& path, const std::wstring& replaced);
    /// Imports a layer states file and has its state restored at once, which ends the manager.
    void importAndRestore(const std::wstring& path);
    /// Restores the selected state, and waits until the manager is gone.
    void restore();
    void close();
    std::vector<std::wstring> names() const;

  private:
    /// The name of the selected row; throws when there isn't just one.
    std::wstring selectedName() const;
    /// Clicks a cell of the row of that name, scrolled into view.
    void clickCell(const std::wstring& name, int column);
    /// Presses a button that opens a file dialog, and answers it with the path after a picture.
    void chooseFile(int button, const std::wstring& path, const std::wstring& picture);
    /// Ticks the row of a state, and confirms all that is ticked.
    /// @return the names of these states
    std::vector<std::wstring> chooseStates(HWND dialog, const std::wstring& ticked);
    std::wstring description(const std::wstring& name) const;
    /// Waits until the list has a row of that name, with that description, selected.
    void waitForSelectedRow(const std::wstring& name, const std::wstring& description);

    DrivenProgram& m_program;
    HWND m_manager;
    HWND m_listWindow;
    RemoteList m_list;
    Pictures& m_pictures;
};

} // namespace tour
