#include "ChildProgram.h"

#include "files/TextCoding.h"

#include <windows.h>

#include <system_error>

namespace {
constexpr UINT kKilled = 0xDEAD;
}

ChildProgram::ChildProgram(const std::string& name, const std::vector<std::wstring>& arguments) {
    // Beside the test itself; the paths of tests hold no quotes.
    std::wstring self(MAX_PATH, L'\0');
    self.resize(GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
    const std::wstring program = self.substr(0, self.rfind(L'\\') + 1) + zdr::fromUtf8(name).value() + L".exe";
    std::wstring line = L"\"" + program + L"\"";
    for (const std::wstring& argument : arguments)
        line += L" \"" + argument + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "can't start " + name);
    CloseHandle(process.hThread);
    m_process = reinterpret_cast<std::intptr_t>(process.hProcess);
}

ChildProgram::~ChildProgram() {
    kill();
}

std::string ChildProgram::end() {
    const HANDLE process = reinterpret_cast<HANDLE>(m_process);
    DWORD code = 0;
    if (WaitForSingleObject(process, 0) != WAIT_OBJECT_0 || !GetExitCodeProcess(process, &code))
        return {};
    return "status " + std::to_string(code);
}

bool ChildProgram::kill() {
    if (m_process == 0)
        return false;
    const HANDLE process = reinterpret_cast<HANDLE>(m_process);
    m_process = 0;
    TerminateProcess(process, kKilled);
    WaitForSingleObject(process, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return code == kKilled;
}
