#include "Watchdog.h"

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <thread>

namespace ui {

namespace {
constexpr UINT exitCode = 3;
} // namespace

struct Watchdog::State {
    std::function<void()> lastWords;
    ULONGLONG patience = 0;
    std::atomic<ULONGLONG> lastProgress{GetTickCount64()};
    HANDLE over = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread thread;
};

Watchdog::Watchdog(std::function<void()> lastWords, std::chrono::milliseconds patience) : m_state(new State) {
    m_state->patience = static_cast<ULONGLONG>(patience.count());
    m_state->lastWords = std::move(lastWords);
    m_state->thread = std::thread([state = m_state] {
        while (WaitForSingleObject(state->over, 100) == WAIT_TIMEOUT) {
            if (GetTickCount64() - state->lastProgress < state->patience)
                continue;
            state->lastWords();
            std::fflush(nullptr);
            TerminateProcess(GetCurrentProcess(), exitCode);
        }
    });
}

Watchdog::~Watchdog() {
    SetEvent(m_state->over);
    m_state->thread.join();
    CloseHandle(m_state->over);
    delete m_state;
}

void Watchdog::progress() {
    m_state->lastProgress = GetTickCount64();
}

} // namespace ui
