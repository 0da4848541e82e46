// Something that may take long. When it takes longer than a second, a window tells how far it is, in which the user can
// cancel it; meanwhile nothing else of the program can be used. Used by the thread that the windows belong to.
#pragma once

#include "KelExport.h"
#include "progress/ProgressWindow.h"

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace framework {

/// After how long a window comes.
inline constexpr std::chrono::milliseconds kUsualDelay{1'000};

class KELUI_API LongWork {
  public:
    /// @param title     what is done, as the title of a window: "Fetching File"
    /// @param text      to what: an address, a path
    /// @param beginning what the user is told until there is an amount
    LongWork(const wchar_t* title, std::wstring text, const wchar_t* beginning);
    /// The window goes, and the others can be used again.
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /// How many bytes are done, of how many in all. Called again and again by work that is done in this thread, it
    /// shows that and takes the user's input.
    /// @return false when the user has cancelled
    bool advance(std::uint64_t done, std::uint64_t total);

    enum class Waited { Signalled, TooLong, Cancelled };
    /// Waits for what another thread does.
    /// @param end is signalled at its end
    Waited waitFor(HANDLE end, std::chrono::milliseconds bound);

    /// Changes after how long a window comes, for tests.
    static void setDelay(std::chrono::milliseconds delay);

  private:
    using Clock = std::chrono::steady_clock;

    /// Opens the window when its time has come, and shows in it how far things are.
    void refresh();
    bool isCancelled() const { return m_window && m_window->isCancelled(); }

    ProgressFacts m_facts;
    Clock::time_point m_start = Clock::now();
    Clock::time_point m_lastRefresh = m_start;
    std::unique_ptr<ProgressWindow> m_window; ///< null until it has come
    bool m_hasTried = false;                  ///< to open it
};

} // namespace framework
