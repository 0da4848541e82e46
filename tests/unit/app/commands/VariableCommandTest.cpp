// SETVAR.

#include "CommandFixture.h"
#include "SystemVariables.h"

using testing::HasSubstr;
using testing::IsEmpty;

using VariableCommandTest = CommandFixture;

TEST_F(VariableCommandTest, ListsThemAll) {
    const std::wstring text = run(L"SETVAR");
    for (const std::wstring& name : runtime::systemVariableNames())
        EXPECT_THAT(text, HasSubstr(name + L" = "));
    EXPECT_THAT(text, HasSubstr(L"CLAYER = \"Base\"\n"));
    EXPECT_THAT(text, HasSubstr(L"LWDEFAULT = 25\n"));
}

TEST_F(VariableCommandTest, ShowsAndSetsThoseThatTheApplicationKeeps) {
    EXPECT_EQ(run(L"setvar cprofile"), L"CPROFILE = \"Default\"\n");
    EXPECT_EQ(run(L"SETVAR cprofile \"My profile\""), L"CPROFILE = \"My profile\"\n");
    EXPECT_EQ(run(L"SETVAR CPROFILE"), L"CPROFILE = \"My profile\"\n");
    run(L"NEW");
    EXPECT_EQ(run(L"SETVAR CPROFILE"), L"CPROFILE = \"My profile\"\n");
    EXPECT_THAT(window.questions, IsEmpty()) << "it isn't the drawing that has changed";
}

TEST_F(VariableCommandTest, TheLinetypeScaleBelongsToTheDrawing) {
    const int changed = window.changed;
    EXPECT_EQ(run(L"SETVAR ltscale 0.5"), L"LTSCALE = 0.5000\n");
    EXPECT_EQ(drawing().linetypeScale, 0.5);
    EXPECT_GT(window.changed, changed) << "the dashes on view follow";
    EXPECT_TRUE(session.isModified());
    run(L"U");
    EXPECT_EQ(run(L"SETVAR LTSCALE"), L"LTSCALE = 1.0000\n");
    EXPECT_FALSE(session.isModified());
    run(L"REDO");
    EXPECT_EQ(run(L"SETVAR LTSCALE"), L"LTSCALE = 0.5000\n");
    run(L"SAVEAS " + path("half.zdr"));
    run(L"NEW");
    EXPECT_EQ(run(L"SETVAR LTSCALE"), L"LTSCALE = 1.0000\n") << "of the next drawing";
    run(L"OPEN " + path("half.zdr"));
    EXPECT_EQ(run(L"SETVAR LTSCALE"), L"LTSCALE = 0.5000\n");
}

TEST_F(VariableCommandTest, TheLinetypeScaleThatIsThereAlreadyIsNoStepOfUndo) {
    EXPECT_EQ(run(L"SETVAR LTSCALE 1"), L"LTSCALE = 1.0000\n");
    EXPECT_FALSE(session.isModified());
    EXPECT_THAT(run(L"U"), HasSubstr(L"There is nothing to undo"));
}

TEST_F(VariableCommandTest, RefusesWhatIsNoValueOfTheVariable) {
    for (const wchar_t* value : {L"much", L"1e999", L"0x10", L"inf", L"1,5", L"0", L"-0", L"-1", L"-1e300", L"1e-300",
                                 L"1e300", L"0.00009", L"1000001"})
        EXPECT_EQ(run(std::wstring(L"SETVAR LTSCALE ") + value),
                  L'"' + std::wstring(value) + L"\" is no value of LTSCALE: give a number from 0.0001 to 1000000.\n");
    EXPECT_EQ(drawing().linetypeScale, 1);
    EXPECT_FALSE(session.isModified());
    run(L"SETVAR LTSCALE 0.0001");
    EXPECT_EQ(drawing().linetypeScale, 0.0001);
    run(L"SETVAR LTSCALE 1000000");
    EXPECT_EQ(drawing().linetypeScale, 1e6);
    EXPECT_EQ(run(L"SETVAR VIEWTWIST 1"), L"VIEWTWIST tells about the drawing: SETVAR can only show it.\n");
    EXPECT_EQ(run(L"SETVAR VIEWTWIST"), L"VIEWTWIST = 0.0000\n");
    EXPECT_EQ(run(L"SETVAR ZDRNAME x"), L"ZDRNAME tells about the drawing: SETVAR can only show it.\n");
    EXPECT_EQ(run(L"SETVAR foo"), L"There is no system variable \"foo\": SETVAR alone lists them.\n");
}

TEST_F(VariableCommandTest, SetsWhatACommandChangesByThatCommand) {
    run(L"LAYER NEW \"Ground floor\"");
    EXPECT_EQ(run(L"SETVAR CLAYER \"ground floor\""), L"\"Ground floor\" is the current layer.\n");
    EXPECT_EQ(run(L"SETVAR CLAYER"), L"CLAYER = \"Ground floor\"\n");
    run(L"SETVAR TILEMODE 0");
    EXPECT_EQ(drawing().activeLayout, 0u);
    run(L"SETVAR CVPORT 2");
    EXPECT_TRUE(drawing().currentViewport);
    run(L"SETVAR CVPORT 0");
    EXPECT_FALSE(drawing().currentViewport);
    run(L"SETVAR TILEMODE 1");
    EXPECT_FALSE(drawing().activeLayout);
    run(L"SETVAR CTAB Layout1");
    EXPECT_EQ(drawing().activeLayout, 0u);
    run(L"SETVAR CTAB Model");
    EXPECT_FALSE(drawing().activeLayout);
}

TEST_F(VariableCommandTest, TilemodeAlwaysSaysWhatIsShown) {
    EXPECT_EQ(run(L"SETVAR TILEMODE 0"), L"The layout \"Layout1\" is shown.\n");
    EXPECT_EQ(run(L"SETVAR TILEMODE 0"), L"The layout \"Layout1\" is shown.\n");
    zdr::Drawing bare = drawing();
    bare.layouts.clear();
    bare.activeLayout.reset();
    session.rebuild(bare);
    EXPECT_EQ(run(L"SETVAR TILEMODE 0"), L"The drawing has no layout that TILEMODE could show: leave it at 1.\n");
}
