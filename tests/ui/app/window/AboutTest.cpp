// What the program tells about itself, in a box that keys open and close.

#include "AboutText.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::Contains;
using ui::Script;
using ui::View;

namespace {

class AboutTest : public WorkbenchTest {
  protected:
    /// Steps that look at the box and close it by a key.
    static Script readAndPress(WORD key) {
        Script script;
        script.waitUntil("the box", [](const View& view) { return view.title() == L"About Kel Workbench"; })
            .look("its text",
                  [](const View& view) {
                      std::vector<std::wstring> texts = view.texts();
                      for (std::wstring& text : texts)
                          std::erase(text, L'\r');
                      EXPECT_THAT(texts, Contains(workbench::aboutText()));
                  })
            .press(key)
            .waitUntil("the main window has the input again",
                       [](const View& view) { return view.has(IDC_COMMAND_PANE); });
        return script;
    }
};

} // namespace

TEST_F(AboutTest, TheCommandAndTheMenuOpenItAndEnterAndEscCloseIt) {
    Script script;
    script.then(command(L"ABOUT")).then(readAndPress(VK_ESCAPE)).then(command(L"ABOUT")).then(readAndPress(VK_RETURN));
    script.pressAlt(L'h').press('A').then(readAndPress(VK_ESCAPE));
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(AboutTest, EveryLibraryOfOthersThatLiesBesideTheProgramIsNamed) {
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring text = workbench::aboutText();
    int count = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(program).parent_path())) {
        std::wstring name = entry.path().filename().wstring();
        if (!name.starts_with(L"lib") || entry.path().extension() != ".dll")
            continue;
        name.resize(name.find_first_of(L"-_")); // the version, and how it was built
        const bool isNamed = text.find(name) != std::wstring::npos || text.find(name.substr(3)) != std::wstring::npos;
        EXPECT_TRUE(isNamed) << ui::narrow(name);
        ++count;
    }
    EXPECT_GE(count, 3) << "the compiler's own libraries lie there";
}
