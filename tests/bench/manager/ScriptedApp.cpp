#include "ScriptedApp.h"

#include "Documents.h"
#include "resource.h"

#include <afxcmn.h>

#include <algorithm>

namespace bench {

namespace {

constexpr UINT kTimerMs = 10;

} // namespace

BOOL ScriptedApp::OnIdle(LONG count) {
    advance();
    return CWinApp::OnIdle(count);
}

void CALLBACK ScriptedApp::onTimer(HWND, UINT, UINT_PTR, DWORD) {
    static_cast<ScriptedApp*>(AfxGetApp())->advance();
}

void ScriptedApp::advance() {
    // One step each time: the next one is to find the program idle again.
    if (!m_steps.empty() && m_steps.front()())
        m_steps.pop_front();
}

void ScriptedApp::act(std::function<void()> action) {
    m_steps.push_back([this, action = std::move(action)] {
        m_start = Clock::now();
        action();
        return true;
    });
}

void ScriptedApp::measure(double& ms, std::function<bool()> seen) {
    wait([this, &ms, seen = std::move(seen)] {
        if (!seen())
            return false;
        ms = milliseconds(Clock::now() - m_start);
        return true;
    });
}

void ScriptedApp::measure(double& ms) {
    measure(ms, [this] { return GetActiveWindow() == m_manager && IsWindowEnabled(m_manager); });
}

void ScriptedApp::run(const KelEdCommand& command) {
    m_steps.push_front([this] {
        m_manager = GetActiveWindow();
        return m_manager && list() && IsWindowVisible(m_manager);
    });
    act([this] { press(m_manager, IDC_LSTATE_RES_CLOSE); });
    const UINT_PTR timer = SetTimer(nullptr, 0, kTimerMs, onTimer);
    command.function()();
    KillTimer(nullptr, timer);
    if (!m_steps.empty())
        fail("the manager ended before everything was done");
}

double ScriptedApp::best(const KelEdCommand& command, const zdr::Drawing& drawing,
                         const std::function<void(double& ms)>& addSteps) {
    constexpr int kTurns = 3;
    double least = 0;
    for (int turn = 0; turn < kTurns; ++turn) {
        openDrawing(drawing);
        double ms = 0;
        addSteps(ms);
        run(command);
        runtime::closeDocument(*runtime::currentDocument());
        least = turn == 0 ? ms : std::min(least, ms);
    }
    return least;
}

HWND ScriptedApp::list() const {
    return GetDlgItem(m_manager, IDC_LSTATE_RES_LIST);
}

void press(HWND dialog, int button) {
    PostMessage(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

void clickHeading(HWND list, POINT place) {
    const HWND header = ListView_GetHeader(list);
    PostMessage(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place.x, place.y));
    PostMessage(header, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
}

} // namespace bench
