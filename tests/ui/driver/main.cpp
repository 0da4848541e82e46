// The program around tests of windows: an MFC program with Google Test for its run.

#include <afxwin.h>

#include <gmock/gmock.h>

namespace {
CWinApp theProgram;
} // namespace

int main(int count, char** words) {
    testing::InitGoogleMock(&count, words);
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOWNORMAL))
        return 2;
    return RUN_ALL_TESTS();
}
