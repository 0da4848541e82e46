// The test program is an MFC application whose own resources are the current ones. Started with --opened, it plays the
// program that opens help pages: it notes the page and ends.

#include <afxwin.h>

#include <gmock/gmock.h>

namespace {

CWinApp theApp;

int notePage(const wchar_t* page) {
    const HANDLE file =
        CreateFileW(L"framework-tests-opened.txt", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, page, static_cast<DWORD>(wcslen(page) * sizeof *page), &written, nullptr);
    CloseHandle(file);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string_view(argv[1]) == "--opened")
        return notePage(std::wstring(argv[2], argv[2] + strlen(argv[2])).c_str());
    testing::InitGoogleMock(&argc, argv);
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOW))
        return 3;
    return RUN_ALL_TESTS();
}
