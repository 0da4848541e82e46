// The creation hook is a WH_CBT hook: it sees a window before the window's first message, so that a
// C++ object misses none.

#include "ThreadState.h"

#include <afxcmn.h>

#include <new>

namespace kelmfc {

namespace {

// The system may create windows of its own for input methods before the one that was asked for.
bool isInputMethodWindow(HWND window) {
    wchar_t name[32] = {};
    ::GetClassName(window, name, 32);
    return _wcsicmp(name, L"IME") == 0 || _wcsicmp(name, L"MSCTFIME UI") == 0;
}

/// False when the object's handler threw; it gets no window then. The exception can't go on: Windows is the caller.
bool adopts(CWnd* window, HWND handle) {
    try {
        CWndInternals::adopt(window, handle);
        return true;
    } catch (CException* exception) {
        exception->Delete();
    } catch (const std::bad_alloc&) {
        // The caller learns it from there being no window, as above.
    }
    window->Detach();
    return false;
}

LRESULT CALLBACK creationHook(int code, WPARAM wParam, LPARAM lParam) {
    ThreadState& state = theState();
    const auto handle = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && state.created && !isInputMethodWindow(handle)) {
        CWnd* const window = state.created;
        state.created = nullptr;
        if (!adopts(window, handle)) {
            state.created = window;
            return 1; // no window then
        }
    }
    return ::CallNextHookEx(state.creationHook, code, wParam, lParam);
}

} // namespace

ThreadState& theState() {
    static ThreadState state;
    return state;
}

bool unhookWindowCreation() {
    ThreadState& state = theState();
    if (state.creationHook) {
        ::UnhookWindowsHookEx(state.creationHook);
        state.creationHook = nullptr;
    }
    const bool wasCreated = state.created == nullptr;
    state.created = nullptr;
    return wasCreated;
}

void hookWindowCreation(CWnd* window) {
    ThreadState& state = theState();
    state.created = window;
    if (!state.creationHook)
        state.creationHook = ::SetWindowsHookEx(WH_CBT, &creationHook, nullptr, ::GetCurrentThreadId());
    if (state.creationHook)
        return;
    // Without the hook the window would be created but never joined to its object.
    state.created = nullptr;
    AfxThrowMemoryException();
}

void deleteTemporaryObjects() {
    CWnd::DeleteTempMap();
    CMenu::DeleteTempMap();
    CDC::DeleteTempMap();
    CGdiObject::DeleteTempMap();
    CImageList::DeleteTempMap();
}

LRESULT resultAfterException(const MSG& message) {
    if (message.message == WM_CREATE)
        return -1;
    if (message.message == WM_PAINT)
        ::ValidateRect(message.hwnd, nullptr); // or it comes again at once
    return 0;
}

LRESULT answerException(CException* exception) {
    const MSG message = theState().lastSent;
    CWinThread* const thread = AfxGetThread();
    return thread ? thread->ProcessWndProcException(exception, &message) : resultAfterException(message);
}

LRESULT answerException(const CString& text) {
    CSimpleException told(text, FALSE);
    return answerException(&told);
}

HWND safeOwner(HWND parent, HWND* top) {
    HWND owner = parent;
    if (!owner) {
        CWnd* const mainWindow = AfxGetMainWnd();
        owner = mainWindow ? mainWindow->m_hWnd : nullptr;
    }
    while (owner && (::GetWindowLong(owner, GWL_STYLE) & WS_CHILD))
        owner = ::GetParent(owner);
    HWND topmost = owner;
    for (HWND above = owner; above; above = ::GetParent(above))
        topmost = above;
    if (!parent && owner)
        owner = ::GetLastActivePopup(owner);
    *top = nullptr;
    if (topmost && topmost != owner && ::IsWindowEnabled(topmost)) {
        *top = topmost;
        ::EnableWindow(topmost, FALSE);
    }
    return owner;
}

} // namespace kelmfc
