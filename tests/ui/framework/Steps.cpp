// See Steps.h. A timer without a window is served by every modal loop, whoever runs it, after all other messages.

#include "Steps.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

constexpr unsigned long long kBound = 5000; // ms for one step
constexpr UINT kInterval = 20;

Steps* g_current = nullptr;

void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (g_current)
        g_current->tick();
}

} // namespace

Step pause(int milliseconds) {
    const auto end = std::make_shared<unsigned long long>(0);
    return {"pause", [end, milliseconds] {
                if (*end == 0)
                    *end = GetTickCount64() + static_cast<unsigned long long>(milliseconds);
                return GetTickCount64() >= *end;
            }};
}

Steps::Steps(std::vector<Step> steps) : m_steps(std::move(steps)), m_since(GetTickCount64()) {
    g_current = this;
    m_timer = SetTimer(nullptr, 0, kInterval, onTimer);
}

Steps::~Steps() {
    KillTimer(nullptr, m_timer);
    g_current = nullptr;
    if (m_next < m_steps.size() && !m_gaveUp)
        ADD_FAILURE() << "the dialog ended before the step: " << m_steps[m_next].name;
}

void Steps::tick() {
    if (m_gaveUp) {
        if (const HWND active = GetActiveWindow())
            PostMessageW(active, WM_CLOSE, 0, 0);
        return;
    }
    if (m_next == m_steps.size()) {
        // The last step should have ended the dialog; one that stays is closed, and that is a failure.
        if (GetTickCount64() - m_since < kBound)
            return;
        ADD_FAILURE() << "the dialog stayed open after the last step";
        m_gaveUp = true;
        return;
    }
    // A step may open a modal loop of its own, in which the following ones run.
    const std::size_t running = m_next;
    ++m_next;
    const bool done = m_steps[running].attempt();
    if (done) {
        m_since = GetTickCount64();
    } else if (m_next == running + 1) {
        m_next = running;
        if (GetTickCount64() - m_since > kBound) {
            ADD_FAILURE() << "the step isn't done in time: " << m_steps[running].name;
            m_gaveUp = true;
        }
    }
}
