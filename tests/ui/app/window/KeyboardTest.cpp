// The keyboard reaches everything in the main window, and everything has a name for screen readers.

#include "Accessibility.h"
#include "WorkbenchFixture.h"
#include "WorkbenchIds.h"

#include <oleacc.h>

#include <algorithm>

using ui::Script;
using ui::toldAbout;
using ui::View;

namespace {

HWND paneControl(const View& view, int id) {
    return View(view.control(IDC_COMMAND_PANE)).control(id);
}

std::wstring typed(const View& view) {
    return ui::textOf(paneControl(view, IDC_COMMAND_EDIT));
}

int firstVisibleLine(const View& view) {
    return static_cast<int>(SendMessageW(paneControl(view, IDC_COMMAND_HISTORY), EM_GETFIRSTVISIBLELINE, 0, 0));
}

/// A key that the menu names beside an item, and the line that it runs.
struct MenuKey {
    const wchar_t* text;
    WORD key;
    unsigned held;
    const wchar_t* line;
    bool asks; ///< whether the line opens a dialog
};
constexpr MenuKey kMenuKeys[] = {
    {L"Ctrl+N", 'N', ui::holdControl, L"NEW", false},
    {L"Ctrl+O", 'O', ui::holdControl, L"OPEN", true},
    {L"Ctrl+S", 'S', ui::holdControl, L"SAVE", true},
    {L"Ctrl+Shift+S", 'S', ui::holdControl | ui::holdShift, L"SAVEAS", true},
    {L"Ctrl+Shift+Z", 'Z', ui::holdControl | ui::holdShift, L"UNDO", false},
    {L"Ctrl+Shift+Y", 'Y', ui::holdControl | ui::holdShift, L"REDO", false},
    {L"Ctrl+E", 'E', ui::holdControl, L"ZOOM EXTENTS", false},
    {L"Ctrl++", VK_OEM_PLUS, ui::holdControl, L"ZOOM IN", false},
    {L"Ctrl+-", VK_OEM_MINUS, ui::holdControl, L"ZOOM OUT", false},
    {L"F5", VK_F5, ui::holdNothing, L"REGEN", false},
    {L"Ctrl+L", 'L', ui::holdControl, L"LAYERSTATE", false},
    {L"F1", VK_F1, ui::holdNothing, L"HELP", false},
};

/// Adds the texts after the tabs in the items of a menu and of its submenus: the names of keys.
void addKeys(HMENU menu, std::vector<std::wstring>& keys) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[128] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 128, MF_BYPOSITION);
        if (const wchar_t* tab = std::wcschr(text, L'\t'))
            keys.emplace_back(tab + 1);
        if (const HMENU inner = GetSubMenu(menu, i))
            addKeys(inner, keys);
    }
}

class KeyboardTest : public WorkbenchTest {
  protected:
    Script typedIs(const std::wstring& text) {
        Script script;
        script.waitUntil("the command line shows \"" + ui::narrow(text) + "\"",
                         [text](const View& view) { return typed(view) == text; });
        return script;
    }
    Script focusIs(int id) {
        Script script;
        script.waitUntil("the focus is on " + std::to_string(id),
                         [id](const View& view) { return GetFocus() == paneControl(view, id); });
        return script;
    }
};

} // namespace

TEST_F(KeyboardTest, PageKeysScrollWhatWasSaid) {
    int end = 0;
    Script script;
    script.then(command(L"HELP")).then(said(L"Tab completes"));
    script.look("the end", [&end](const View& view) { end = firstVisibleLine(view); });
    script.press(VK_PRIOR).waitUntil("a page back", [&end](const View& view) { return firstVisibleLine(view) < end; });
    script.press(VK_NEXT).waitUntil("at the end", [&end](const View& view) { return firstVisibleLine(view) == end; });
    script.type(L"ZOOM E").press(VK_PRIOR).then(typedIs(L"ZOOM E")).press(VK_RETURN);
    script.then(said(L"All of the drawing is shown.")).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, TheWheelScrollsWhatWasSaid) {
    int end = 0;
    const auto turn = [](int steps) {
        Script script;
        script.step("turn the wheel over what was said", [steps](const View& view) -> ui::Obstacle {
            if (!ui::pointerRestsAt(ui::middleOf(View(paneControl(view, IDC_COMMAND_HISTORY)).rect())))
                return "the pointer is under way";
            ui::turnWheel(steps * WHEEL_DELTA);
            return std::nullopt;
        });
        return script;
    };
    Script script;
    script.then(command(L"HELP")).then(said(L"Tab completes"));
    script.look("the end", [&end](const View& view) { end = firstVisibleLine(view); });
    script.then(turn(2)).waitUntil("back", [&end](const View& view) { return firstVisibleLine(view) == end - 6; });
    script.then(turn(-1)).waitUntil("forward", [&end](const View& view) { return firstVisibleLine(view) == end - 3; });
    script.then(command(L"QUIT"));
    runWith(script);
}

// Some systems send the wheel's messages to the window with the focus, wherever the pointer is.
TEST_F(KeyboardTest, TheWheelMeansWhatIsBelowThePointerWhoeverGetsIt) {
    int end = 0;
    const auto turnOver = [](const View& view, HWND below, int delta) {
        const POINT middle = ui::middleOf(View(below).rect());
        SendMessageW(paneControl(view, IDC_COMMAND_EDIT), WM_MOUSEWHEEL, MAKEWPARAM(0, delta),
                     MAKELPARAM(middle.x, middle.y));
    };
    auto* drawing =
        static_cast<workbench::DrawingView*>(CWnd::FromHandlePermanent(GetDlgItem(window->m_hWnd, IDC_DRAWING_VIEW)));
    Script script;
    script.then(command(L"HELP")).then(said(L"Tab completes"));
    script.look("over what was said, over the drawing, and over neither", [&](const View& view) {
        end = firstVisibleLine(view);
        turnOver(view, paneControl(view, IDC_COMMAND_HISTORY), WHEEL_DELTA);
        EXPECT_EQ(firstVisibleLine(view), end - 3);
        turnOver(view, paneControl(view, IDC_COMMAND_HISTORY), WHEEL_DELTA / 2);
        turnOver(view, paneControl(view, IDC_COMMAND_HISTORY), WHEEL_DELTA / 2);
        EXPECT_EQ(firstVisibleLine(view), end - 6) << "half steps add up";
        const double scale = drawing->view().scale();
        turnOver(view, view.control(IDC_STATUS_LINE), WHEEL_DELTA);
        EXPECT_EQ(drawing->view().scale(), scale);
        turnOver(view, view.control(IDC_DRAWING_VIEW), WHEEL_DELTA);
        EXPECT_GT(drawing->view().scale(), scale);
        EXPECT_EQ(firstVisibleLine(view), end - 6);
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, F6LeadsToWhatWasSaidAndBack) {
    Script script;
    script.press(VK_F6).then(focusIs(IDC_COMMAND_HISTORY));
    script.press(VK_F6).then(focusIs(IDC_COMMAND_EDIT));
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_TAB}, WORD{VK_RETURN}})
        script.press(VK_F6).then(focusIs(IDC_COMMAND_HISTORY)).press(key).then(focusIs(IDC_COMMAND_EDIT));
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, WhatWasSaidIsCopiedByKeys) {
    Script script;
    script.then(command(L"SETVAR TILEMODE")).then(said(L"TILEMODE = 1"));
    script.press(VK_F6).then(focusIs(IDC_COMMAND_HISTORY));
    script.press(VK_END, ui::holdControl).press(VK_HOME, ui::holdShift).press('C', ui::holdControl).press(VK_F6);
    script.then(focusIs(IDC_COMMAND_EDIT)).press('V', ui::holdControl).then(typedIs(L"TILEMODE = 1"));
    script.press(VK_ESCAPE).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, TypingIntoWhatWasSaidGoesToTheCommandLine) {
    Script script;
    script.type(L"Q").step("click what was said", [](const View& view) -> ui::Obstacle {
        if (!ui::pointerRestsAt(ui::middleOf(View(paneControl(view, IDC_COMMAND_HISTORY)).rect())))
            return "the pointer is under way";
        ui::click();
        return std::nullopt;
    });
    script.then(focusIs(IDC_COMMAND_HISTORY)).type(L"UIT").then(typedIs(L"QUIT")).press(VK_RETURN);
    runWith(script);
    EXPECT_EQ(window->m_hWnd, nullptr);
}

TEST_F(KeyboardTest, TheMenuOpensByKeysAndRunsCommands) {
    Script script;
    script.press(VK_F10).press(VK_RIGHT).press(VK_RIGHT).press(VK_DOWN).press(VK_DOWN).press(VK_RETURN);
    script.then(said(L"Command: ZOOM IN")).then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, EveryCommandOfTheMenuHasAMnemonicOfItsOwn) {
    Script script;
    script.look("the menu", [](const View& view) {
        const std::function<void(HMENU)> check = [&check](HMENU menu) {
            std::wstring taken;
            for (int i = 0; i < GetMenuItemCount(menu); ++i) {
                wchar_t text[128] = L"";
                if (GetMenuStringW(menu, static_cast<UINT>(i), text, 128, MF_BYPOSITION) == 0)
                    continue;
                const wchar_t* mark = std::wcschr(text, L'&');
                const wchar_t letter = mark ? static_cast<wchar_t>(std::towupper(mark[1])) : L'?';
                EXPECT_TRUE(mark && taken.find(letter) == std::wstring::npos) << ui::narrow(text);
                taken += letter;
                if (const HMENU inner = GetSubMenu(menu, i))
                    check(inner);
            }
            EXPECT_FALSE(taken.empty());
        };
        check(GetMenu(view.window()));
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, EveryKeyOfTheMenuRunsItsCommand) {
    Script script;
    script.look("the menu names just these keys, and the one that the system sees to", [](const View& view) {
        std::vector<std::wstring> named;
        addKeys(GetMenu(view.window()), named);
        std::vector<std::wstring> expected{L"Alt+F4"};
        for (const MenuKey& key : kMenuKeys)
            expected.emplace_back(key.text);
        std::ranges::sort(named);
        std::ranges::sort(expected);
        EXPECT_EQ(named, expected);
    });
    for (const MenuKey& key : kMenuKeys) {
        const std::wstring echo = std::wstring(L"Command: ") + key.line + L"\r\n";
        script.press(key.key, key.held);
        if (key.asks)
            script
                .waitUntil("a dialog by " + ui::narrow(key.text),
                           [](const View& view) { return !view.has(IDC_COMMAND_PANE); })
                .press(VK_ESCAPE);
        script.waitUntil("the line of " + ui::narrow(key.text), [echo](const View& view) {
            return view.has(IDC_COMMAND_PANE) &&
                   (ui::textOf(paneControl(view, IDC_COMMAND_HISTORY)) + L"\r\n").find(echo) != std::wstring::npos;
        });
    }
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, PlusAndMinusZoomOnEveryKeyThatHasThem) {
    Script script;
    std::wstring expected;
    const auto zooms = [&](WORD key, unsigned held, const wchar_t* said) {
        expected += std::wstring(expected.empty() ? L"" : L"\r\n") + said;
        script.press(key, held).waitUntil("zoomed once more", [expected](const View& view) {
            return ui::textOf(paneControl(view, IDC_COMMAND_HISTORY)) == expected;
        });
        script.then(typedIs(L""));
    };
    zooms(VK_ADD, ui::holdControl, L"Command: ZOOM IN\r\nZoomed in.");
    zooms(VK_SUBTRACT, ui::holdControl, L"Command: ZOOM OUT\r\nZoomed out.");
    zooms(VK_OEM_PLUS, ui::holdControl | ui::holdShift, L"Command: ZOOM IN\r\nZoomed in.");
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, CtrlZAndCtrlYTakeBackAndMakeAgainWhileNothingIsTyped) {
    Script script;
    script.then(command(L"LAYER MAKE Walls")).then(said(L"is made"));
    script.press('Z', ui::holdControl).waitUntil("taken back", [this](const View&) {
        return session().drawing().layers.size() == 1;
    });
    script.press('Y', ui::holdControl).waitUntil("made again", [this](const View&) {
        return session().drawing().layers.size() == 2;
    });
    script.type(L"typed").then(typedIs(L"typed")).press('Z', ui::holdControl).then(typedIs(L""));
    script.look("the drawing is as it was", [this](const View&) { EXPECT_EQ(session().drawing().layers.size(), 2U); });
    script.then(command(L"QUIT")).then(answerBox(L"Save the changes", IDNO));
    runWith(script);
}

TEST_F(KeyboardTest, EverythingHasANameForThoseWhoCantSeeIt) {
    Script script;
    script.look("the names", [](const View& view) {
        EXPECT_EQ(toldAbout(view.control(IDC_DRAWING_VIEW)).name, L"Drawing");
        EXPECT_EQ(toldAbout(view.control(IDC_SPACE_TABS)).name, L"Spaces: Model");
        EXPECT_EQ(toldAbout(view.control(IDC_COMMAND_PANE)).name, L"Command line");
        EXPECT_EQ(toldAbout(view.control(IDC_STATUS_LINE)).name, view.text(IDC_STATUS_LINE));
        EXPECT_EQ(toldAbout(paneControl(view, IDC_COMMAND_EDIT)).name, L"Command:");
        EXPECT_EQ(toldAbout(paneControl(view, IDC_COMMAND_EDIT)).role, ROLE_SYSTEM_TEXT);
        EXPECT_EQ(toldAbout(paneControl(view, IDC_COMMAND_HISTORY)).name, L"History");
        for (const HWND control : ui::visibleControls(view.window()))
            EXPECT_FALSE(toldAbout(control).name.empty()) << GetDlgCtrlID(control);
    });
    script.then(command(L"QUIT"));
    runWith(script);
}

TEST_F(KeyboardTest, UndoAndRedoAreGreyWhenThereIsNothing) {
    const auto isGrey = [](const View& view, UINT item) {
        return (GetMenuState(GetMenu(view.window()), item, MF_BYCOMMAND) & MF_GRAYED) != 0;
    };
    // Opens the menu, looks at both items, and presses one's letter.
    const auto inMenu = [&](bool undo, bool redo, WORD letter) {
        Script script;
        script.pressAlt(L'e')
            .waitUntil("the items are as they should be",
                       [=](const View& view) {
                           return isGrey(view, ID_MENU_UNDO) == !undo && isGrey(view, ID_MENU_REDO) == !redo;
                       })
            .press(letter);
        return script;
    };
    Script script;
    script.then(inMenu(false, false, VK_ESCAPE)).press(VK_ESCAPE);
    script.then(command(L"LAYER NEW Walls")).then(inMenu(true, false, 'U')).then(said(L"Command: UNDO"));
    script.then(inMenu(false, true, 'R')).then(said(L"Command: REDO"));
    script.then(inMenu(true, false, 'U')).then(said(L"Command: REDO\r\nMade again: LAYER NEW.\r\nCommand: UNDO"));
    script.then(command(L"QUIT"));
    runWith(script);
}
