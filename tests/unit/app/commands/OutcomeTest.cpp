// Whether a command could be done, by which a script goes on or stops. What refuses all bad lines is in
// BadArgumentsTest.cpp.

#include "CommandFixture.h"
#include "SystemRegistry.h"

#include <fstream>

using workbench::SaveAnswer;

namespace {

class OutcomeTest : public CommandFixture {
  protected:
    OutcomeTest() {
        writeDrawing("plan.zdr", drawing());
        writeDrawing("site.zdr", drawing());
        writeBytes("lines.scr", "MODEL\n");
    }
    std::string about(const std::wstring& line) const { return {line.begin(), line.end()}; }
    void expectDone(const std::wstring& line) {
        run(line);
        EXPECT_TRUE(done) << about(line);
    }
    void expectFailed(const std::wstring& line) {
        run(line);
        EXPECT_FALSE(done) << about(line);
    }
};

void throwSomething() {
    throw 1;
}

} // namespace

TEST_F(OutcomeTest, WhatCouldBeDoneIsDone) {
    for (const std::wstring& line : {std::wstring(),
                                     std::wstring(L"LAYER NEW Walls,Doors"),
                                     std::wstring(L"LAYER NEW Walls"),
                                     std::wstring(L"LAYER FREEZE *"),
                                     std::wstring(L"LAYER THAW *"),
                                     std::wstring(L"LAYER COLOR red Walls"),
                                     std::wstring(L"LAYER DELETE *"),
                                     std::wstring(L"U"),
                                     std::wstring(L"REDO"),
                                     std::wstring(L"LAYER LIST"),
                                     std::wstring(L"LAYOUT Layout1"),
                                     std::wstring(L"VPORT 2"),
                                     std::wstring(L"VPLAYER FREEZE Base"),
                                     std::wstring(L"MODEL"),
                                     std::wstring(L"SETVAR LTSCALE 2"),
                                     std::wstring(L"SETVAR"),
                                     std::wstring(L"HELP"),
                                     std::wstring(L"HELP LAYER"),
                                     std::wstring(L"ZOOM E"),
                                     std::wstring(L"REGEN"),
                                     std::wstring(L"MODULE LIST"),
                                     L"SAVEAS " + path("own.zdr"),
                                     std::wstring(L"SAVE"),
                                     L"OPEN " + path("plan.zdr"),
                                     L"ATTACH " + path("site.zdr"),
                                     std::wstring(L"RELOAD site"),
                                     std::wstring(L"UNLOAD *"),
                                     std::wstring(L"DETACH site"),
                                     L"SCRIPT " + path("lines.scr"),
                                     std::wstring(L"MODULE LOAD x")})
        expectDone(line);
}

TEST_F(OutcomeTest, WhatWasCancelledIsNotDone) {
    for (const wchar_t* line : {L"OPEN", L"SAVEAS", L"ATTACH", L"SCRIPT"})
        expectFailed(line);
    run(L"LAYER NEW Walls");
    window.saveAnswer = SaveAnswer::Cancel;
    for (const std::wstring& line : {std::wstring(L"NEW"), std::wstring(L"QUIT"), L"OPEN " + path("plan.zdr")})
        expectFailed(line);
    expectFailed(L"SAVEAS " + path("plan.zdr"));
    EXPECT_EQ(window.questions.size(), 8u) << "the last one asked whether to write over the file";
    window.saveAnswer = SaveAnswer::Discard;
    expectDone(L"OPEN " + path("plan.zdr"));
}

TEST_F(OutcomeTest, WhatFailedIsNotDone) {
    for (const std::wstring& line : {L"OPEN " + path("missing.zdr"), L"SAVEAS " + path("no/folder.zdr"),
                                     L"ATTACH " + path("missing.zdr"), L"SCRIPT " + path("missing.scr")})
        expectFailed(line);
    window.moduleProblem = L"It can't be loaded.";
    expectFailed(L"MODULE LOAD x");
    for (const wchar_t* line : {L"U", L"REDO", L"foo", L"LAYER FREEZE Base", L"LAYER DELETE Base"})
        expectFailed(line);
    runtime::commandStack().addCommand(L"TEST", L"THROW", L"THROW", 0, throwSomething);
    expectFailed(L"THROW");
}

TEST_F(OutcomeTest, AReferenceThatIsntReadAgainIsNotDone) {
    run(L"ATTACH " + path("site.zdr"));
    std::filesystem::remove(folder / "site.zdr");
    expectFailed(L"RELOAD site");
}

TEST_F(OutcomeTest, WhatWasDoneBeforeCountsForNothing) {
    expectFailed(L"foo");
    expectDone(L"REGEN");
    expectFailed(L"foo");
    expectDone(L"");
}
