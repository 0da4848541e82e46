// Plays the program that opens help pages: notes the page, in the file that its first argument names, and ends. It has
// no console and no window, because either would take the input away from the tests.

#include <windows.h>

#include <shellapi.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 3)
        return 1;
    const HANDLE file = CreateFileW(arguments[1], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, arguments[2], static_cast<DWORD>(wcslen(arguments[2]) * sizeof(wchar_t)), &written, nullptr);
    CloseHandle(file);
    return 0;
}
