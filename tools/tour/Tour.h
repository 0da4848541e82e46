// The tour: a scripted person opens a drawing in the Workbench, restores a layer state of it, and saves it under
// another name, with pictures on the way.
#pragma once

#include "DrivenProgram.h"
#include "TourOptions.h"

namespace tour {

class Tour {
  public:
    explicit Tour(Options options);
    /// Throws a Disappointment, after a last picture, when something doesn't come to pass.
    void run();

  private:
    void openDrawing();
    void openManager();
    void pickState();
    void restore();
    void save();
    void quit();
    /// Types a line into the command line and sends it off.
    void command(const std::wstring& line);
    bool titleIs(const std::wstring& path) const;
    void picture(const std::wstring& name) const;

    Options m_options;
    DrivenProgram m_program;
    HWND m_main = nullptr;
    HWND m_manager = nullptr;
};

} // namespace tour
