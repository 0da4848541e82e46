#include "DrivenProgram.h"

#include "Input.h"

#include <algorithm>
#include <cstdio>

namespace tour {

namespace {

constexpr DWORD patience = 30000;
constexpr DWORD pause = 20;

struct Search {
    DWORD process;
    const std::function<bool(HWND)>& looksRight;
    HWND found;
};

BOOL CALLBACK visit(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process || !IsWindowVisible(window) || !search.looksRight(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

// Asks again and again until `seen` answers true; false when it hasn't within the time.
bool comesTrue(const std::function<bool()>& seen) {
    const ULONGLONG start = GetTickCount64();
    while (!seen()) {
        if (GetTickCount64() - start > patience)
            return false;
        Sleep(pause);
    }
    return true;
}

// Whether that control, in a window of another program, or a part of it has the keyboard.
bool hasKeyboard(HWND control) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetForegroundWindow() == GetAncestor(control, GA_ROOT) &&
           GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &info) &&
           (info.hwndFocus == control || IsChild(control, info.hwndFocus));
}

} // namespace

DrivenProgram::DrivenProgram(const std::wstring& path) {
    std::wstring line = L"\"" + path + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        throw Disappointment("the program can't be started: error " + std::to_string(GetLastError()));
    CloseHandle(process.hThread);
    m_process = process.hProcess;
    m_id = process.dwProcessId;
    // Until the program waits for input for the first time, keys would go to a window that is still being set up.
    WaitForInputIdle(m_process, patience);
}

DrivenProgram::~DrivenProgram() {
    if (!hasEnded())
        TerminateProcess(m_process, 1);
    CloseHandle(m_process);
}

bool DrivenProgram::hasEnded() const {
    return WaitForSingleObject(m_process, 0) == WAIT_OBJECT_0;
}

HWND DrivenProgram::find(const std::function<bool(HWND)>& looksRight) const {
    Search search{m_id, looksRight, nullptr};
    EnumWindows(visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND DrivenProgram::waitForWindow(const std::string& what, const std::function<bool(HWND)>& looksRight) {
    HWND window = nullptr;
    waitUntil(what, [&] { return (window = find(looksRight)) != nullptr; });
    return window;
}

HWND DrivenProgram::waitForTitle(const std::wstring& title) {
    return waitForWindow("the window \"" + narrow(title) + "\"",
                         [&title](HWND window) { return windowText(window) == title; });
}

void DrivenProgram::waitUntil(const std::string& what, const std::function<bool()>& seen) {
    bool came = false;
    const bool waited = comesTrue([&] {
        came = seen();
        return came || hasEnded();
    });
    if (!waited)
        throw Disappointment("waited in vain for this: " + what);
    if (!came)
        throw Disappointment("the program ended before this: " + what);
}

DWORD DrivenProgram::waitForEnd() {
    if (!comesTrue([this] { return hasEnded(); }))
        throw Disappointment("waited in vain for the program's end");
    DWORD code = 0;
    GetExitCodeProcess(m_process, &code);
    return code;
}

void movePointer(POINT point) {
    if (!comesTrue([point] { return ui::pointerRestsAt(point); }))
        throw Disappointment("the pointer can't be brought to its place");
}

void clickMiddle(const RECT& rect) {
    movePointer(ui::middleOf(rect));
    ui::click();
}

void clickControl(DrivenProgram& program, HWND dialog, int control) {
    const HWND window = GetDlgItem(dialog, control);
    program.waitUntil("control " + std::to_string(control) + " is shown and enabled",
                      [window] { return IsWindowVisible(window) && IsWindowEnabled(window); });
    RECT rect{};
    GetWindowRect(window, &rect);
    clickMiddle(rect);
}

void typeInto(DrivenProgram& program, HWND control, const std::wstring& text) {
    program.waitUntil("what is to be typed into has the keyboard", [control] { return hasKeyboard(control); });
    ui::typeText(text);
    std::wstring shown;
    try {
        program.waitUntil("this and no more was typed: " + narrow(text),
                          [&] { return (shown = windowText(control)) == text; });
    } catch (const Disappointment& disappointment) {
        throw Disappointment(disappointment.what() + ("; there stands: " + narrow(shown)));
    }
}

std::wstring windowText(HWND window) {
    // GetWindowText doesn't ask a control of another process for its text; this message does.
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    const LRESULT length = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(length, 0)));
    return text;
}

std::wstring fileNameOf(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

void say(const std::wstring& what) {
    std::printf("    %s\n", narrow(what).c_str());
}

std::string narrow(const std::wstring& text) {
    std::string out(text.size() * 4, '\0');
    out.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(),
                                                     static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

} // namespace tour
