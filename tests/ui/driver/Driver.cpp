#include "Driver.h"

#include "Screenshot.h"
#include "Watchdog.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace ui {

namespace {

using Clock = std::chrono::steady_clock;

// How long a window may take to close after the last step.
constexpr auto closingTime = std::chrono::seconds(2);
constexpr UINT tickLength = 10;

std::function<std::string()> g_lastWords = [] { return std::string(); };

// Shortens the system's time for a double click while the tests run. Two single clicks on one spot have to be further
// apart than that, and half a second each would be most of a test's time. Double clicks still work, because Input.cpp
// gives both of their clicks the same time stamp.
class ShortDoubleClicks {
  public:
    ShortDoubleClicks() : m_before(GetDoubleClickTime()) { SetDoubleClickTime(100); }
    ~ShortDoubleClicks() { SetDoubleClickTime(m_before); }
    ShortDoubleClicks(const ShortDoubleClicks&) = delete;
    ShortDoubleClicks& operator=(const ShortDoubleClicks&) = delete;

  private:
    UINT m_before;
};

const testing::TestResult& resultOfTest() {
    return *testing::UnitTest::GetInstance()->current_test_info()->result();
}

std::string nameOfTest() {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    return test ? std::string(test->test_suite_name()) + "." + test->name() : "no test";
}

/// The window of this thread that a person could answer; null when there is none.
HWND answerableWindow() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM out) -> BOOL {
            const bool answerable = IsWindowVisible(window) && IsWindowEnabled(window);
            if (answerable)
                *reinterpret_cast<HWND*>(out) = window;
            return !answerable;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

/// Makes our window the foreground window when another program's is. The desktop of a fresh session may start after the
/// first windows of the first program and take their input away; a person would click into the window. Nothing changes
/// when one of our own windows has the input.
void takeInputFromOthers() {
    DWORD owner = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &owner);
    const HWND window = owner == GetCurrentProcessId() ? nullptr : answerableWindow();
    if (window)
        SetForegroundWindow(window);
}

class Performance {
  public:
    explicit Performance(Script script)
        : m_steps(std::move(script.steps())), m_since(Clock::now()), m_watchdog([this] { lastWords(); }) {}

    bool run(const std::function<void()>& action) {
        static const ShortDoubleClicks shortDoubleClicks;
        const int failuresBefore = resultOfTest().total_part_count();
        Performance* outer = s_current;
        s_current = this;
        const UINT_PTR timer = SetTimer(nullptr, 0, tickLength, [](HWND, UINT, UINT_PTR, DWORD) { s_current->tick(); });
        action();
        KillTimer(nullptr, timer);
        s_current = outer;
        if (!m_abandoned && !m_steps.empty() && !m_steps.front().optional) {
            m_failed = true;
            const Step& step = m_steps.front();
            ADD_FAILURE_AT(step.where.file, step.where.line)
                << "The dialog had ended before this step: " << step.what << "\n"
                << m_obstacle;
        }
        return !m_failed && resultOfTest().total_part_count() == failuresBefore;
    }

  private:
    void tick() {
        if (m_inTick)
            return;
        m_inTick = true;
        if (m_abandoned)
            closeFacing();
        else if (m_steps.empty())
            awaitEnd();
        else
            tryStep();
        m_inTick = false;
    }

    void tryStep() {
        const View view = View::facing();
        // A dialog that opens gets its loop, its place on the screen and the keyboard one after the other, so all three
        // have to be there.
        if (!view.window() || !IsWindowVisible(view.window()) || GetForegroundWindow() != view.window()) {
            m_obstacle = "no window of the program is shown and has the input";
            takeInputFromOthers();
            giveUpWhenLate();
            return;
        }
        const Step step = m_steps.front();
        const int failuresBefore = resultOfTest().total_part_count();
        const bool fatalBefore = testing::Test::HasFatalFailure();
        const Obstacle obstacle = step.act(view);
        if (resultOfTest().total_part_count() != failuresBefore)
            tell(step, "These were not met by: " + step.what);
        if (testing::Test::HasFatalFailure() && !fatalBefore) {
            m_abandoned = true;
        } else if (obstacle) {
            m_obstacle = *obstacle;
            giveUpWhenLate();
        } else {
            m_steps.pop_front();
            m_obstacle.clear();
            m_since = Clock::now();
            m_watchdog.progress();
        }
    }

    void giveUpWhenLate() {
        const Step& step = m_steps.front();
        if (Clock::now() - m_since < step.bound)
            return;
        tell(step, "This step couldn't be done: " + step.what + "\n" + m_obstacle);
        m_abandoned = true;
    }

    void awaitEnd() {
        if (Clock::now() - m_since < closingTime)
            return;
        m_failed = true;
        const std::wstring shot = screenshotOfTest();
        ADD_FAILURE() << "After the last step the window \"" << narrow(View::facing().title())
                      << "\" is still open.\nScreenshot: " << narrow(shot);
        m_abandoned = true;
    }

    void tell(const Step& step, const std::string& what) {
        m_failed = true;
        const std::wstring shot = screenshotOfTest();
        ADD_FAILURE_AT(step.where.file, step.where.line) << what << "\nScreenshot: " << narrow(shot);
    }

    // Closes what is open, window by window: by the close button first, and when a window refuses that, by ending the
    // dialog. If that fails too, the watchdog ends the program.
    void closeFacing() {
        const HWND window = View::facing().window();
        if (!window)
            return;
        m_closingTicks = window == m_closing ? m_closingTicks + 1 : 0;
        m_closing = window;
        // The answer to a question whether to save is No. Closing the question would only bring it up again.
        if (m_closingTicks == 0 && GetDlgItem(window, IDNO))
            PostMessageW(window, WM_COMMAND, IDNO, 0);
        else if (m_closingTicks == 0)
            PostMessageW(window, WM_CLOSE, 0, 0);
        else if (m_closingTicks == 20)
            PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        else if (m_closingTicks == 40)
            EndDialog(window, IDCANCEL);
    }

    void lastWords() {
        std::fprintf(stderr, "%s is stuck. The step under way: %s\nScreenshot: %s\n%s\n", nameOfTest().c_str(),
                     m_steps.empty() ? "none is left" : m_steps.front().what.c_str(),
                     narrow(screenshotOfTest()).c_str(), g_lastWords().c_str());
    }

    static Performance* s_current;

    std::deque<Step> m_steps;
    std::string m_obstacle;
    Clock::time_point m_since;
    bool m_inTick = false;
    bool m_abandoned = false;
    bool m_failed = false;
    HWND m_closing = nullptr;
    int m_closingTicks = 0;
    Watchdog m_watchdog;
};

Performance* Performance::s_current = nullptr;

} // namespace

bool perform(Script script, const std::function<void()>& action) {
    return Performance(std::move(script)).run(action);
}

void setLastWords(std::function<std::string()> words) {
    g_lastWords = std::move(words);
}

std::wstring screenshotFolder() {
    wchar_t path[MAX_PATH] = L"";
    if (GetEnvironmentVariableW(L"KEL_SCREENSHOTS", path, MAX_PATH) != 0)
        return path;
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path);
    folder.resize(folder.find_last_of(L'\\'));
    return folder + L"\\..\\screenshots";
}

std::wstring screenshotOfTest() {
    const std::wstring folder = screenshotFolder();
    CreateDirectoryW(folder.c_str(), nullptr);
    std::string name = nameOfTest();
    for (char& each : name)
        if (each == '/')
            each = '-';
    const std::wstring path = folder + L"\\" + std::wstring(name.begin(), name.end()) + L".bmp";
    return saveScreenshot(path) ? path : L"(none could be saved)";
}

} // namespace ui
