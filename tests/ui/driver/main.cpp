// The program around tests of windows: an MFC program with Google Test for its run.

#include <afxwin.h>

#include "instruments/HostCalls.h"

#include <gmock/gmock.h>

namespace {

class Program : public CWinApp {
  public:
    // In the trace, so that tests see what runs under the wait cursor: 1 shows it, -1 hides it.
    void DoWaitCursor(int code) override {
        const instruments::HostCall call("DoWaitCursor", code);
        CWinApp::DoWaitCursor(code);
    }
};

Program theProgram;

} // namespace

int main(int count, char** words) {
    testing::InitGoogleMock(&count, words);
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWNORMAL))
        return 2;
    return RUN_ALL_TESTS();
}
