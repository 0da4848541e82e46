// The host's main window is the application's.

#include "OrvUiServices.h"

#include "instruments/HostCalls.h"

HWND orvsw_vornMainWnd() {
    instruments::HostCall call("orvsw_vornMainWnd");
    const CWinApp* application = AfxGetApp();
    const CWnd* window = application ? application->m_pMainWnd : nullptr;
    const HWND handle = window ? window->GetSafeHwnd() : nullptr;
    call.answer(static_cast<const void*>(handle));
    return handle;
}
