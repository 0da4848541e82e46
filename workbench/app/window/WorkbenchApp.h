// The program: what its command line asks for, its modules, its main window.
#pragma once

#include "MainWindow.h"
#include "ModuleLoader.h"

namespace workbench {

class WorkbenchApp : public CWinApp {
  public:
    WorkbenchApp();
    BOOL InitInstance() override;
    int ExitInstance() override;

  private:
    void loadModule(const std::wstring& path);

    std::unique_ptr<MainWindow> m_window;
    runtime::ModuleLoader m_modules;
};

} // namespace workbench
