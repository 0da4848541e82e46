// Lines and clicks that come while a script runs, or while what was typed before still waits: they are told what goes
// first, and come in their turn.

#include "LinesOfScripts.h"
#include "SystemRegistry.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <fstream>

using ui::Script;
using ui::View;

namespace {

class WaitingLinesTest : public WorkbenchTest {
  protected:
    const zdr::Drawing& drawing() const { return window->session().drawing(); }
    void writeScript(const std::string& text) { std::ofstream(folder / "long.scr", std::ios::binary) << text; }
    std::wstring layerName(std::size_t layer) const { return drawing().names.text(drawing().layers.at(layer).name); }
    static std::wstring status() { return View(AfxGetApp()->m_pMainWnd->m_hWnd).text(IDC_STATUS_LINE); }
};

std::string repeated(const std::string& line, int times) {
    std::string lines;
    for (int i = 0; i < times; ++i)
        lines += line + '\n';
    return lines;
}

std::wstring g_statusInScript;
bool g_isTabClicked = false;

/// The place of the pointer may stand between.
void expectToldThatTheTabWaits() {
    EXPECT_TRUE(g_statusInScript.starts_with(L"Base | Model | ")) << ui::narrow(g_statusInScript);
    EXPECT_TRUE(g_statusInScript.ends_with(L"mm | The script goes first, then \"LAYOUT \"Layout1\"\"."))
        << ui::narrow(g_statusInScript);
}

} // namespace

// A command of the script itself plays the person, so that the input comes while the script runs. Another one notes
// what the status line shows before the end.
TEST_F(WaitingLinesTest, WhatIsTypedAndWhichTabIsChosenWaitForTheEndOfTheScript) {
    runtime::commandStack().addCommand(L"TEST", L"TYPE", L"TYPE", 0, [] {
        ui::typeText(L"LAYER NEW Typed");
        ui::pressKey(VK_RETURN);
        ui::pressKey(VK_NEXT, ui::holdControl);
    });
    runtime::commandStack().addCommand(L"TEST", L"N", L"N", 0, letInputIn);
    runtime::commandStack().addCommand(L"TEST", L"NOTE", L"NOTE", 0, [] { g_statusInScript = status(); });
    writeScript("TYPE\n" + repeated("N", 1000) + "NOTE\nLAYER NEW Scripted\n");
    Script script;
    script.then(command(L"SCRIPT " + path("long.scr")))
        .then(said(L"long.scr\" has ended: 1003 lines done.\r\nCommand: LAYER NEW Typed\r\n1 layer is made."))
        .then(said(L"Command: LAYOUT \"Layout1\"\r\nThe layout \"Layout1\" is shown."))
        .look("the script's layer came first", [this](const View&) {
            ASSERT_EQ(drawing().layers.size(), 3u);
            EXPECT_EQ(layerName(1), L"Scripted");
            expectToldThatTheTabWaits();
        });
    runAndThrowAway(script);
}

// The script goes on until the click has come.
TEST_F(WaitingLinesTest, AClickOnATabWaitsForTheEndOfTheScript) {
    g_isTabClicked = false;
    runtime::commandStack().addCommand(L"TEST", L"N", L"N", 0, [] {
        g_isTabClicked = g_isTabClicked || status().find(L"The script goes first") != std::wstring::npos;
        takeTimeWhile([] { return !g_isTabClicked; });
    });
    runtime::commandStack().addCommand(L"TEST", L"NOTE", L"NOTE", 0, [] { g_statusInScript = status(); });
    writeScript(repeated("N", 400) + "NOTE\n");
    Script script;
    script.then(command(L"SCRIPT " + path("long.scr")))
        .then(said(L"Command: N"))
        .clickPoint("the tab of the sheet",
                    [](const View& view) -> std::optional<POINT> {
                        auto* tabs =
                            static_cast<workbench::SpaceTabs*>(CWnd::FromHandlePermanent(view.control(IDC_SPACE_TABS)));
                        CRect rect = tabs->tabRect(1);
                        tabs->ClientToScreen(rect);
                        return ui::middleOf(rect);
                    })
        .then(said(L"long.scr\" has ended: 401 lines done.\r\nCommand: LAYOUT \"Layout1\"\r\n"
                   L"The layout \"Layout1\" is shown."))
        .look("the click waited",
              [this](const View&) {
                  EXPECT_TRUE(g_isTabClicked);
                  expectToldThatTheTabWaits();
                  EXPECT_EQ(drawing().activeLayout, 0u);
              })
        .then(command(L"QUIT"));
    runWith(script);
}

// Two lines are typed during the script. When it has ended the first of them plays the person who types a third one
// while the second still waits.
TEST_F(WaitingLinesTest, ALineThatIsTypedWhileTypedLinesWaitIsToldSo) {
    runtime::commandStack().addCommand(L"TEST", L"TYPE", L"TYPE", 0, [] {
        ui::typeText(L"MORE");
        ui::pressKey(VK_RETURN);
        ui::typeText(L"LAYER NEW Second");
        ui::pressKey(VK_RETURN);
    });
    runtime::commandStack().addCommand(L"TEST", L"MORE", L"MORE", 0, [] {
        ui::typeText(L"LAYER NEW Third");
        ui::pressKey(VK_RETURN);
        takeTimeWhile([] { return true; });
    });
    runtime::commandStack().addCommand(L"TEST", L"N", L"N", 0, letInputIn);
    writeScript("TYPE\n" + repeated("N", 1000));
    Script script;
    script.then(command(L"SCRIPT " + path("long.scr")))
        .then(said(L"Command: MORE\r\nWhat was typed before goes first, then \"LAYER NEW Third\".\r\n"
                   L"Command: LAYER NEW Second\r\n1 layer is made.\r\nCommand: LAYER NEW Third\r\n"))
        .look("in the order of typing", [this](const View&) {
            ASSERT_EQ(drawing().layers.size(), 3u);
            EXPECT_EQ(layerName(1), L"Second");
            EXPECT_EQ(layerName(2), L"Third");
        });
    runAndThrowAway(script);
}
