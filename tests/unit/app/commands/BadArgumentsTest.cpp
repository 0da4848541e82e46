// Every command and every option with none, wrong, too many and enormous arguments: one sentence that says what to do,
// and nothing changed.

#include "BadLines.h"
#include "CommandFixture.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class BadArgumentsTest : public CommandFixture {
  protected:
    BadArgumentsTest() {
        // A change that could be lost; when a command asks whether to save it, the answer is Cancel.
        run(L"LAYER NEW Walls");
        window.saveAnswer = workbench::SaveAnswer::Cancel;
        // As the real one for windows beyond measure, and while nothing else has been on view.
        window.canZoom = false;
    }
    /// Runs a line that has to be refused in one sentence.
    void expectRefusal(const std::wstring& line) {
        const std::string about(line.begin(),
                                line.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(line.size(), 60)));
        const std::uint64_t before = engine::changeCount(session.database());
        const std::wstring said = run(line);
        EXPECT_EQ(done, line == L"LAYER NEW Walls") << about << ": a layer that is there is what was wanted";
        EXPECT_THAT(said, EndsWith(L".\n")) << about;
        EXPECT_EQ(std::ranges::count(said, L'\n'), 1) << about;
        EXPECT_LT(said.size(), 600u) << about << ": a message that long can't be read";
        EXPECT_THAT(window.failures, IsEmpty()) << about;
        EXPECT_EQ(engine::changeCount(session.database()), before) << about << ": the drawing was changed";
    }
};

const std::wstring kEnormous(workbench::kLongestLine - 100, L'x');

} // namespace

TEST_F(BadArgumentsTest, TooFewAreToldWithTheUsage) {
    for (const std::wstring& line : bad::linesWithTooFew())
        expectRefusal(line);
    EXPECT_EQ(run(L"LAYOUT"), L"LAYOUT lacks an argument: type LAYOUT name.\n");
    EXPECT_EQ(run(L"LAYER RENAME Walls"), L"LAYER RENAME lacks an argument: type LAYER RENAME name newname.\n");
}

TEST_F(BadArgumentsTest, TooManyAreToldWithTheUsage) {
    for (const std::wstring& line : bad::linesWithTooMany()) {
        expectRefusal(line);
        EXPECT_THAT(window.printed,
                    AnyOf(HasSubstr(L" has too many arguments: type "), HasSubstr(L" takes no arguments: type ")));
    }
    EXPECT_EQ(run(L"NEW word"), L"NEW takes no arguments: type NEW alone.\n");
    EXPECT_EQ(run(L"ZOOM IN word"), L"ZOOM IN takes no arguments: type ZOOM IN alone.\n");
    EXPECT_EQ(run(L"VPORT 1 2"), L"VPORT has too many arguments: type VPORT number|NONE.\n");
}

TEST_F(BadArgumentsTest, AnUnknownOptionIsToldWithAllThatThereAre) {
    EXPECT_EQ(run(L"ZOOM q"), L"ZOOM has no option \"q\": type one of EXTENTS, IN, OUT, WINDOW, PREVIOUS, LAYER behind "
                              L"it, or HELP ZOOM.\n");
    EXPECT_EQ(run(L"ZOOM"),
              L"ZOOM needs an option: type one of EXTENTS, IN, OUT, WINDOW, PREVIOUS, LAYER behind it, or "
              L"HELP ZOOM.\n");
    expectRefusal(L"LAYER " + kEnormous);
    expectRefusal(L"VPLAYER " + kEnormous);
}

TEST_F(BadArgumentsTest, EnormousOnesAreRefusedByEveryCommand) {
    for (const std::wstring& line : bad::enormousLines())
        expectRefusal(line);
    for (const std::wstring line : {L"SETVAR LTSCALE ", L"SETVAR CTAB ", L"LAYER RENAME Walls ", L"LAYER PLOT yes "})
        expectRefusal(line + kEnormous);
    for (const std::wstring line : {L"OPEN ", L"SAVEAS "}) {
        run(line + kEnormous);
        EXPECT_FALSE(done);
        EXPECT_EQ(window.failures.size(), 1u) << "a file that can't be used is told so that it can't be missed";
        window.failures.clear();
    }
}

TEST_F(BadArgumentsTest, EnormousOnesAreRefusedInAViewportToo) {
    run(L"LAYOUT Layout1");
    run(L"VPORT 2");
    for (const std::wstring& line : bad::enormousLines())
        if (line.starts_with(L"VPLAYER"))
            expectRefusal(line);
    expectRefusal(L"VPLAYER FREEZE Base IN " + kEnormous);
    expectRefusal(L"VPLAYER COLOUR red " + kEnormous);
}

TEST_F(BadArgumentsTest, AnEnormousLineIsEchoedByItsBeginning) {
    run(L"LAYER SET " + kEnormous);
    EXPECT_THAT(window.printed, StartsWith(L"Command: LAYER SET xxx"));
    EXPECT_EQ(window.printed.find(L"...\n"), std::wstring(L"Command: ").size() + 1000);
}

TEST_F(BadArgumentsTest, ALineBeyondAllMeasureIsRefusedAsAWhole) {
    const std::wstring line = L"LAYER NEW " + std::wstring(workbench::kLongestLine, L'x');
    EXPECT_EQ(run(line), L"The line is too long: type 32767 characters at the most.\n");
    EXPECT_EQ(drawing().layers.size(), 2u);
}

TEST_F(BadArgumentsTest, WrongValuesAreToldWithThoseThatAreRight) {
    for (const wchar_t* line : bad::kWrongLines)
        expectRefusal(line);
}

TEST_F(BadArgumentsTest, AFileThatCantBeUsedIsToldWithWhatToDo) {
    run(L"OPEN " + path("nowhere.zdr"));
    EXPECT_EQ(window.failures.at(0),
              L"The file \"" + path("nowhere.zdr") + L"\" doesn't exist: check its name and folder.");
    writeBytes("text.zdr", "This is no drawing.");
    run(L"OPEN " + path("text.zdr"));
    EXPECT_THAT(window.failures.at(1), EndsWith(L": choose another one."));
    run(L"SAVEAS " + path("nowhere/a.zdr"));
    EXPECT_THAT(window.failures.at(2), EndsWith(L": choose another name or folder by SAVEAS."));
    EXPECT_THAT(run(L"ATTACH " + path("nowhere.zdr")),
                EndsWith(L"doesn't exist: check the path, or attach another one.\n"));
}
