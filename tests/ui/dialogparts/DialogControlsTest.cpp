// Reaching controls by id, in a bare window with a few buttons.
#include "DialogControls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr int box = 101;
constexpr int button = 102;
constexpr int absent = 103;

/// The messages that the box gets.
std::vector<UINT> received;

LRESULT CALLBACK noteMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    received.push_back(message);
    return CallWindowProcW(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_USERDATA)), window, message, wParam,
                           lParam);
}

class Controls : public testing::Test {
  protected:
    void SetUp() override {
        m_dialog = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 50, 60, 300, 200, nullptr, nullptr, nullptr, nullptr);
        m_box = child(L"a box", BS_AUTOCHECKBOX, box, 10);
        m_button = child(L"a button", BS_PUSHBUTTON, button, 40);
        SetWindowLongPtrW(m_box, GWLP_USERDATA,
                          SetWindowLongPtrW(m_box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(noteMessage)));
        m_controls.find(m_dialog);
        received.clear();
    }
    void TearDown() override { DestroyWindow(m_dialog); }

    HWND child(const wchar_t* text, DWORD style, int id, int top) const {
        return CreateWindowExW(0, L"BUTTON", text, WS_CHILD | WS_VISIBLE | style, 20, top, 100, 14, m_dialog,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    static int count(UINT message) { return static_cast<int>(std::count(received.begin(), received.end(), message)); }

    HWND m_dialog = nullptr;
    HWND m_box = nullptr;
    HWND m_button = nullptr;
    DialogControls m_controls;
};

} // namespace

TEST_F(Controls, AreFoundByTheirIds) {
    EXPECT_EQ(m_controls.at(box), m_box);
    EXPECT_EQ(m_controls.at(button), m_button);
    EXPECT_EQ(m_controls.at(absent), nullptr);
}

TEST_F(Controls, AreThoseOfTheDialogThatWasLookedAtLast) {
    m_controls.find(m_box);
    EXPECT_EQ(m_controls.at(box), nullptr);
}

TEST_F(Controls, AreTickedOnlyWhereThatChangesSomething) {
    m_controls.tick(box, true);
    EXPECT_TRUE(m_controls.isTicked(box));
    EXPECT_EQ(SendMessageW(m_box, BM_GETCHECK, 0, 0), BST_CHECKED);
    m_controls.tick(box, true);
    EXPECT_EQ(count(BM_SETCHECK), 1);
    m_controls.tick(box, false);
    EXPECT_FALSE(m_controls.isTicked(box));
    EXPECT_EQ(count(BM_SETCHECK), 2);
}

TEST_F(Controls, AreEnabledOnlyWhereThatChangesSomething) {
    m_controls.enable(box, true);
    EXPECT_EQ(count(WM_ENABLE), 0);
    m_controls.enable(box, false);
    EXPECT_FALSE(m_controls.isEnabled(box));
    EXPECT_FALSE(IsWindowEnabled(m_box));
    m_controls.enable(box, true);
    EXPECT_TRUE(IsWindowEnabled(m_box));
    EXPECT_EQ(count(WM_ENABLE), 2);
}

TEST_F(Controls, AreShownAndHidden) {
    const auto isShown = [this] { return (GetWindowLongPtrW(m_box, GWL_STYLE) & WS_VISIBLE) != 0; };
    m_controls.show(box, false);
    EXPECT_FALSE(isShown());
    m_controls.show(box, true);
    EXPECT_TRUE(isShown());
}

TEST_F(Controls, TakeTheirTexts) {
    m_controls.setText(button, L"100 %");
    wchar_t text[16] = L"";
    GetWindowTextW(m_button, text, 16);
    EXPECT_STREQ(text, L"100 %");
}

TEST_F(Controls, StandInCoordinatesOfTheDialogAndMoveAlongItsWidth) {
    EXPECT_EQ(m_controls.place(button), CRect(20, 40, 120, 54));
    m_controls.moveBy(button, -30);
    EXPECT_EQ(m_controls.place(button), CRect(-10, 40, 90, 54));
    EXPECT_EQ(m_controls.place(box), CRect(20, 10, 120, 24));
}

TEST_F(Controls, ThatAreAbsentArePassedOver) {
    m_controls.tick(absent, true);
    m_controls.enable(absent, true);
    m_controls.show(absent, true);
    m_controls.setText(absent, L"text");
    m_controls.moveBy(absent, 10);
    EXPECT_FALSE(m_controls.isTicked(absent));
    EXPECT_FALSE(m_controls.isEnabled(absent));
    EXPECT_EQ(m_controls.place(absent), CRect(0, 0, 0, 0));
}
