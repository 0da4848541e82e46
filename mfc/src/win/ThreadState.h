// What the library knows of its one user-interface thread: the message being handled, the window being created, the
// program and its extension DLLs.
#pragma once

#include <afxwin.h>

#include <exception>
#include <vector>

/// The library's own access to what no user of CWnd needs.
struct CWndInternals {
    /// Makes a window, just created by Windows, the object's.
    static void adopt(CWnd* window, HWND handle);
    static LRESULT call(CWnd* window, UINT message, WPARAM wParam, LPARAM lParam);
};

namespace kelmfc {

struct ThreadState {
    MSG lastSent{};            ///< the message that AfxCallWndProc is handling
    MSG current{};             ///< the message that the loop took, while there is no CWinThread
    HWND exchanging = nullptr; ///< the window whose UpdateData runs: it gets no notifications of what that changes
    int modalLoops = 0;        ///< how many RunModalLoop are running
    CWnd* created = nullptr;   ///< gets the next window that is created
    HHOOK creationHook = nullptr;
    CWinThread* thread = nullptr;
    CWinApp* app = nullptr;
    HINSTANCE instance = nullptr;            ///< null: the program's own
    HINSTANCE resources = nullptr;           ///< null: the program's own
    std::vector<CDynLinkLibrary*> libraries; ///< oldest first
};

ThreadState& theState();

/// The next window to be created becomes `window`'s, before it gets its first message.
void hookWindowCreation(CWnd* window);
/// Whether the hooked window was created.
bool unhookWindowCreation();

/// Deletes the temporary objects that the running message loop made.
void deleteTemporaryObjects();

/// The window that a modal window is to have as its owner. The topmost window over it is disabled, if that is another
/// one; `top` receives it, for the caller to enable it again, or null.
HWND safeOwner(HWND parent, HWND* top);

/// Waits for a message and dispatches it, through the thread object if there is one; FALSE at WM_QUIT.
BOOL pumpMessage();
BOOL isIdleMessage(MSG* message);

/// What a message answers whose handler threw, by the kind of the message.
LRESULT resultAfterException(const MSG& message);
/// Has the program tell the user, and answers for the message being handled.
LRESULT answerException(CException* exception);
LRESULT answerException(const CString& text);

/// Calls back from Windows go through here: an exception must not unwind through the system's code.
template <class Call> LRESULT stopExceptions(const Call& call) {
    try {
        return call();
    } catch (CException* exception) {
        const LRESULT result = answerException(exception);
        exception->Delete();
        return result;
    } catch (const std::exception& exception) {
        return answerException(CString(exception.what()));
    } catch (...) {
        return answerException(CString());
    }
}

} // namespace kelmfc
