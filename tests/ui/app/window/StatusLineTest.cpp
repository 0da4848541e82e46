// The right end of the status line: how many references there are, with a warning when one is missing, and what a click
// on that does.

#include "HandmadeDrawing.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <algorithm>

using ui::Script;
using ui::View;

namespace {

class StatusLineTest : public WorkbenchTest {
  protected:
    /// Writes house.zdr, which shows site.zdr and north.zdr.
    StatusLineTest() {
        writeSample("site.zdr");
        writeSample("north.zdr");
        zdr::Drawing drawing = session().drawing();
        for (const wchar_t* name : {L"site", L"north"}) {
            zdr::Reference reference;
            reference.name = name;
            reference.path = std::wstring(name) + L".zdr";
            drawing.references.push_back(reference);
        }
        writeDrawing("house.zdr", drawing);
    }
    Script open() { return command(L"OPEN " + path("house.zdr")).then(said(L"Opened ")); }

    workbench::StatusLine& line() const {
        return *static_cast<workbench::StatusLine*>(
            CWnd::FromHandlePermanent(GetDlgItem(window->m_hWnd, IDC_STATUS_LINE)));
    }
    /// The middle of the count of references; of the message when that is asked for.
    POINT middleOf(bool ofMessage = false) const {
        const workbench::StatusSpan span = ofMessage ? line().spans().message : line().spans().references;
        RECT rect{};
        GetWindowRect(line().m_hWnd, &rect);
        return {rect.left + (span.left + span.right) / 2, (rect.top + rect.bottom) / 2};
    }
    static Script counts(const std::wstring& text) {
        Script script;
        script.waitUntil("the status line counts " + ui::narrow(text), [text](const View& view) {
            return view.text(IDC_STATUS_LINE).find(L" | " + text + L" | ") != std::wstring::npos;
        });
        return script;
    }
    static Script warns(bool expected) {
        Script script;
        script.waitUntil(expected ? "a warning" : "no warning", [expected](const View& view) {
            const auto pixels = view.pixels(IDC_STATUS_LINE);
            const auto found = std::count(pixels.begin(), pixels.end(), workbench::colors::kWarning);
            return expected ? found > 300 : found == 0;
        });
        return script;
    }
};

/// How often a window is given a text. One at a time.
class TextCount {
  public:
    explicit TextCount(HWND window) : m_window(window) {
        set = 0;
        s_former = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TextCount::procedure)));
    }
    ~TextCount() {
        if (IsWindow(m_window))
            SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_former));
    }
    TextCount(const TextCount&) = delete;
    TextCount& operator=(const TextCount&) = delete;

    inline static int set = 0;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        set += message == WM_SETTEXT ? 1 : 0;
        return CallWindowProcW(s_former, window, message, wParam, lParam);
    }

    HWND m_window;
    inline static WNDPROC s_former = nullptr;
};

} // namespace

TEST_F(StatusLineTest, CountsTheReferencesAndWarnsWhenOneIsMissing) {
    Script script;
    script
        .look("a drawing without any",
              [this](const View& view) {
                  EXPECT_EQ(view.text(IDC_STATUS_LINE).find(L"reference"), std::wstring::npos);
                  EXPECT_TRUE(line().spans().references.isEmpty());
              })
        .then(open())
        .then(counts(L"2 references"))
        .then(warns(false))
        .then(command(L"UNLOAD site"))
        .then(counts(L"2 references"))
        .then(warns(false))
        .look("a file is taken away", [this](const View&) { std::filesystem::remove(folder / "site.zdr"); })
        .then(command(L"NEW"))
        .then(answerBox(L"Save the changes", IDNO))
        .then(said(L"A new drawing is open."))
        .then(open())
        .then(counts(L"2 references, 1 missing"))
        .then(warns(true))
        .then(command(L"DETACH site"))
        .then(counts(L"1 reference"))
        .then(warns(false))
        .then(command(L"QUIT"))
        .then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}

TEST_F(StatusLineTest, AClickOnTheCountListsTheReferencesAndOneBesideItDoesnt) {
    std::filesystem::remove(folder / "site.zdr");
    const auto history = [](const View& view) {
        return View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY);
    };
    Script script;
    script.then(open())
        .then(counts(L"2 references, 1 missing"))
        .clickPoint("the message", [this](const View&) { return middleOf(true); })
        .clickPoint("the count", [this](const View&) { return middleOf(); })
        .then(said(L"Command: REFERENCES\r\nsite: missing, site.zdr\r\nnorth: loaded, north.zdr\r\n2 references, 1 "
                   L"missing: RELOAD looks again."))
        .look("what was said since",
              [&](const View& view) {
                  const std::wstring now = history(view);
                  EXPECT_EQ(now.find(L"REFERENCES"), now.rfind(L"REFERENCES"));
              })
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(StatusLineTest, TheCountShowsThatItCanBeClicked) {
    const auto cursorIs = [](LPCTSTR name) {
        Script script;
        script.waitUntil("the pointer's form",
                         [name](const View&) { return GetCursor() == LoadCursor(nullptr, name); });
        return script;
    };
    Script script;
    script.then(open())
        .pointAt([this] { return middleOf(); })
        .then(cursorIs(IDC_HAND))
        .pointAt([this] { return middleOf(true); })
        .then(cursorIs(IDC_ARROW))
        .then(command(L"QUIT"));
    runWith(script);
}

TEST_F(StatusLineTest, TheMenuListsTheReferences) {
    Script script;
    script.pressAlt(L'o').press('R').then(said(L"Command: REFERENCES\r\nNo drawing is attached: ATTACH attaches one."));
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(StatusLineTest, ChangesOnceForALineThatChangesTheDrawingAndAnswers) {
    const TextCount count(line().m_hWnd);
    Script script;
    script.then(open())
        .then(command(L"LAYER NEW Walls"))
        .then(said(L"1 layer is made."))
        .look("count from here", [&](const View&) { TextCount::set = 0; })
        .then(command(L"LAYER SET Walls"))
        .then(said(L"Command: LAYER SET Walls\r\n"))
        .waitUntil("the status line tells the layer",
                   [](const View& view) { return view.text(IDC_STATUS_LINE).starts_with(L"Walls | "); })
        .look("the count", [&](const View&) { EXPECT_EQ(TextCount::set, 1); });
    runAndThrowAway(script);
}

TEST_F(StatusLineTest, InTheNarrowestWindowTheCountStaysWholeAndTheNamesAreToBeSeen) {
    std::filesystem::remove(folder / "site.zdr");
    RECT before{};
    Script script;
    script.then(open())
        .look("make the window as narrow as it gets",
              [&](const View& view) {
                  before = view.rect();
                  SetWindowPos(window->m_hWnd, nullptr, 0, 0, 10, 600, SWP_NOMOVE | SWP_NOZORDER);
              })
        .look("the fields",
              [this](const View&) {
                  const workbench::StatusSpans spans = line().spans();
                  EXPECT_GT(spans.references.right - spans.references.left, 100);
                  EXPECT_GT(spans.layer.right - spans.layer.left, 30);
                  EXPECT_GT(spans.space.right - spans.space.left, 30);
                  EXPECT_GT(spans.message.right - spans.message.left, 30);
              })
        .look("make it as wide as it was, since the next one opens as this one closes",
              [&](const View&) {
                  SetWindowPos(window->m_hWnd, nullptr, 0, 0, before.right - before.left, before.bottom - before.top,
                               SWP_NOMOVE | SWP_NOZORDER);
              })
        .then(command(L"QUIT"));
    runWith(script);
}
