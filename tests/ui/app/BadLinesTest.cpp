// Lines that can't be right, typed and pasted into the real window: each is answered in one sentence that stands in the
// history and in the status line, and changes nothing.

#include "WorkbenchFixture.h"
#include "unit/app/BadLines.h"
#include "resource.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

using ui::Script;
using ui::View;

namespace {

/// What was said since the last line was run.
std::wstring answer(const View& view) {
    const std::wstring history = View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY);
    const std::size_t echo = history.rfind(L"Command: ");
    const std::size_t end = history.find(L"\r\n", echo);
    return end == std::wstring::npos ? L"" : history.substr(end + 2);
}

/// What a person does who copies a text elsewhere.
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

    /// Waits for the answer to a line that begins so, and looks at it.
    Script refused(const std::wstring& beginning) {
        const std::wstring echo = L"Command: " + beginning;
        const std::string name = ui::narrow(beginning);
        Script script;
        script.waitUntil("an answer to " + name, [echo](const View& view) {
            const std::wstring history = View(view.control(IDC_COMMAND_PANE)).text(IDC_COMMAND_HISTORY);
            return history.rfind(echo) == history.rfind(L"Command: ") && !answer(view).empty();
        });
        script.look("the answer to " + name, [this, name](const View& view) {
            const std::wstring said = answer(view);
            EXPECT_TRUE(said.ends_with(L".")) << name << ": " << ui::narrow(said);
            EXPECT_EQ(said.find(L"\r\n"), std::wstring::npos) << name << ": " << ui::narrow(said);
            EXPECT_TRUE(view.text(IDC_STATUS_LINE).ends_with(L" | " + said)) << name;
            EXPECT_EQ(changes(), m_count) << name << " has changed the drawing";
        });
        return script;
    }
    Script type(const std::vector<std::wstring>& lines) {
        Script script;
        for (const std::wstring& line : lines)
            script.then(command(line)).then(refused(line));
        return script;
    }
    Script paste(const std::wstring& line) {
        Script script;
        script.look("copy a line", [line](const View&) { putOnClipboard(line); })
            .press('V', ui::holdControl)
            .press(VK_RETURN);
        return script;
    }
    void runAndThrowAway(Script script) {
        script.then(command(L"QUIT")).then(answerBox(L"Save the changes", IDNO));
        runWith(script);
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
    // Each command by itself, or with its first option: what the others make of it needs no window.
    std::wstring last;
    Script script;
    for (const std::wstring& line : bad::enormousLines()) {
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
