// The program: what its command line asks for, and its main window.
#pragma once

#include "MainWindow.h"

namespace workbench {

class WorkbenchApp : public CWinApp {
  public:
    WorkbenchApp();
    BOOL InitInstance() override;
    int ExitInstance() override;

  private:
    void loadModule(const std::wstring& path);

    std::unique_ptr<MainWindow> m_window;
};

} // namespace workbench
