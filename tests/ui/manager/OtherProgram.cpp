#include "OtherProgram.h"

bool OtherProgram::start() {
    wchar_t line[] = L"notepad.exe";
    STARTUPINFOW info{};
    info.cb = sizeof info;
    return CreateProcessW(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info, &m_process);
}

void OtherProgram::takeInput() {
    struct Search {
        DWORD process;
        HWND found;
    } search{m_process.dwProcessId, nullptr};
    EnumWindows(
        [](HWND window, LPARAM out) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(out);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process == wanted.process && IsWindowVisible(window))
                wanted.found = window;
            return !wanted.found;
        },
        reinterpret_cast<LPARAM>(&search));
    if (search.found)
        SetForegroundWindow(search.found);
}

void OtherProgram::end() {
    if (!m_process.hProcess)
        return;
    TerminateProcess(m_process.hProcess, 0);
    WaitForSingleObject(m_process.hProcess, INFINITE);
    CloseHandle(m_process.hThread);
    CloseHandle(m_process.hProcess);
    m_process = {};
}
