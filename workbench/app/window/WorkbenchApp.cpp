#include "WorkbenchApp.h"

#include "CommandLineOutput.h"
#include "ModulePath.h"
#include "StartOptions.h"

#include <commctrl.h>
#include <shellapi.h>

namespace workbench {

namespace {

WorkbenchApp g_app;

constexpr const wchar_t* kModule = L"KelLayerApps";

std::vector<std::wstring> commandLineWords() {
    int count = 0;
    wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::wstring> out(words + 1, words + count);
    ::LocalFree(words);
    return out;
}

void reportAbort(const std::wstring& text) {
    ::MessageBoxW(nullptr, text.c_str(), L"Kel Workbench", MB_OK | MB_ICONERROR | MB_TASKMODAL);
}

} // namespace

WorkbenchApp::WorkbenchApp() : CWinApp(L"Kel Workbench") {}

BOOL WorkbenchApp::InitInstance() {
    CWinApp::InitInstance();
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    ::InitCommonControlsEx(&controls);
    runtime::setAbortHandler(reportAbort);

    const StartOptions options = parseStartOptions(commandLineWords());
    m_window = std::make_unique<MainWindow>();
    if (!m_window->createWindow())
        return FALSE;
    m_pMainWnd = m_window.get();
    m_window->tell(L"Kel Workbench. HELP lists the commands.");
    if (!options.error.empty())
        m_window->tell(options.error);
    loadModule(options.module.empty() ? modulePath(kModule) : options.module);
    m_window->showAtSavedPlace(m_nCmdShow);

    std::vector<std::wstring> lines = startLines(options);
    if (options.isBatch())
        m_window->runLater(std::move(lines), options.keepsGoing);
    else if (!lines.empty())
        m_window->typeLater(lines.front());
    return TRUE;
}

void WorkbenchApp::loadModule(const std::wstring& path) {
    if (const std::wstring problem = m_window->modules().load(path); !problem.empty())
        m_window->tell(problem);
}

int WorkbenchApp::ExitInstance() {
    // The modules go first: they may still use the drawing, and the window's session owns it.
    m_window->modules().unloadAll();
    m_pMainWnd = nullptr;
    m_window.reset();
    return CWinApp::ExitInstance();
}

} // namespace workbench
