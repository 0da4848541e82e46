#include "Tour.h"

#include "Input.h"
#include "RemoteList.h"
#include "Screenshot.h"

#include "resource.h"
#include "window/WorkbenchIds.h"

#include <cstdio>
#include <utility>

namespace tour {

namespace {

constexpr const wchar_t* mainWindowClass = L"KelWorkbench";
// How long, and how often at the most, the tour waits for the last paint to reach the screen before it takes a picture.
constexpr DWORD paintTime = 200;
constexpr int mostLooks = 10;

std::string narrow(const std::wstring& text) {
    std::string out(text.size() * 4, '\0');
    out.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(),
                                                     static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

// Whether that control, in a window of another program, has the keyboard.
bool hasKeyboard(HWND control) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetForegroundWindow() == GetAncestor(control, GA_ROOT) &&
           GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &info) && info.hwndFocus == control;
}

std::wstring fileNameOf(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

} // namespace

Tour::Tour(Options options) : m_options(std::move(options)), m_program(m_options.workbench) {}

void Tour::run() {
    try {
        openDrawing();
        openManager();
        pickState();
        restore();
        save();
        quit();
    } catch (const Disappointment&) {
        picture(L"failed");
        throw;
    }
}

void Tour::openDrawing() {
    m_main = m_program.waitForWindow("the Workbench's main window", [](HWND window) {
        wchar_t name[64] = L"";
        GetClassNameW(window, name, 64);
        return mainWindowClass == std::wstring(name);
    });
    command(L"OPEN " + m_options.drawing);
    m_program.waitUntil("the title shows the opened drawing", [this] { return titleIs(m_options.drawing); });
    picture(L"1-drawing");
}

void Tour::openManager() {
    command(L"LAYERSTATE");
    m_manager = m_program.waitForWindow("the layer states manager", [](HWND window) {
        return GetDlgItem(window, IDC_LSTATE_RES_LIST) && GetDlgItem(window, IDC_LSTATE_RES_RESTORE);
    });
    picture(L"2-manager");
}

void Tour::pickState() {
    const RemoteList list(GetDlgItem(m_manager, IDC_LSTATE_RES_LIST));
    int row = -1;
    m_program.waitUntil("the list has the state \"" + narrow(m_options.state) + "\"",
                        [&] { return (row = list.rowOf(m_options.state)) >= 0; });
    list.scrollTo(row);
    const std::optional<RECT> cell = list.rectOf(row);
    if (!cell)
        throw Disappointment("the row of the state can't be found on the screen");
    clickMiddle(*cell);
    m_program.waitUntil("the row of the state is selected", [&] { return list.isSelected(row); });
    picture(L"3-picked");
}

void Tour::restore() {
    clickControl(m_program, m_manager, IDC_LSTATE_RES_RESTORE);
    m_program.waitUntil("the manager closes", [this] { return !IsWindow(m_manager); });
    m_program.waitUntil("the main window takes input again", [this] { return IsWindowEnabled(m_main); });
    picture(L"4-restored");
}

void Tour::save() {
    DeleteFileW(m_options.saveAs.c_str());
    command(L"SAVEAS " + m_options.saveAs);
    m_program.waitUntil("the title shows the new name", [this] { return titleIs(m_options.saveAs); });
    m_program.waitUntil("the saved file is there",
                        [this] { return GetFileAttributesW(m_options.saveAs.c_str()) != INVALID_FILE_ATTRIBUTES; });
}

void Tour::quit() {
    command(L"QUIT");
    if (const DWORD code = m_program.waitForEnd())
        throw Disappointment("the Workbench ended with code " + std::to_string(code));
}

void Tour::command(const std::wstring& line) {
    const HWND edit = GetDlgItem(GetDlgItem(m_main, IDC_COMMAND_PANE), IDC_COMMAND_EDIT);
    m_program.waitUntil("the command line is there", [edit] { return IsWindowVisible(edit); });
    RECT rect{};
    GetWindowRect(edit, &rect);
    clickMiddle(rect);
    m_program.waitUntil("the command line has the keyboard", [edit] { return hasKeyboard(edit); });
    ui::typeText(line);
    m_program.waitUntil("the command line shows what was typed", [&] { return windowText(edit) == line; });
    ui::pressKey(VK_RETURN);
    std::printf("  %s\n", narrow(line).c_str());
}

bool Tour::titleIs(const std::wstring& path) const {
    return windowText(m_main).starts_with(fileNameOf(path) + L" - ");
}

void Tour::picture(const std::wstring& name) const {
    // Painting counts as done when the screen looks the same twice in a row. A blinking caret never lets it, so the
    // number of looks is limited.
    std::vector<char> before, now = ui::screenBytes();
    for (int looks = 0; now != before && looks < mostLooks; ++looks) {
        Sleep(paintTime);
        before = std::exchange(now, ui::screenBytes());
    }
    const std::wstring path = m_options.shots + L"\\" + name + L".bmp";
    if (!ui::saveScreenshot(path))
        std::fprintf(stderr, "tour: %s can't be written\n", narrow(path).c_str());
}

} // namespace tour
