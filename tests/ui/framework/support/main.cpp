// The test program is an MFC application whose own resources are the current ones.

#include <afxwin.h>

#include <gmock/gmock.h>

namespace {

CWinApp theApp;

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOW))
        return 3;
    return RUN_ALL_TESTS();
}
