// The window that tells how far something is that takes long.

#include "DialogFixture.h"

#include "ImportFaults.h"
#include "files/FileProgress.h"
#include "files/Refusal.h"
#include "progress/LongWork.h"
#include "progress/ProgressIds.h"

#include <commctrl.h>

#include <chrono>

using framework::LongWork;
using ui::Script;
using ui::View;
using namespace std::chrono_literals;

namespace {

constexpr std::uint64_t kMega = std::uint64_t{1024} * 1024;
constexpr const wchar_t* kTitle = L"Fetching File";
// Longer than any test takes, so that a wait has to end otherwise.
constexpr std::chrono::milliseconds kNever = 90s;

struct CloseEvent {
    void operator()(HANDLE event) const { CloseHandle(event); }
};

HWND progressWindow() {
    return FindWindowW(nullptr, kTitle);
}

/// Two windows of the program: a main one, which has the input, and one that can't be used already.
class Progress : public testing::Test {
  protected:
    Progress() {
        SetForegroundWindow(m_main);
        SetFocus(m_edit);
        EnableWindow(m_disabled, FALSE);
        LongWork::setDelay(0ms);
    }
    ~Progress() override {
        LongWork::setDelay(framework::kUsualDelay);
        DestroyWindow(m_disabled);
        DestroyWindow(m_main);
    }
    static HWND makeWindow(const wchar_t* kind, DWORD style, HWND parent, int width) {
        return CreateWindowW(kind, L"Main", style | WS_VISIBLE, 0, 0, width, 100, parent, nullptr, nullptr, nullptr);
    }
    /// Does work that doesn't end, of which one half is done, and runs the script in its window, which has to cancel
    /// it.
    void cancel(Script script) {
        LongWork work(kTitle, L"http://h/plan.zdr", L"Waiting...");
        EXPECT_TRUE(ui::perform(std::move(script), [&] {
            work.advance(100 * kMega, 200 * kMega);
            EXPECT_EQ(work.waitFor(m_never.get(), kNever), LongWork::Waited::Cancelled);
        }));
        EXPECT_FALSE(work.advance(100 * kMega, 200 * kMega)) << "a cancelled one stays so";
    }
    static Script whenShown() {
        Script script;
        return script.waitForControl(IDC_PROGRESS_BAR);
    }

    const HWND m_main = makeWindow(L"STATIC", WS_POPUP | WS_CAPTION, nullptr, 400);
    const HWND m_edit = makeWindow(L"EDIT", WS_CHILD, m_main, 50);
    const HWND m_disabled = makeWindow(L"STATIC", WS_POPUP, nullptr, 50);
    const std::unique_ptr<void, CloseEvent> m_never{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

TEST_F(Progress, showsWhatIsDoneAndHowFarItIs) {
    cancel(whenShown()
               .look("its texts",
                     [](const View& view) {
                         EXPECT_EQ(view.title(), kTitle);
                         EXPECT_EQ(view.text(IDC_PROGRESS_TEXT), L"http://h/plan.zdr");
                         EXPECT_EQ(view.text(IDC_PROGRESS_AMOUNT), L"100 MB of 200 MB");
                         const HWND bar = view.control(IDC_PROGRESS_BAR);
                         EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0) * 2, SendMessageW(bar, PBM_GETRANGE, 0, 0));
                     })
               .press(VK_ESCAPE));
}

TEST_F(Progress, tellsWhatIsWaitedForUntilThereIsAnAmount) {
    LongWork work(kTitle, L"a", L"Waiting for the server...");
    Script script = whenShown();
    script.look("what is waited for", [](const View& view) {
        EXPECT_EQ(view.text(IDC_PROGRESS_AMOUNT), L"Waiting for the server...");
        EXPECT_EQ(view.text(IDC_PROGRESS_TIME), L"");
    });
    ui::perform(script.press(VK_ESCAPE),
                [&] { EXPECT_EQ(work.waitFor(m_never.get(), kNever), LongWork::Waited::Cancelled); });
}

TEST_F(Progress, tellsHowLongTheRestTakes) {
    cancel(whenShown()
               .waitUntil("as much time is left as has passed",
                          [](const View& view) { return view.text(IDC_PROGRESS_TIME) == L"A few seconds left"; })
               .press(VK_ESCAPE));
}

TEST_F(Progress, isCancelledByEachWayThatLeavesADialog) {
    cancel(whenShown().press(VK_ESCAPE));
    cancel(whenShown().press(VK_RETURN));
    cancel(whenShown().click(IDCANCEL));
    cancel(whenShown().press(VK_F4, ui::holdAlt));
}

TEST_F(Progress, hasTheFocusOnItsButton) {
    cancel(whenShown()
               .look("the focus", [](const View& view) { EXPECT_EQ(view.focusedControl(), IDCANCEL); })
               .press(VK_ESCAPE));
}

TEST_F(Progress, noOtherWindowCanBeUsedMeanwhileAndAllAreAfterwardsAsBefore) {
    cancel(whenShown()
               .look("the other windows",
                     [this](const View& view) {
                         EXPECT_EQ(GetWindow(view.window(), GW_OWNER), m_main);
                         EXPECT_FALSE(IsWindowEnabled(m_main));
                         EXPECT_FALSE(IsWindowEnabled(m_disabled));
                     })
               .press(VK_ESCAPE));
    EXPECT_EQ(progressWindow(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(m_main));
    EXPECT_FALSE(IsWindowEnabled(m_disabled));
    EXPECT_EQ(GetActiveWindow(), m_main);
}

TEST_F(Progress, aKeyThatWasPressedBeforeItCameIsntMeantForIt) {
    ui::pressKey(VK_RETURN);
    bool wasCancelled = true;
    cancel(whenShown()
               .look("it goes on", [&](const View& view) { wasCancelled = !view.isEnabled(IDCANCEL); })
               .press(VK_ESCAPE));
    EXPECT_FALSE(wasCancelled);
}

TEST_F(Progress, comesAfterASecondAndNoSooner) {
    LongWork::setDelay(framework::kUsualDelay);
    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [start] { return std::chrono::steady_clock::now() - start; };
    LongWork work(kTitle, L"a", L"b");
    while (!progressWindow() && elapsed() < kNever)
        EXPECT_EQ(work.waitFor(m_never.get(), 10ms), LongWork::Waited::TooLong);
    EXPECT_GE(elapsed(), 1s);
    EXPECT_NE(progressWindow(), nullptr);
}

TEST_F(Progress, aWaitEndsInTimeAlsoWhileMessagesNeverEnd) {
    LongWork work(kTitle, L"a", L"b");
    // Each message brings the next one.
    SetWindowLongPtrW(
        m_main, GWLP_WNDPROC,
        reinterpret_cast<LONG_PTR>(+[](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
            if (message == WM_APP)
                PostMessageW(window, WM_APP, 0, 0);
            return DefWindowProcW(window, message, wParam, lParam);
        }));
    PostMessageW(m_main, WM_APP, 0, 0);
    EXPECT_EQ(work.waitFor(m_never.get(), 300ms), LongWork::Waited::TooLong);
    EXPECT_NE(progressWindow(), nullptr);
}

TEST_F(Progress, ofWhatHasEndedIsntAskedAnythingMore) {
    LongWork work(kTitle, L"a", L"b");
    SetEvent(m_never.get());
    EXPECT_EQ(work.waitFor(m_never.get(), kNever), LongWork::Waited::Signalled);
    EXPECT_TRUE(work.advance(1, 1));
}

TEST_F(Progress, aProgramThatIsToEndCancelsItAndEnds) {
    LongWork work(kTitle, L"a", L"b");
    PostQuitMessage(17);
    EXPECT_EQ(work.waitFor(m_never.get(), 10s), LongWork::Waited::Cancelled);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 17u);
}

TEST_F(Progress, ofAFileOfTheEnginesIsShownAndCancelled) {
    const std::pair<zdr::FileWork, const wchar_t*> rows[] = {{zdr::FileWork::Reading, L"Reading File"},
                                                             {zdr::FileWork::Writing, L"Writing File"}};
    for (const auto& row : rows) {
        Script script = whenShown();
        script.look("what it is about", [title = row.second](const View& view) {
            EXPECT_EQ(view.title(), title);
            EXPECT_EQ(view.text(IDC_PROGRESS_TEXT), L"C:\\plan.zdr");
            EXPECT_EQ(view.text(IDC_PROGRESS_AMOUNT), L"100 MB of 200 MB");
        });
        ui::perform(script.press(VK_ESCAPE), [kind = row.first] {
            zdr::FileProgress progress(kind, L"C:\\plan.zdr");
            EXPECT_THROW(for (;;) progress.advance(100 * kMega, 200 * kMega), zdr::Refusal);
        });
    }
}

TEST_F(Progress, withoutAWindowTheWorkGoesOnAndNobodyIsLetInMeanwhile) {
    const ImportFaults faults({L"kelui.dll"});
    ImportFaults::begin("CreateDialogParamW", 1);
    LongWork work(kTitle, L"a", L"b");
    // What stays in the queue can't start anything.
    PostMessageW(m_main, WM_NULL, 0, 0);
    for (int i = 0; !ImportFaults::struck() && i < 1'000; ++i)
        EXPECT_EQ(work.waitFor(m_never.get(), 10ms), LongWork::Waited::TooLong);
    EXPECT_TRUE(ImportFaults::struck());
    EXPECT_EQ(work.waitFor(m_never.get(), 10ms), LongWork::Waited::TooLong);
    EXPECT_EQ(progressWindow(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(m_main));
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, m_main, WM_NULL, WM_NULL, PM_REMOVE));
}

} // namespace
