// Lines that can't be right, typed and pasted into the real window: each gets an answer of one sentence, which the
// history and the status line show, and changes nothing.

#include "BadLines.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

using ui::Script;
using ui::View;

namespace {

/// The answer in the history to the line that begins so; empty until the line has been run.
std::wstring answerTo(const View& view, const std::wstring& beginning) {
    const std::wstring history = View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY);
    const std::size_t echo = history.rfind(L"Command: ");
    const std::size_t end = history.find(L"\r\n", echo);
    if (end == std::wstring::npos || history.compare(echo + 9, beginning.size(), beginning) != 0)
        return {};
    return history.substr(end + 2);
}

bool takesTyping(const View& view) {
    const HWND edit = View(view.control(IDC_COMMAND_PANE)).control(IDC_COMMAND_EDIT);
    return edit && GetFocus() == edit && ui::textOf(edit).empty();
}

/// Puts a text on the clipboard, as a person does who copies it elsewhere.
void putOnClipboard(const std::wstring& text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

class BadLinesTest : public WorkbenchTest {
  protected:
    BadLinesTest() {
        session().change([](KelDbDatabase& database) { EXPECT_EQ(engine::addLayer(database, L"Walls"), Vorn::eOk); });
        m_count = changes();
    }
    std::uint64_t changes() { return engine::changeCount(session().database()); }

    // There are hundreds of lines, and each step of a script takes some time even when it doesn't wait. So there are
    // only two steps a line: one types or pastes it and presses Enter, the other waits for the answer and checks it.

    /// Waits for the answer to the line that begins so, and checks it.
    Script refused(const std::wstring& beginning) {
        const std::string name = ui::narrow(beginning);
        Script script;
        script.step("an answer to " + name, [this, beginning, name](const View& view) -> ui::Obstacle {
            const std::wstring said = answerTo(view, beginning);
            if (said.empty())
                return "the line has no answer";
            EXPECT_TRUE(said.ends_with(L".")) << name << ": " << ui::narrow(said);
            EXPECT_EQ(said.find(L"\r\n"), std::wstring::npos) << name << ": " << ui::narrow(said);
            EXPECT_TRUE(view.text(IDC_STATUS_LINE).ends_with(L" | " + said)) << name;
            EXPECT_EQ(changes(), m_count) << name << " has changed the drawing";
            return std::nullopt;
        });
        return script;
    }
    static Script enter(const std::wstring& line, const std::function<void()>& giveLine) {
        Script script;
        script.step("enter " + ui::narrow(line.substr(0, 40)), [giveLine](const View& view) -> ui::Obstacle {
            if (!takesTyping(view))
                return "the command line takes no typing";
            giveLine();
            ui::pressKey(VK_RETURN);
            return std::nullopt;
        });
        return script;
    }
    Script type(const std::vector<std::wstring>& lines) {
        Script script;
        for (const std::wstring& line : lines)
            script.then(enter(line, [line] { ui::typeText(line); })).then(refused(line + L"\r\n"));
        return script;
    }
    static Script paste(const std::wstring& line) {
        return enter(line, [line] {
            putOnClipboard(line);
            ui::pressKey('V', ui::holdControl);
        });
    }

  private:
    std::uint64_t m_count = 0;
};

} // namespace

TEST_F(BadLinesTest, TooFewWords) {
    runAndThrowAway(type(bad::linesWithTooFew()));
}

TEST_F(BadLinesTest, TooManyWords) {
    runAndThrowAway(type(bad::linesWithTooMany()));
}

TEST_F(BadLinesTest, WrongWords) {
    runAndThrowAway(type({std::begin(bad::kWrongLines), std::end(bad::kWrongLines)}));
}

TEST_F(BadLinesTest, EnormousWords) {
    // One line for each command: what its other options do with such a line is tested without a window. The edit
    // control takes a quarter of a second for 32,000 letters, so only one line is as long. 4,000 letters do for the
    // others, because the window treats all lines of more than 1,000 letters alike: it shortens their echo.
    const std::wstring longest = L"LAYER SET " + std::wstring(32000, L'x');
    std::wstring last;
    Script script;
    script.then(paste(longest)).then(refused(longest.substr(0, 40)));
    for (const std::wstring& line : bad::enormousLines(4000)) {
        const std::wstring name = line.substr(0, line.find(L' '));
        if (name != last)
            script.then(paste(line)).then(refused(line.substr(0, 40)));
        last = name;
    }
    runAndThrowAway(script);
}

TEST_F(BadLinesTest, ALineBeyondAllMeasureIsRefusedAsAWhole) {
    Script script;
    script.then(paste(L"LAYER NEW " + std::wstring(100000, L'x')))
        .then(said(L"The line is too long: type 32767 characters at the most."));
    runAndThrowAway(script);
}
