// The system has a documented way to look into a file dialog (OFN_ENABLEHOOK), but gives such a dialog the look of an
// old system. So its window is subclassed here from outside, which leaves it as it is; if a future system builds its
// dialog in another way, the box with the name isn't found here, and the dialog refuses an address as it refuses any
// bad name.

#include "TypedAddress.h"

#include "RemoteAddress.h"
#include "base/OutOfMemory.h"

#include <commctrl.h>
#include <dlgs.h>

#include <cwchar>

using remote::AddressKind;

namespace framework {
namespace {

constexpr UINT_PTR kSubclass = 1;

// The object that set the hook last: a hook isn't told who set it. One is enough, because only the thread of the user
// interface opens dialogs, one inside the other.
TypedAddress* g_innermost = nullptr;

bool isOfClass(HWND window, const wchar_t* name) {
    wchar_t actual[64] = {};
    GetClassNameW(window, actual, static_cast<int>(std::size(actual)));
    return std::wcscmp(actual, name) == 0;
}

BOOL CALLBACK findNameToSave(HWND window, LPARAM found) {
    const HWND combo = GetParent(window);
    if (!isOfClass(window, L"Edit") || !isOfClass(combo, L"ComboBox") ||
        !isOfClass(GetParent(combo), L"FloatNotifySink"))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// Where the file name is typed: an edit box, one within a combo box, or, where today's Windows saves, the only edit
/// box within the frame of a combo box.
HWND nameBox(HWND dialog) {
    HWND box = GetDlgItem(dialog, edt1);
    if (const HWND extended = GetDlgItem(dialog, cmb13)) {
        const HWND combo = FindWindowExW(extended, nullptr, L"ComboBox", nullptr);
        const HWND inner = FindWindowExW(combo ? combo : extended, nullptr, L"Edit", nullptr);
        box = inner ? inner : box;
    }
    if (!box)
        EnumChildWindows(dialog, findNameToSave, reinterpret_cast<LPARAM>(&box));
    return box;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

std::wstring trimmed(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == std::wstring::npos ? std::wstring() : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

/// Windows goes to one of its folders where "shell:" and the folder's name is typed.
bool namesPlaceOfSystem(const std::wstring& name) {
    constexpr std::wstring_view kShell = L"shell:";
    return _wcsnicmp(name.c_str(), kShell.data(), kShell.size()) == 0;
}

} // namespace

TypedAddress::TypedAddress(HWND owner, const wchar_t* title)
    : m_owner(owner), m_title(title), m_hook(SetWindowsHookExW(WH_CBT, onHook, nullptr, GetCurrentThreadId())),
      m_outer(g_innermost) {
    g_innermost = this;
}

TypedAddress::~TypedAddress() {
    unhook();
    if (m_dialog)
        RemoveWindowSubclass(m_dialog, onMessage, kSubclass);
    g_innermost = m_outer;
}

LRESULT CALLBACK TypedAddress::onHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && isOfClass(window, L"#32770") && GetWindow(window, GW_OWNER) == g_innermost->m_owner)
        g_innermost->watch(window);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void TypedAddress::watch(HWND dialog) {
    if (SetWindowSubclass(dialog, onMessage, kSubclass, reinterpret_cast<DWORD_PTR>(this)))
        m_dialog = dialog;
    unhook();
}

void TypedAddress::unhook() {
    if (m_hook)
        UnhookWindowsHookEx(m_hook);
    m_hook = nullptr;
}

LRESULT CALLBACK TypedAddress::onMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR self) {
    auto& address = *reinterpret_cast<TypedAddress*>(self);
    if (message == WM_NCDESTROY) {
        address.m_dialog = nullptr;
        RemoveWindowSubclass(dialog, onMessage, kSubclass);
    } else if (message == WM_COMMAND && LOWORD(wParam) == IDOK &&
               answerOr(false, [&] { return address.takes(dialog); })) {
        // Cancel is a way out that every build of the system's dialog has.
        return address.m_text.empty() ? 0 : DefSubclassProc(dialog, WM_COMMAND, IDCANCEL, 0);
    }
    return DefSubclassProc(dialog, message, wParam, lParam);
}

bool TypedAddress::takes(HWND dialog) {
    const HWND box = nameBox(dialog);
    const std::wstring name = box ? trimmed(textOf(box)) : std::wstring();
    const remote::ParsedAddress parsed = remote::parseAddress(name);
    if (name.empty() || parsed.kind == AddressKind::Local || namesPlaceOfSystem(name))
        return false;
    if (parsed.kind == AddressKind::Remote) {
        m_text = name;
        return true;
    }
    const std::wstring sentences = remote::sentencesAbout(name, parsed.cause, remote::adviceOn(parsed.kind));
    MessageBoxW(dialog, sentences.c_str(), m_title, MB_OK | MB_ICONEXCLAMATION);
    return true;
}

} // namespace framework
