// The owner-drawn buttons: their looks, and that they behave as push buttons.

#include "DialogFixture.h"

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
    void bind(int id) {
        button.SubclassDlgItem(static_cast<UINT>(id), &dialog);
        // Away from the buttons, so that no test begins with one under the pointer.
        movePointer({1, 1});
    }
    void run(std::vector<Step> steps) {
        steps.push_back(dialog.close());
        Steps running(std::move(steps));
        dialog.DoModal();
    }
    Pixels face() { return pixelsOf(button.GetSafeHwnd()); }
    static std::size_t count(const Pixels& pixels, unsigned colour) {
        return static_cast<std::size_t>(std::count(pixels.values.begin(), pixels.values.end(), colour));
    }
};

TEST_F(BitmapButton, reloadingShowsTheNamedBitmap) {
    run({act("red",
             [&] {
                 EXPECT_TRUE(button.OnReload(L"RED_FACE"));
                 EXPECT_EQ(face().centre(), kRed);
             }),
         act("blue", [&] {
             EXPECT_TRUE(button.OnReload(L"BLUE_FACE"));
             EXPECT_EQ(face().centre(), kBlue);
             EXPECT_EQ(count(face(), kRed), 0u);
         })});
}

TEST_F(BitmapButton, aBitmapThatIsMissingLeavesTheOldOne) {
    run({act("a missing one", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        const Pixels before = face();
        EXPECT_FALSE(button.OnReload(L"NO_SUCH_FACE"));
        EXPECT_FALSE(button.OnReload(nullptr));
        EXPECT_EQ(face(), before);
    })});
}

TEST_F(BitmapButton, aPlannedFailureLeavesTheOldOne) {
    run({act("a failing one", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        instruments::failCall("OnReload", 1);
        EXPECT_FALSE(button.OnReload(L"BLUE_FACE"));
        EXPECT_EQ(face().centre(), kRed);
        EXPECT_THAT(instruments::trace(), Contains("OnReload(\"BLUE_FACE\") = false"));
    })});
}

TEST_F(BitmapButton, theBitmapNamedByTheWindowsTextIsLoadedWhenTheButtonIsBound) {
    dialog.setUp = [this] {
        SetDlgItemTextW(dialog.GetSafeHwnd(), IDC_TEST_FACE, L"RED_FACE");
        bind(IDC_TEST_FACE);
    };
    run({act("look", [&] { EXPECT_EQ(face().centre(), kRed); })});
}

TEST_F(BitmapButton, whatIsTransparentShowsTheFrameBehind) {
    run({act("look", [&] {
        const unsigned behind = face().centre();
        EXPECT_TRUE(button.OnReload(L"KEYED_FACE"));
        const Pixels pixels = face();
        // 2 x 2 pixels in the middle, of which the top left one is the transparent colour.
        EXPECT_EQ(count(pixels, kGreen), 3u);
        EXPECT_EQ(count(pixels, 0xFF00FFu), 0u);
        const auto first = std::find(pixels.values.begin(), pixels.values.end(), kGreen);
        EXPECT_EQ(*(first - 1), behind);
    })});
}

TEST_F(BitmapButton, aDisabledButtonHasLostItsColour) {
    run({act("disable", [&] {
        EXPECT_TRUE(button.OnReload(L"RED_FACE"));
        EXPECT_GT(count(face(), kRed), 0u);
        button.EnableWindow(FALSE);
        const Pixels pixels = face();
        EXPECT_EQ(count(pixels, kRed), 0u);
        const unsigned centre = pixels.centre();
        EXPECT_EQ(centre & 0xFF, centre >> 8 & 0xFF);
        EXPECT_EQ(centre & 0xFF, centre >> 16);
        button.EnableWindow(TRUE);
        EXPECT_EQ(face().centre(), kRed);
    })});
}

TEST_F(BitmapButton, thePointerOverItChangesItsLook) {
    Pixels before;
    run({act("move on",
             [&] {
                 button.OnReload(L"RED_FACE");
                 before = face();
                 movePointer(centreOf(button.GetSafeHwnd()));
             }),
         {"the look changes", [&] { return face() != before; }},
         act("move off",
             [&] {
                 movePointer({1, 1});
             }),
         {"the look changes back", [&] { return face() == before; }}});
}

TEST_F(BitmapButton, whilePressedItLooksPressed) {
    Pixels hot;
    run({act("move on",
             [&] {
                 button.OnReload(L"RED_FACE");
                 movePointer(centreOf(button.GetSafeHwnd()));
             }),
         pause(100),
         act("press",
             [&] {
                 hot = face();
                 INPUT input = {};
                 input.type = INPUT_MOUSE;
                 input.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
                 SendInput(1, &input, sizeof input);
             }),
         {"it looks pressed", [&] { return face() != hot; }},
         act("release",
             [&] {
                 INPUT input = {};
                 input.type = INPUT_MOUSE;
                 input.mi.dwFlags = MOUSEEVENTF_LEFTUP;
                 SendInput(1, &input, sizeof input);
             }),
         {"it was clicked", [&] { return clicks == 1; }}});
}

TEST_F(BitmapButton, aClickReachesTheDialogAsACommand) {
    run({act("click", [&] { click(button.GetSafeHwnd()); }), {"one command", [&] { return clicks == 1; }}});
}

TEST_F(BitmapButton, enterAndSpaceOnItPressItAndNotTheDefaultButton) {
    run({act("focus it by the keyboard",
             [&] {
                 SetFocus(dialog.control(IDC_TEST_BUTTON));
                 pressKey(VK_TAB);
             }),
         {"it has the focus", [&] { return GetFocus() == button.GetSafeHwnd(); }},
         act("Enter", [] { pressKey(VK_RETURN); }),
         {"pressed once", [&] { return clicks == 1; }},
         act("Space", [] { pressKey(VK_SPACE); }),
         {"pressed twice", [&] { return clicks == 2; }},
         act("leave it by the keyboard", [] { pressKey(VK_TAB); }),
         {"the focus is elsewhere", [&] { return GetFocus() != button.GetSafeHwnd(); }},
         act("still drawn by its owner", [&] {
             const LONG_PTR style = GetWindowLongPtrW(button.GetSafeHwnd(), GWL_STYLE);
             EXPECT_EQ(style & BS_TYPEMASK, BS_OWNERDRAW);
         })});
}

TEST_F(BitmapButton, theFocusFromTheKeyboardIsShown) {
    Pixels before;
    run({act("focus it by the keyboard",
             [&] {
                 button.OnReload(L"RED_FACE");
                 before = face();
                 SetFocus(dialog.control(IDC_TEST_BUTTON));
                 pressKey(VK_TAB);
             }),
         {"the look changes", [&] { return GetFocus() == button.GetSafeHwnd() && face() != before; }}});
}

TEST_F(BitmapButton, theTextStandsBesideThePictureWhereThereIsRoom) {
    dialog.setUp = [this] { bind(IDC_TEST_WIDE_FACE); };
    run({act("look", [&] {
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
    })});
}

TEST_F(BitmapButton, aTextWithoutRoomIsTheTip) {
    run({act("look", [&] {
        button.OnReload(L"RED_FACE");
        const Pixels before = face();
        button.SetWindowText(L"Show the layer properties");
        EXPECT_EQ(face(), before);
        EXPECT_STREQ(button.TipText().GetString(), L"Show the layer properties");
    })});
}

TEST_F(BitmapButton, assistiveProgramsSeeAPushButton) {
    run({act("ask", [&] {
        CoInitialize(nullptr);
        IAccessible* accessible = nullptr;
        ASSERT_EQ(AccessibleObjectFromWindow(button.GetSafeHwnd(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                             reinterpret_cast<void**>(&accessible)),
                  S_OK);
        VARIANT self = {};
        self.vt = VT_I4;
        VARIANT role = {};
        EXPECT_EQ(accessible->get_accRole(self, &role), S_OK);
        EXPECT_EQ(role.lVal, ROLE_SYSTEM_PUSHBUTTON);
        accessible->Release();
        CoUninitialize();
    })});
}

class BitmapStatic : public DialogFixture {};

TEST_F(BitmapStatic, hasNoFrameUntilThePointerIsOnIt) {
    TestDialog dialog{IDD_FIXED};
    COrvUiBitmapStatic button;
    dialog.setUp = [&] {
        button.SubclassDlgItem(IDC_TEST_FACE, &dialog);
        button.OnReload(L"RED_FACE");
        movePointer({1, 1});
    };
    unsigned corner = 0;
    const auto corners = [&] {
        const Pixels pixels = pixelsOf(button.GetSafeHwnd());
        return std::vector<unsigned>{pixels.at(2, 0), pixels.at(pixels.width / 2, 0), pixels.at(0, pixels.height / 2),
                                     pixels.at(pixels.width - 1, pixels.height / 2)};
    };
    Steps steps({act("look",
                     [&] {
                         const Pixels around = pixelsOf(dialog.GetSafeHwnd());
                         corner = around.at(around.width - 2, 2);
                         EXPECT_THAT(corners(), Each(corner));
                         EXPECT_EQ(pixelsOf(button.GetSafeHwnd()).centre(), kRed);
                         movePointer(centreOf(button.GetSafeHwnd()));
                     }),
                 {"the frame comes", [&] { return corners() != std::vector<unsigned>(4, corner); }},
                 dialog.close()});
    dialog.DoModal();
}

} // namespace
