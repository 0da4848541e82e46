// Ends a program that is stuck. It does so on a thread of its own, because the stuck thread can't.
#pragma once

#include <chrono>
#include <functional>

namespace ui {

/// While one lives, the process ends with exit code 3 when its patience runs out without a call of progress().
class Watchdog {
  public:
    /// @param lastWords prints what is known; runs on the watchdog's thread, when the other one is stuck
    explicit Watchdog(std::function<void()> lastWords, std::chrono::milliseconds patience = std::chrono::seconds(25));
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    void progress();

  private:
    struct State;
    State* m_state;
};

} // namespace ui
