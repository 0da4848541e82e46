// The owner-drawn buttons: their looks, and that they behave as push buttons.

#include "DialogFixture.h"
#include "Pixels.h"

#include "instruments/HostCalls.h"

#include <oleacc.h>

#include <algorithm>

using testing::Contains;
using testing::Each;

namespace {

constexpr unsigned kRed = 0xFF0000;
constexpr unsigned kBlue = 0x0000FF;
constexpr unsigned kGreen = 0x00FF00;

class BitmapButton : public DialogFixture {
  protected:
    TestDialog dialog{IDD_FIXED};
    COrvUiBitmapButton button;
    int clicks = 0;

    BitmapButton() {
        dialog.setUp = [this] { bind(IDC_TEST_FACE); };
        dialog.onCommand = [this](UINT id) { clicks += id == IDC_TEST_FACE; };
    }
    void bind(int id) { button.SubclassDlgItem(static_cast<UINT>(id), &dialog); }
    POINT middle() { return ui::middleOf(screenRect(button.GetSafeHwnd())); }
    Pixels face() { return pixelsOf(button.GetSafeHwnd()); }
    static std::size_t count(const Pixels& pixels, unsigned colour) {
        return static_cast<std::size_t>(std::count(pixels.values.begin(), pixels.values.end(), colour));
    }
};

TEST_F(BitmapButton, reloadingShowsTheNamedBitmap) {
    dialog.run(look("red, then blue", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        EXPECT_EQ(face().centre(), kRed);
        EXPECT_TRUE(button.OnReload(L"BLUE_FACE"));
        EXPECT_EQ(face().centre(), kBlue);
        EXPECT_EQ(count(face(), kRed), 0u);
    }));
}

TEST_F(BitmapButton, aBitmapThatIsMissingLeavesTheOldOne) {
    dialog.run(look("a missing one", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        const Pixels before = face();
        EXPECT_FALSE(button.OnReload(L"NO_SUCH_FACE"));
        EXPECT_FALSE(button.OnReload(nullptr));
        EXPECT_EQ(face(), before);
    }));
}

TEST_F(BitmapButton, aPlannedFailureLeavesTheOldOne) {
    dialog.run(look("a failing one", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        instruments::failCall("OnReload", 1);
        EXPECT_FALSE(button.OnReload(L"BLUE_FACE"));
        EXPECT_EQ(face().centre(), kRed);
        EXPECT_THAT(instruments::trace(), Contains("OnReload(\"BLUE_FACE\") = false"));
    }));
}

TEST_F(BitmapButton, theBitmapNamedByTheWindowsTextIsLoadedWhenTheButtonIsBound) {
    dialog.setUp = [this] {
        SetDlgItemTextW(dialog.GetSafeHwnd(), IDC_TEST_FACE, L"RED_FACE");
        bind(IDC_TEST_FACE);
    };
    dialog.run(look("its face", [&] { EXPECT_EQ(face().centre(), kRed); }));
}

TEST_F(BitmapButton, whatIsTransparentShowsTheFrameBehind) {
    dialog.run(look("its face", [&] {
        const unsigned behind = face().centre();
        EXPECT_TRUE(button.OnReload(L"KEYED_FACE"));
        const Pixels pixels = face();
        // 2 x 2 pixels in the middle, of which the top left one has the transparent colour.
        EXPECT_EQ(count(pixels, kGreen), 3u);
        EXPECT_EQ(count(pixels, 0xFF00FFu), 0u);
        const auto first = std::find(pixels.values.begin(), pixels.values.end(), kGreen);
        ASSERT_NE(first, pixels.values.end());
        EXPECT_EQ(*(first - 1), behind);
    }));
}

TEST_F(BitmapButton, aDisabledButtonHasLostItsColour) {
    dialog.run(look("disabled, then enabled", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        EXPECT_GT(count(face(), kRed), 0u);
        const unsigned behind = face().at(face().width / 2, 3);
        button.EnableWindow(FALSE);
        const Pixels pixels = face();
        EXPECT_EQ(count(pixels, kRed), 0u);
        const unsigned centre = pixels.centre();
        EXPECT_EQ(centre & 0xFF, centre >> 8 & 0xFF);
        EXPECT_EQ(centre & 0xFF, centre >> 16);
        EXPECT_NE(centre, behind) << "it is still there";
        button.EnableWindow(TRUE);
        EXPECT_EQ(face().centre(), kRed);
    }));
}

TEST_F(BitmapButton, thePointerOverItChangesItsLook) {
    Pixels before;
    ui::Script script = look("its face", [&] {
        button.OnReload(L"RED_FACE");
        before = face();
    });
    script.pointAt([&] { return middle(); });
    script.waitUntil("the look changes", [&](const ui::View&) { return face() != before; });
    script.pointAway();
    script.waitUntil("the look changes back", [&](const ui::View&) { return face() == before; });
    dialog.run(script);
}

TEST_F(BitmapButton, whilePressedItLooksPressed) {
    Pixels before;
    Pixels hot;
    ui::Script script = look("its face", [&] {
        button.OnReload(L"RED_FACE");
        before = face();
    });
    script.pointAt([&] { return middle(); });
    script.waitUntil("the look changes", [&](const ui::View&) { return face() != before; });
    script.look("press", [&](const ui::View&) {
        hot = face();
        ui::pressButton();
    });
    script.waitUntil("it looks pressed", [&](const ui::View&) { return face() != hot; });
    script.look("release", [](const ui::View&) { ui::releaseButton(); });
    script.waitUntil("it was clicked", [&](const ui::View&) { return clicks == 1; });
    dialog.run(script);
}

TEST_F(BitmapButton, noTwoOfItsLooksAreTheSame) {
    std::vector<Pixels> looks;
    const auto keep = [&](const ui::View&) { looks.push_back(face()); };
    const auto isNew = [&](const ui::View&) { return std::ranges::find(looks, face()) == looks.end(); };
    ui::Script script = look("its face", [&] { button.OnReload(L"RED_FACE"); });
    script.look("at rest", keep);
    script.pointAt([&] { return middle(); });
    script.waitUntil("it looks hovered", isNew).look("hovered", keep);
    script.look("press", [](const ui::View&) { ui::pressButton(); });
    script.waitUntil("it looks pressed", isNew).look("pressed", keep);
    script.look("release", [](const ui::View&) { ui::releaseButton(); });
    script.waitUntil("it was clicked", [&](const ui::View&) { return clicks == 1; });
    script.pointAway();
    script.press(VK_TAB).press(VK_TAB, ui::holdShift);
    script.waitUntil("it looks focused", isNew).look("focused", keep);
    script.look("disable it", [&](const ui::View&) { button.EnableWindow(FALSE); });
    script.waitUntil("it looks disabled", isNew);
    dialog.run(script);
}

TEST_F(BitmapButton, aClickReachesTheDialogAsACommand) {
    ui::Script script;
    script.click(IDC_TEST_FACE).waitUntil("one command", [&](const ui::View&) { return clicks == 1; });
    dialog.run(script);
}

TEST_F(BitmapButton, enterAndSpaceOnItPressItAndNotTheDefaultButton) {
    ui::Script script = look("focus the control before it", [&] { SetFocus(dialog.control(IDC_TEST_BUTTON)); });
    script.press(VK_TAB)
        .waitUntil("it has the focus", [](const ui::View& view) { return view.focusedControl() == IDC_TEST_FACE; })
        .press(VK_RETURN)
        .waitUntil("pressed once", [&](const ui::View&) { return clicks == 1; })
        .press(VK_SPACE)
        .waitUntil("pressed twice", [&](const ui::View&) { return clicks == 2; })
        .press(VK_TAB)
        .waitUntil("the focus is elsewhere",
                   [](const ui::View& view) { return view.focusedControl() != IDC_TEST_FACE; })
        .look("still drawn by its owner", [&](const ui::View&) {
            const LONG_PTR style = GetWindowLongPtrW(button.GetSafeHwnd(), GWL_STYLE);
            EXPECT_EQ(style & BS_TYPEMASK, BS_OWNERDRAW);
        });
    dialog.run(script);
}

TEST_F(BitmapButton, theFocusFromTheKeyboardIsShown) {
    Pixels before;
    ui::Script script = look("focus the control before it", [&] {
        button.OnReload(L"RED_FACE");
        before = face();
        SetFocus(dialog.control(IDC_TEST_BUTTON));
    });
    script.press(VK_TAB).waitUntil("the look changes", [&](const ui::View& view) {
        return view.focusedControl() == IDC_TEST_FACE && face() != before;
    });
    dialog.run(script);
}

TEST_F(BitmapButton, theTextStandsBesideThePictureWhereThereIsRoom) {
    dialog.setUp = [this] { bind(IDC_TEST_WIDE_FACE); };
    dialog.run(look("with and without a text", [&] {
        button.OnReload(L"RED_FACE");
        const Pixels alone = face();
        EXPECT_EQ(alone.centre(), kRed) << "without a text the picture stands in the middle";
        button.SetWindowText(L"Show");
        const Pixels withText = face();
        EXPECT_EQ(count(withText, kRed), count(alone, kRed));
        EXPECT_NE(withText.centre(), kRed);
        EXPECT_TRUE(button.TipText().IsEmpty()) << "what can be read needs no tip";
        const auto red = std::find(withText.values.begin(), withText.values.end(), kRed) - withText.values.begin();
        EXPECT_LT(red % withText.width, withText.width / 4) << "the picture stands at the left";
    }));
}

TEST_F(BitmapButton, aTextWithoutRoomIsTheTip) {
    dialog.run(look("a long text", [&] {
        button.OnReload(L"RED_FACE");
        const Pixels before = face();
        button.SetWindowText(L"Show the layer properties");
        EXPECT_EQ(face(), before);
        EXPECT_STREQ(button.TipText().GetString(), L"Show the layer properties");
    }));
}

/// The role that assistive programs are told for a window; -1 when they are told none.
long roleOf(HWND window) {
    CoInitialize(nullptr);
    void* object = nullptr;
    VARIANT self = {};
    self.vt = VT_I4;
    VARIANT role = {};
    role.lVal = -1;
    if (AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object) == S_OK) {
        auto* accessible = static_cast<IAccessible*>(object);
        accessible->get_accRole(self, &role);
        accessible->Release();
    }
    CoUninitialize();
    return role.lVal;
}

TEST_F(BitmapButton, assistiveProgramsAreToldTheRoleOfAPlainPushButton) {
    dialog.run(look("its role", [&] {
        EXPECT_NE(roleOf(button.GetSafeHwnd()), -1);
        EXPECT_EQ(roleOf(button.GetSafeHwnd()), roleOf(dialog.control(IDC_TEST_BUTTON)));
    }));
}

class BitmapStatic : public DialogFixture {};

TEST_F(BitmapStatic, hasNoFrameUntilThePointerIsOnIt) {
    TestDialog dialog{IDD_FIXED};
    COrvUiBitmapStatic button;
    dialog.setUp = [&] {
        button.SubclassDlgItem(IDC_TEST_FACE, &dialog);
        button.OnReload(L"RED_FACE");
    };
    unsigned around = 0;
    const auto edges = [&] {
        const Pixels pixels = pixelsOf(button.GetSafeHwnd());
        return std::vector<unsigned>{pixels.at(pixels.width / 2, 0), pixels.at(0, pixels.height / 2),
                                     pixels.at(pixels.width - 1, pixels.height / 2),
                                     pixels.at(pixels.width / 2, pixels.height - 1)};
    };
    ui::Script script;
    script.look("no frame", [&](const ui::View&) {
        around = pixelsOf(dialog.GetSafeHwnd()).at(2, 2);
        EXPECT_THAT(edges(), Each(around));
        EXPECT_EQ(pixelsOf(button.GetSafeHwnd()).centre(), kRed);
    });
    script.pointAt([&] { return ui::middleOf(screenRect(button.GetSafeHwnd())); });
    script.waitUntil("the frame comes", [&](const ui::View&) { return edges() != std::vector<unsigned>(4, around); });
    dialog.run(script);
}

} // namespace
