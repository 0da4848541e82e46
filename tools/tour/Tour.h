// The tour: a scripted person opens a drawing in the Workbench, makes a layer state and works with it in the manager,
// edits and exports another one, imports those of another drawing, restores a third one, and saves the drawing under
// another name; then imports what was exported into the other drawing, and opens one with states of an older layer
// tool. There are pictures on the way.
#pragma once

#include "DrivenProgram.h"
#include "ManagerVisit.h"
#include "Pictures.h"
#include "TourOptions.h"

namespace tour {

class Tour {
  public:
    explicit Tour(Options options);
    /// Throws a Disappointment, after a last picture, when something doesn't come to pass.
    void run();

  private:
    void waitForWorkbench();
    void openDrawing(const std::wstring& path);
    /// Waits until the title shows the drawing that was opened.
    void seeDrawing(const std::wstring& path);
    /// Waits for the manager that the command brings.
    ManagerVisit seeManager();
    /// Opens the manager, and ends in it with the restore.
    void workWithStates();
    /// Changes a state layer by layer, and leaves the drawing as it is.
    void editState(ManagerVisit& manager);
    void save();
    /// Imports what was exported into the other drawing.
    void takeAlong();
    /// Opens the drawing with states of an older layer tool, and sees them in the manager.
    void convertOldStates();
    void quit();
    /// Leaves the changes to the drawing unsaved, about which the Workbench asks.
    void discardChanges();
    /// Waits until a manager has ended with a restore.
    void seeRestored();
    /// Types a line into the command line and sends it off.
    void command(const std::wstring& line);
    bool titleIs(const std::wstring& path) const;

    Options m_options;
    Pictures m_pictures;
    DrivenProgram m_program;
    HWND m_main = nullptr;
};

} // namespace tour
