// What a user cancels, or answers with no, changes nothing, and the command says so.

#include "CommandFixture.h"

namespace {

constexpr const wchar_t* kNothingChosen = L"No file is chosen, and nothing has changed.\n";

class SecondThoughtsTest : public CommandFixture {
  protected:
    void change() { run(L"LAYER NEW Changed"); }
};

} // namespace

TEST_F(SecondThoughtsTest, AboutAFileAreTold) {
    for (const wchar_t* line : {L"OPEN", L"SAVE", L"SAVEAS", L"ATTACH", L"SCRIPT"})
        EXPECT_EQ(run(line), kNothingChosen);
    EXPECT_EQ(session.path(), L"");
    EXPECT_TRUE(window.scriptLines.empty());
    EXPECT_TRUE(drawing().references.empty());
}

TEST_F(SecondThoughtsTest, AboutLeavingTheDrawingAreTold) {
    change();
    writeDrawing("other.zdr", drawing());
    window.saveAnswer = workbench::SaveAnswer::Cancel;
    for (const std::wstring& line : {std::wstring(L"NEW"), std::wstring(L"QUIT"), L"OPEN " + path("other.zdr")})
        EXPECT_EQ(run(line), L"The drawing stays open.\n");
    EXPECT_EQ(window.quits, 0);
    EXPECT_EQ(window.replaced, 0);
    EXPECT_TRUE(session.isModified());
}

TEST_F(SecondThoughtsTest, AboutTheFileOfASaveThatTheyWouldTakeAreTold) {
    change();
    window.saveAnswer = workbench::SaveAnswer::Save;
    EXPECT_EQ(run(L"QUIT"), kNothingChosen) << "a drawing without a file asks for one";
    EXPECT_EQ(window.quits, 0);
}

TEST_F(SecondThoughtsTest, AboutWritingOverAFileAreTold) {
    writeBytes("taken.zdr", "Somebody's text.");
    EXPECT_EQ(run(L"SAVEAS " + path("taken.zdr")), L"The file stays as it is, and the drawing isn't saved.\n");
    EXPECT_EQ(std::filesystem::file_size(folder / "taken.zdr"), 16u);
    EXPECT_EQ(session.path(), L"");
}
