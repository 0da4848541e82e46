// Runs the tests with an application object, as the Workbench itself has one.

#include <afxwin.h>
#include <gtest/gtest.h>

namespace {

class TestApp : public CWinApp {};
TestApp g_app;

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!AfxWinInit(GetModuleHandle(nullptr), nullptr, GetCommandLine(), SW_SHOWNORMAL))
        return 1;
    return RUN_ALL_TESTS();
}
