// A program of the framework's that does one step after the other in the layer states manager.
#pragma once

#include <afxwin.h>

#include "BenchHost.h"

#include <deque>
#include <functional>

namespace bench {

/// Does a step whenever the program is idle, also while a message box of the system's waits.
class ScriptedApp : public CWinApp {
  public:
    BOOL OnIdle(LONG count) override;

    void act(std::function<void()> action);
    void wait(std::function<bool()> seen) { m_steps.push_back(std::move(seen)); }
    /// Waits until the program is idle and `seen` answers true, and notes how long that took since the last act.
    void measure(double& ms, std::function<bool()> seen);
    /// Waits until the manager has the input again.
    void measure(double& ms);

    /// Opens the manager, does all steps, and closes it.
    void run(const KelEdCommand& command);
    /// The best of three runs, each on a drawing that was opened anew.
    /// @param addSteps adds the steps of one run, one of which writes the milliseconds
    double best(const KelEdCommand& command, const zdr::Drawing& drawing,
                const std::function<void(double& ms)>& addSteps);

    HWND manager() const { return m_manager; }
    HWND list() const;

  private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD);
    void advance();

    std::deque<std::function<bool()>> m_steps;
    HWND m_manager = nullptr;
    Clock::time_point m_start;
};

/// Presses a button of a dialog by a message that waits in its queue.
void press(HWND dialog, int button);
/// Clicks a list's heading by messages, at a place in the coordinates of the headings.
void clickHeading(HWND list, POINT place);

} // namespace bench
