// What was said in the command line: how much of it is seen, where its lines break, and how it is painted.

#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

using ui::Script;
using ui::View;

namespace {

HWND historyOf(const View& view) {
    return View(view.control(IDC_COMMAND_PANE)).control(IDC_COMMAND_HISTORY);
}

LONG heightOf(HWND window) {
    const RECT rect = View(window).rect();
    return rect.bottom - rect.top;
}

/// Whether the last character stands inside the history's window.
bool showsEnd(const View& view) {
    const HWND history = historyOf(view);
    const int last = GetWindowTextLengthW(history) - 1;
    const auto place = SendMessageW(history, EM_POSFROMCHAR, static_cast<WPARAM>(last), 0);
    RECT client{};
    GetClientRect(history, &client);
    const int top = static_cast<short>(HIWORD(place));
    return top >= 0 && top + 8 < client.bottom;
}

std::wstring lineOf(HWND history, int number) {
    wchar_t text[1000];
    *reinterpret_cast<WORD*>(text) = static_cast<WORD>(std::size(text));
    const auto length = SendMessageW(history, EM_GETLINE, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(text));
    return std::wstring(text, static_cast<std::size_t>(length));
}

/// The colours of the history, without its scroll bar.
std::vector<COLORREF> textPixels(const View& view) {
    const View pane(view.control(IDC_COMMAND_PANE));
    const RECT rect = pane.rect(IDC_COMMAND_HISTORY);
    RECT client{};
    GetClientRect(historyOf(view), &client);
    const auto width = static_cast<std::size_t>(rect.right - rect.left);
    std::vector<COLORREF> text;
    const std::vector<COLORREF> all = pane.pixels(IDC_COMMAND_HISTORY);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (i % width < static_cast<std::size_t>(client.right))
            text.push_back(all[i]);
    return text;
}

class HistoryTest : public WorkbenchTest {
  protected:
    Script resizeTo(int width, int height) {
        return Script().look("another size", [this, width, height](const View&) {
            window->SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        });
    }
};

} // namespace

TEST_F(HistoryTest, TheNewestLinesStayInSightWhateverTheSize) {
    Script script;
    script.then(resizeTo(1200, 700)).then(command(L"HELP")).then(said(L"Tab completes"));
    for (const auto& [width, height] : {std::pair(500, 700), std::pair(1200, 500), std::pair(600, 420)}) {
        script.then(resizeTo(width, height)).look("the end", [](const View& view) { EXPECT_TRUE(showsEnd(view)); });
    }
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(HistoryTest, WhoHasScrolledBackStaysThereWhenTheSizeChanges) {
    Script script;
    script.then(resizeTo(1200, 700)).then(command(L"HELP")).then(said(L"Tab completes"));
    script.press(VK_PRIOR).press(VK_PRIOR).waitUntil("pages back", [](const View& view) { return !showsEnd(view); });
    script.then(resizeTo(1100, 700)).look("not the end", [](const View& view) { EXPECT_FALSE(showsEnd(view)); });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(HistoryTest, F2MakesRoomForItAndGivesTheRoomBack) {
    LONG small = 0;
    LONG drawing = 0;
    Script script;
    script.then(command(L"HELP")).then(said(L"Tab completes")).look("small", [&](const View& view) {
        small = heightOf(historyOf(view));
        drawing = heightOf(view.control(IDC_DRAWING_VIEW));
    });
    script.press(VK_F2).waitUntil("large", [&](const View& view) { return heightOf(historyOf(view)) > 4 * small; });
    script.look("the end and some of the drawing", [](const View& view) {
        EXPECT_TRUE(showsEnd(view));
        EXPECT_GT(heightOf(view.control(IDC_DRAWING_VIEW)), 50);
        RECT both{};
        const RECT above = view.rect(IDC_DRAWING_VIEW), below = view.rect(IDC_COMMAND_PANE);
        EXPECT_FALSE(IntersectRect(&both, &above, &below));
    });
    script.press(VK_F2).waitUntil("small", [&](const View& view) { return heightOf(historyOf(view)) == small; });
    script.look("the drawing has its room again", [&](const View& view) {
        EXPECT_EQ(heightOf(view.control(IDC_DRAWING_VIEW)), drawing);
        EXPECT_TRUE(showsEnd(view));
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(HistoryTest, ALineBreaksBetweenWordsAndNotAtHyphens) {
    std::wstring text;
    for (int i = 0; i < 60; ++i)
        text += L"ground-floor-walls ";
    Script script;
    script.look("a long line", [&](const View& view) {
        session().window().print(text + L"\n");
        const HWND history = historyOf(view);
        const auto lines = static_cast<int>(SendMessageW(history, EM_GETLINECOUNT, 0, 0));
        ASSERT_GT(lines, 2);
        for (int i = 0; i < lines; ++i) {
            const std::wstring line = lineOf(history, i);
            EXPECT_TRUE(line.starts_with(L"ground-floor-walls")) << ui::narrow(line);
            EXPECT_EQ(line.find_last_not_of(L' '), line.rfind(L"walls") + 4) << ui::narrow(line);
        }
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(HistoryTest, AWordLongerThanALineBreaksSomewhere) {
    Script script;
    script.look("a long word", [&](const View& view) {
        session().window().print(std::wstring(1000, L'w') + L" end\n");
        EXPECT_GT(SendMessageW(historyOf(view), EM_GETLINECOUNT, 0, 0), 3);
        EXPECT_TRUE(showsEnd(view));
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

// The control would scroll what is painted with each line, and the lines in between stood there several times.
TEST_F(HistoryTest, LinesArePaintedTogetherWhenTheirTurnComes) {
    Script script;
    script.look("many lines at once", [&](const View& view) {
        const auto print = [this](int first) {
            for (int i = first; i < first + 10; ++i)
                session().window().print(std::wstring(static_cast<std::size_t>(i), L'i') + L"\n");
        };
        print(1);
        UpdateWindow(historyOf(view));
        const auto before = textPixels(view);
        print(11);
        EXPECT_TRUE(textPixels(view) == before) << "something is painted already";
        UpdateWindow(historyOf(view));
        EXPECT_TRUE(textPixels(view) != before) << "nothing is painted";
    });
    script.then(command(L"QUIT"));
    runWith(script);
}
