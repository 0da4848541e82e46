// drawing_holder: a program that has a drawing open until it is ended.
#include "files/SystemFile.h"

#include <windows.h>

#include <shellapi.h>

int main() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 2)
        return 1;
    const zdr::OpenMark mark(words[1]);
    LocalFree(words);
    WaitForSingleObject(GetCurrentProcess(), INFINITE);
}
