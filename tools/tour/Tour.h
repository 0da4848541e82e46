// The tour: a scripted person opens a drawing in the Workbench, makes a layer state and works with it in the manager,
// edits another one, restores a third one, and saves the drawing under another name, with pictures on the way.
#pragma once

#include "DrivenProgram.h"
#include "Pictures.h"
#include "TourOptions.h"

namespace tour {

class ManagerVisit;

class Tour {
  public:
    explicit Tour(Options options);
    /// Throws a Disappointment, after a last picture, when something doesn't come to pass.
    void run();

  private:
    void openDrawing();
    /// Opens the manager, and ends in it with the restore.
    void workWithStates();
    /// Changes a state layer by layer, and leaves the drawing as it is.
    void editState(ManagerVisit& manager);
    void save();
    void quit();
    /// Types a line into the command line and sends it off.
    void command(const std::wstring& line);
    bool titleIs(const std::wstring& path) const;

    Options m_options;
    Pictures m_pictures;
    DrivenProgram m_program;
    HWND m_main = nullptr;
};

} // namespace tour
