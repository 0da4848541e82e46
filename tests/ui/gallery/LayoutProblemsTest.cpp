// layoutProblems() finds what is wrong with a layout, and nothing when all is well.

#include "LayoutProblems.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

/// A dialog's window with controls placed by pixels of 96 an inch.
class Layout : public testing::Test {
  protected:
    Layout()
        : m_dpi(static_cast<int>(GetDpiForSystem())),
          m_font(CreateFontW(-MulDiv(8, m_dpi, 72), 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, L"MS Shell Dlg 2")),
          m_dialog(
              CreateWindowW(L"Static", L"", WS_POPUP, 0, 0, px(300), px(200), nullptr, nullptr, nullptr, nullptr)) {
        ShowWindow(m_dialog, SW_SHOWNA);
    }
    ~Layout() override {
        DestroyWindow(m_dialog);
        DeleteObject(m_font);
    }

    int px(int length) const { return MulDiv(length, m_dpi, 96); }
    HWND put(const wchar_t* kind, const wchar_t* text, int left, int top, int width, int height, DWORD style = 0) {
        const HWND control = CreateWindowW(kind, text, WS_CHILD | WS_VISIBLE | style, px(left), px(top), px(width),
                                           px(height), m_dialog, nullptr, nullptr, nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
        return control;
    }
    std::vector<std::string> problems() const { return gallery::layoutProblems(m_dialog); }

  private:
    int m_dpi;
    HFONT m_font;
    HWND m_dialog;
};

TEST_F(Layout, wellLaidOutControlsAreNoProblem) {
    put(L"Button", L"Frame", 0, 0, 290, 150, BS_GROUPBOX);
    put(L"Static", L"A label of two lines, which are broken where the first is full", 10, 20, 200, 40);
    put(L"Static", L"A label that says by three dots that there is more of it", 10, 70, 60, 16, SS_ENDELLIPSIS);
    put(L"Button", L"OK", 10, 100, 75, 23);
    EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(Layout, textsThatAreCutOffAreFound) {
    put(L"Static", L"A label that has far too little room", 10, 20, 60, 16);
    put(L"Button", L"A button that has too little", 10, 50, 75, 23);
    put(L"Button", L"A tick with text", 10, 80, 85, 16, BS_AUTOCHECKBOX);
    EXPECT_THAT(problems(), ElementsAre(StartsWith("the text is cut off"), StartsWith("the text is cut off"),
                                        StartsWith("the text is cut off")));
}

TEST_F(Layout, aWordWiderThanItsLabelIsCutOffUnlessTheLabelBreaksIt) {
    put(L"Static", L"Alabelofoneverylongwordandnothingelse", 10, 20, 100, 60, SS_EDITCONTROL);
    EXPECT_THAT(problems(), IsEmpty());
    put(L"Static", L"Alabelofoneverylongwordandnothingelse", 10, 100, 100, 60);
    EXPECT_THAT(problems(), ElementsAre(StartsWith("the text is cut off")));
}

TEST_F(Layout, aButtonWithAnIconHasToHaveRoomForThatAndNotForItsText) {
    const HWND button = put(L"Button", L"Add layers", 10, 10, 28, 28, BS_ICON);
    const auto icon = [this](int side) {
        return CreateIcon(nullptr, px(side), px(side), 1, 1, std::vector<BYTE>(4096).data(),
                          std::vector<BYTE>(4096).data());
    };
    const HICON small = icon(20), large = icon(24);
    EXPECT_THAT(problems(), IsEmpty());
    SendMessageW(button, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(small));
    EXPECT_THAT(problems(), IsEmpty());
    SendMessageW(button, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(large));
    EXPECT_THAT(problems(), ElementsAre(StartsWith("the icon is cut off")));
    DestroyIcon(small);
    DestroyIcon(large);
}

TEST_F(Layout, controlsOverEachOtherOrOutsideAreFound) {
    put(L"Button", L"One", 10, 10, 75, 23);
    put(L"Button", L"Two", 80, 10, 75, 23);
    put(L"Button", L"Out", 250, 100, 75, 23);
    EXPECT_THAT(problems(),
                ElementsAre(StartsWith("one lies over the other"), StartsWith("it lies out of the dialog")));
}

TEST_F(Layout, fontsOfAnotherScalingAreFound) {
    const HWND button = put(L"Button", L"One", 10, 10, 75, 23);
    const HFONT small = CreateFontW(-px(6), 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, L"MS Shell Dlg 2");
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(small), FALSE);
    EXPECT_THAT(problems(), ElementsAre(StartsWith("its font isn't of the display's scaling")));
    DeleteObject(small);
}

TEST_F(Layout, hiddenControlsAreNotLookedAt) {
    ShowWindow(put(L"Button", L"A hidden button that has too little", 290, 50, 75, 23), SW_HIDE);
    EXPECT_THAT(problems(), IsEmpty());
}

} // namespace
