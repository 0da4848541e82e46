#include "Monkey.h"

#include "Input.h"
#include "View.h"
#include "resources/resource.h"

#include <array>
#include <vector>

namespace {

// After so many actions in one dialog the monkey closes it.
constexpr int kMostInDialog = 40;
constexpr int kHelpButton = 9; // IDHELP
constexpr int kMfcHelpButton = 0xE146;

/// What opens the dialog that edits a state, and from there the one that adds layers. Random clicks alone hardly get
/// that far.
constexpr std::array kOpeners{IDC_LSTATE_RES_EDIT, IDC_ADD_LAYERS};

struct Key {
    WORD key;
    unsigned held;
};
constexpr std::array kMainKeys{
    Key{VK_TAB, 0},   Key{VK_UP, 0},     Key{VK_DOWN, 0}, Key{VK_RETURN, 0}, Key{VK_ESCAPE, 0},   Key{VK_LEFT, 4},
    Key{VK_RIGHT, 4}, Key{VK_UP, 4},     Key{VK_NEXT, 2}, Key{VK_PRIOR, 2},  Key{VK_F5, 0},       Key{VK_F1, 0},
    Key{'E', 2},      Key{'L', 2},       Key{'Z', 3},     Key{'Y', 3},       Key{VK_OEM_PLUS, 2}, Key{VK_OEM_MINUS, 2},
    Key{VK_BACK, 0},  Key{VK_DELETE, 0}, Key{VK_HOME, 0}, Key{VK_LEFT, 0},   Key{'Z', 2},         Key{VK_F10, 0},
    Key{VK_F6, 0},    Key{VK_PRIOR, 0},  Key{VK_NEXT, 0}, Key{'A', 2},       Key{'C', 2},         Key{'V', 2},
};
constexpr std::array kDialogKeys{
    Key{VK_TAB, 0},   Key{VK_TAB, 1},   Key{VK_UP, 0},     Key{VK_DOWN, 0}, Key{VK_RETURN, 0}, Key{VK_ESCAPE, 0},
    Key{VK_SPACE, 0}, Key{VK_F2, 0},    Key{VK_DELETE, 0}, Key{VK_HOME, 0}, Key{VK_END, 0},    Key{VK_NEXT, 0},
    Key{VK_LEFT, 0},  Key{VK_RIGHT, 0}, Key{VK_DOWN, 1},   Key{VK_F1, 0},
};

bool isOfClass(HWND window, const wchar_t* name) {
    wchar_t text[64] = L"";
    GetClassNameW(window, text, 64);
    return std::wstring(text) == name;
}

/// The system's file dialog reaches every file there is, so a monkey only closes it.
bool isFileDialog(HWND window) {
    for (const HWND child : ui::visibleControls(window))
        if (isOfClass(child, L"SHELLDLL_DefView"))
            return true;
    return false;
}

bool isPushButton(HWND control) {
    const LONG_PTR kind = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
    return isOfClass(control, L"Button") && (kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON);
}

bool opensHelp(HWND control) {
    const int id = GetDlgCtrlID(control);
    return id == kHelpButton || id == kMfcHelpButton || ui::textOf(control).find(L"elp") != std::wstring::npos;
}

void sendMouse(DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    SendInput(1, &input, sizeof input);
}

/// Moves the pointer there without waiting: a monkey doesn't need to know that it has arrived.
void pointAt(POINT point) {
    SetCursorPos(point.x, point.y);
}

} // namespace

Monkey::Monkey(unsigned seed, std::wstring folder, std::FILE* log)
    : m_random(seed), m_nonsense(m_random, std::move(folder)), m_log(log) {}

void Monkey::note(const std::string& what) {
    ++m_actions;
    std::fprintf(m_log, "%ld %s\n", m_actions, what.c_str());
    std::fflush(m_log);
}

void Monkey::act(HWND mainWindow) {
    const HWND front = GetActiveWindow();
    if (!front)
        return;
    if (front == mainWindow)
        actOnMain(front);
    else
        actOnDialog(front);
}

void Monkey::leave(HWND mainWindow) {
    // A menu that is open takes the input first.
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE)) {
        note("leave the menu");
        ui::pressKey(VK_ESCAPE);
        return;
    }
    const HWND front = GetActiveWindow();
    if (!front || !IsWindowVisible(front))
        return;
    note("leave " + ui::narrow(ui::textOf(front)));
    if (const HWND no = GetDlgItem(front, IDNO); no && front != mainWindow)
        PostMessageW(front, WM_COMMAND, IDNO, reinterpret_cast<LPARAM>(no));
    else if (front != mainWindow && below(2) == 0)
        PostMessageW(front, WM_COMMAND, IDCANCEL, 0);
    else
        PostMessageW(front, WM_CLOSE, 0, 0);
}

bool Monkey::openNextDialog() {
    constexpr int kOpenedInTurn[] = {IDC_LSTATE_RES_NEW,    IDC_LSTATE_RES_EDIT,   IDC_ADD_LAYERS,
                                     IDC_LSTATE_RES_IMPORT, IDC_LSTATE_RES_EXPORT, IDC_LSTATE_RES_DELETE};
    const HWND front = GetActiveWindow();
    // A dialog that is just being opened has disabled the one before it, but isn't active yet.
    if (!IsWindowEnabled(front))
        return true;
    const HWND button = m_opened < std::size(kOpenedInTurn) ? GetDlgItem(front, kOpenedInTurn[m_opened]) : nullptr;
    if (!button)
        return false;
    // All but the first of the manager's buttons are for a state that is selected.
    if (const HWND list = GetDlgItem(front, IDC_LSTATE_RES_LIST))
        ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    note("open what " + ui::narrow(ui::textOf(button)) + " opens");
    PostMessageW(front, WM_COMMAND, static_cast<WPARAM>(kOpenedInTurn[m_opened++]), reinterpret_cast<LPARAM>(button));
    return true;
}

void Monkey::openSomeDialog(HWND window) {
    const int button = kOpeners[below(kOpeners.size())];
    const HWND control = GetDlgItem(window, button);
    if (!control || !IsWindowEnabled(control) || !IsWindowEnabled(window))
        return;
    note("press " + std::to_string(button) + " of " + ui::narrow(ui::textOf(window)));
    PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(button), reinterpret_cast<LPARAM>(control));
}

void Monkey::actOnMain(HWND window) {
    switch (below(10)) {
    case 0:
    case 1:
    case 2:
    case 3:
        typeLine();
        break;
    case 4:
    case 5:
        pressSomeKey();
        break;
    default:
        useMouse(window);
    }
}

void Monkey::actOnDialog(HWND window) {
    m_patience = window == m_front ? m_patience + 1 : 0;
    m_front = window;
    if (m_patience > kMostInDialog || isFileDialog(window)) {
        leave(nullptr);
        return;
    }
    switch (below(12)) {
    case 11:
        openSomeDialog(window);
        break;
    case 0: {
        const std::wstring word = m_nonsense.word();
        note("type " + ui::narrow(word));
        ui::typeText(word);
        break;
    }
    case 1: {
        const std::wstring name = m_nonsense.name();
        note("type the name " + ui::narrow(name));
        ui::typeText(name);
        ui::pressKey(VK_RETURN);
        break;
    }
    case 2:
    case 3:
        clickSomeControl(window, isPushButton);
        break;
    case 4:
    case 5:
    case 6: {
        const Key& key = kDialogKeys[below(kDialogKeys.size())];
        note("press " + std::to_string(key.key) + " in " + ui::narrow(ui::textOf(window)));
        ui::pressKey(key.key, key.held);
        break;
    }
    default:
        clickSomeControl(window, [](HWND) { return true; });
    }
}

void Monkey::typeLine() {
    const std::wstring line = m_nonsense.line();
    note("line " + ui::narrow(line));
    ui::pressKey(VK_ESCAPE);
    ui::typeText(line);
    ui::pressKey(VK_RETURN);
}

void Monkey::pressSomeKey() {
    const Key& key = kMainKeys[below(kMainKeys.size())];
    note("press " + std::to_string(key.key) + " with " + std::to_string(key.held));
    ui::pressKey(key.key, key.held);
}

void Monkey::useMouse(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    // Not the caption, whose buttons would minimise the window, nor the borders.
    const int top = rect.top + GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYSIZEFRAME);
    const POINT point{rect.left + 10 + static_cast<LONG>(below(static_cast<std::size_t>(rect.right - rect.left - 20))),
                      top + static_cast<LONG>(below(static_cast<std::size_t>(rect.bottom - top - 10)))};
    const std::size_t kind = below(6);
    note("mouse " + std::to_string(kind) + " at " + std::to_string(point.x) + "," + std::to_string(point.y));
    pointAt(point);
    switch (kind) {
    case 0:
        sendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>((static_cast<int>(below(7)) - 3) * WHEEL_DELTA));
        break;
    case 1:
        sendMouse(MOUSEEVENTF_MIDDLEDOWN);
        pointAt({point.x + static_cast<LONG>(below(200)) - 100, point.y + static_cast<LONG>(below(200)) - 100});
        sendMouse(MOUSEEVENTF_MIDDLEUP);
        break;
    case 2:
        sendMouse(MOUSEEVENTF_RIGHTDOWN);
        sendMouse(MOUSEEVENTF_RIGHTUP);
        break;
    case 3:
        sendMouse(MOUSEEVENTF_LEFTDOWN);
        sendMouse(MOUSEEVENTF_LEFTUP);
        [[fallthrough]];
    default:
        sendMouse(MOUSEEVENTF_LEFTDOWN);
        sendMouse(MOUSEEVENTF_LEFTUP);
    }
}

void Monkey::clickSomeControl(HWND window, bool (*isMeant)(HWND)) {
    std::vector<HWND> controls = ui::visibleControls(window);
    std::erase_if(controls, [isMeant](HWND control) { return !isMeant(control); });
    if (controls.empty())
        return;
    const HWND control = controls[below(controls.size())];
    if (opensHelp(control))
        return;
    RECT rect{};
    GetWindowRect(control, &rect);
    const auto within = [this](LONG from, LONG to) {
        return to > from ? from + static_cast<LONG>(below(static_cast<std::size_t>(to - from))) : from;
    };
    note("click control " + std::to_string(GetDlgCtrlID(control)) + " of " + ui::narrow(ui::textOf(window)));
    pointAt({within(rect.left, rect.right), within(rect.top, rect.bottom)});
    const std::size_t times = below(4) == 0 ? 2 : 1;
    for (std::size_t i = 0; i < times; ++i) {
        sendMouse(MOUSEEVENTF_LEFTDOWN);
        sendMouse(MOUSEEVENTF_LEFTUP);
    }
}
