// Every command and every option with none, wrong, too many and enormous arguments: one sentence that says what to do,
// and nothing changed.

#include "CommandTable.h"
#include "CommandTest.h"
#include "PropertyText.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using workbench::Command;
using workbench::commandTable;
using workbench::Option;

namespace {

class BadArgumentsTest : public CommandTest {
  protected:
    BadArgumentsTest() {
        // Something to lose, and nothing to ask about.
        run(L"LAYER NEW Walls");
        shell.saveAnswer = workbench::SaveAnswer::Cancel;
    }
    /// Runs a line that has to be refused in one sentence.
    void expectRefusal(const std::wstring& line) {
        const std::string about(line.begin(),
                                line.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(line.size(), 60)));
        const std::uint64_t before = engine::changeCount(session.database());
        const std::wstring said = run(line);
        EXPECT_THAT(said, EndsWith(L".\n")) << about;
        EXPECT_EQ(std::ranges::count(said, L'\n'), 1) << about;
        EXPECT_LT(said.size(), 600u) << about << ": a message that long can't be read";
        EXPECT_THAT(shell.failures, IsEmpty()) << about;
        EXPECT_EQ(engine::changeCount(session.database()), before) << about << ": the drawing was changed";
    }
    static std::wstring many(int count) {
        std::wstring words;
        for (int i = 0; i < count; ++i)
            words += L" word";
        return words;
    }
};

const std::wstring kEnormous(workbench::kLongestLine - 100, L'x');

} // namespace

TEST_F(BadArgumentsTest, TooFewAreToldWithTheUsage) {
    for (const Command& command : commandTable()) {
        if (command.options || command.count.least > 0)
            expectRefusal(command.name);
        for (const Option& option : command.options ? command.options() : std::span<const Option>()) {
            if (option.count.least == 0)
                continue;
            const std::wstring name = std::wstring(command.name) + L' ' + option.name;
            expectRefusal(name + many(option.count.least - 1));
            EXPECT_THAT(shell.printed, HasSubstr(name + L" lacks an argument: type " + usageOf(command, option)));
        }
    }
}

TEST_F(BadArgumentsTest, TooManyAreToldWithTheUsage) {
    for (const Command& command : commandTable()) {
        if (!command.options && command.count.most < workbench::kMany) {
            expectRefusal(command.name + many(command.count.most + 1));
            EXPECT_THAT(shell.printed, HasSubstr(L" has too many arguments: type " + usageOf(command) + L".\n"));
        }
        for (const Option& option : command.options ? command.options() : std::span<const Option>())
            if (option.count.most < workbench::kMany)
                expectRefusal(std::wstring(command.name) + L' ' + option.name + many(option.count.most + 1));
    }
}

TEST_F(BadArgumentsTest, AnUnknownOptionIsToldWithAllThatThereAre) {
    EXPECT_EQ(run(L"ZOOM w"), L"ZOOM has no option \"w\": type one of EXTENTS, IN, OUT behind it, or HELP ZOOM.\n");
    EXPECT_EQ(run(L"ZOOM"), L"ZOOM needs an option: type one of EXTENTS, IN, OUT behind it, or HELP ZOOM.\n");
    expectRefusal(L"LAYER " + kEnormous);
    expectRefusal(L"VPLAYER " + kEnormous);
}

TEST_F(BadArgumentsTest, EnormousOnesAreRefusedByEveryCommand) {
    for (const std::wstring line : {L"LAYOUT ",
                                    L"VPORT ",
                                    L"RELOAD ",
                                    L"UNLOAD ",
                                    L"DETACH ",
                                    L"SETVAR ",
                                    L"SETVAR LTSCALE ",
                                    L"SCRIPT ",
                                    L"HELP ",
                                    L"ATTACH ",
                                    L"LAYER SET ",
                                    L"LAYER MAKE ",
                                    L"LAYER NEW ",
                                    L"LAYER RENAME Walls ",
                                    L"LAYER DELETE ",
                                    L"LAYER ON ",
                                    L"LAYER COLOUR ",
                                    L"LAYER LINETYPE ",
                                    L"LAYER LINEWEIGHT ",
                                    L"LAYER PLOTSTYLE ",
                                    L"LAYER PLOT yes ",
                                    L"LAYER PLOT ",
                                    L"LAYER LIST ",
                                    L"LAYER NEWVIEWPORTS ",
                                    L"VPLAYER FREEZE "})
        expectRefusal(line + kEnormous);
    for (const std::wstring line : {L"OPEN ", L"SAVEAS "}) {
        run(line + kEnormous);
        EXPECT_EQ(shell.failures.size(), 1u) << "a file that can't be used is told so that it can't be missed";
        shell.failures.clear();
    }
}

TEST_F(BadArgumentsTest, ALineBeyondAllMeasureIsRefusedAsAWhole) {
    const std::wstring line = L"LAYER NEW " + std::wstring(workbench::kLongestLine, L'x');
    EXPECT_EQ(run(line), L"The line is too long: type 32767 characters at the most.\n");
    EXPECT_EQ(drawing().layers.size(), 2u);
}

TEST_F(BadArgumentsTest, WrongValuesAreToldWithThoseThatAreRight) {
    for (const wchar_t* line : {L"VPORT two",
                                L"LAYER SET nowhere",
                                L"LAYER ON nowhere,Walls",
                                L"LAYER ON ,",
                                L"LAYER COLOUR 256",
                                L"LAYER COLOUR 1,2",
                                L"LAYER COLOUR 1,2,256",
                                L"LAYER LINETYPE dotted",
                                L"LAYER LINEWEIGHT 0.26",
                                L"LAYER PLOTSTYLE nowhere",
                                L"LAYER PLOT perhaps Walls",
                                L"LAYER NEW a:b",
                                L"LAYER MAKE a|b",
                                L"LAYER RENAME Walls Base",
                                L"LAYER RENAME Base Other",
                                L"LAYER DELETE Base",
                                L"LAYER FREEZE Base",
                                L"VPLAYER FREEZE Walls",
                                L"DETACH *",
                                L"RELOAD *",
                                L"SETVAR nowhere",
                                L"SETVAR LTSCALE much",
                                L"SETVAR LAYERCOUNT 7",
                                L"SETVAR TILEMODE 2",
                                L"SETVAR CVPORT x",
                                L"SCRIPT nowhere.txt",
                                L"ATTACH nowhere.zdr"})
        expectRefusal(line);
}
