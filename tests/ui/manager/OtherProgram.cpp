#include "OtherProgram.h"

namespace {

/// A visible window of the process; null while it has none.
HWND windowOf(DWORD process) {
    struct Search {
        DWORD process;
        HWND found;
    } search{process, nullptr};
    EnumWindows(
        [](HWND window, LPARAM out) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(out);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == wanted.process && IsWindowVisible(window))
                wanted.found = window;
            return !wanted.found;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

OtherProgram::OtherProgram() : m_over(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

OtherProgram::~OtherProgram() {
    end();
    CloseHandle(m_over);
}

bool OtherProgram::start() {
    wchar_t line[] = L"notepad.exe";
    STARTUPINFOW info{};
    info.cb = sizeof info;
    if (!CreateProcessW(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info, &m_process))
        return false;
    ResetEvent(m_over);
    m_thread = std::thread([this] {
        constexpr DWORD kPeriod = 100;
        while (WaitForSingleObject(m_over, kPeriod) == WAIT_TIMEOUT)
            if (const HWND window = windowOf(m_process.dwProcessId))
                SetForegroundWindow(window);
    });
    return true;
}

void OtherProgram::end() {
    if (!m_process.hProcess)
        return;
    SetEvent(m_over);
    m_thread.join();
    TerminateProcess(m_process.hProcess, 0);
    WaitForSingleObject(m_process.hProcess, INFINITE);
    CloseHandle(m_process.hThread);
    CloseHandle(m_process.hProcess);
    m_process = {};
}
