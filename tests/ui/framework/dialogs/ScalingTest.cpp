// What dialogs do when they come onto a display of another scaling, or were last closed on one.

#include "DialogFixture.h"

#include <commctrl.h>

using testing::ElementsAre;

namespace {

constexpr int kColumns = 3;

SIZE clientSize(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

RECT placeIn(HWND dialog, HWND control) {
    RECT rect = screenRect(control);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

/// The tip window that a dialog owns.
HWND tipsOf(HWND dialog) {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, TOOLTIPS_CLASSW, nullptr)) && GetWindow(found, GW_OWNER) != dialog) {
    }
    return found;
}

class Scaling : public DialogFixture {
  protected:
    TestDialog dialog{IDD_RESIZABLE};
    TestDialog listDialog{IDD_FIXED};
    _dlgControlTag rows[2] = {{IDC_TEST_STRETCH, kOrvUiResizeStretch, 100}, {IDOK, kOrvUiResizeFollowCorner, 100}};
    CListCtrl list;

    HWND window() const { return dialog.GetSafeHwnd(); }
    void setUpList(int width) {
        list.Attach(listDialog.control(IDC_TEST_LIST));
        for (int column = 0; column < kColumns; ++column)
            list.InsertColumn(column, L"Column", LVCFMT_LEFT, width, column);
    }
    std::vector<int> widths() const {
        std::vector<int> found;
        for (int column = 0; column < kColumns; ++column)
            found.push_back(list.GetColumnWidth(column));
        return found;
    }
    // Pixels that the user's size is larger than the scaling asks for. The frame of this display's windows stays as
    // thin as before, but the smallest size counts a scaled frame.
    static constexpr LONG kExtra = 40;

    /// Sends what the system sends to a dialog that has come onto a display of 150 %, with a size that is kExtra
    /// larger.
    static void comeOntoLargerScaling(HWND window) {
        const SIZE client = clientSize(window);
        RECT place = screenRect(window);
        const SIZE frame = {place.right - place.left - client.cx, place.bottom - place.top - client.cy};
        place.right = place.left + client.cx * 3 / 2 + frame.cx + kExtra;
        place.bottom = place.top + client.cy * 3 / 2 + frame.cy + kExtra;
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&place));
        SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER);
    }
};

TEST_F(Scaling, theControlsOfTheTableStandWhereTheTemplateWouldPutThemOnTheNewDisplay) {
    dialog.setUp = [this] { dialog.SetControlProperty(rows, 2); };
    dialog.run(look("from 100 % to 150 %", [&] {
        const RECT stretch = placeIn(window(), dialog.control(IDC_TEST_STRETCH));
        const RECT corner = placeIn(window(), dialog.control(IDOK));
        comeOntoLargerScaling(window());
        const auto expectScaled = [](const RECT& before, const RECT& after, const RECT& moved) {
            EXPECT_NEAR(after.left, before.left * 1.5 + moved.left, 1);
            EXPECT_NEAR(after.top, before.top * 1.5 + moved.top, 1);
            EXPECT_NEAR(after.right, before.right * 1.5 + moved.right, 1);
            EXPECT_NEAR(after.bottom, before.bottom * 1.5 + moved.bottom, 1);
        };
        expectScaled(stretch, placeIn(window(), dialog.control(IDC_TEST_STRETCH)), {0, 0, kExtra, kExtra});
        expectScaled(corner, placeIn(window(), dialog.control(IDOK)), {kExtra, kExtra, kExtra, kExtra});
    }));
}

TEST_F(Scaling, theSmallestSizeGrowsWithTheScaling) {
    dialog.setUp = [this] { dialog.SetControlProperty(rows, 2); };
    dialog.run(look("shrinking at 150 %", [&] {
        const RECT before = screenRect(window());
        comeOntoLargerScaling(window());
        SetWindowPos(window(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
        const RECT after = screenRect(window());
        EXPECT_NEAR(after.right - after.left, (before.right - before.left) * 1.5, 1);
        EXPECT_NEAR(after.bottom - after.top, (before.bottom - before.top) * 1.5, 1);
    }));
}

TEST_F(Scaling, columnsAndTipsGrowWithTheScaling) {
    listDialog.setUp = [this] {
        setUpList(40);
        listDialog.SetContextHelpPrefix(L"Any");
        listDialog.SetUseTips(2);
    };
    listDialog.run(look("at 150 %", [&] {
        const HWND tips = tipsOf(listDialog.GetSafeHwnd());
        ASSERT_NE(tips, nullptr);
        const LRESULT width = SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0);
        comeOntoLargerScaling(listDialog.GetSafeHwnd());
        EXPECT_THAT(widths(), ElementsAre(60, 60, 60));
        EXPECT_EQ(SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0), width * 3 / 2);
        list.Detach();
    }));
}

TEST_F(Scaling, aDialogClosedOnAnotherScalingIsAsLargeForTheEye) {
    const auto opened = [](DWORD dpi) {
        writeNumber(kept(L"\\Placement"), L"Left", 60);
        writeNumber(kept(L"\\Placement"), L"Top", 50);
        writeNumber(kept(L"\\Placement"), L"Width", 640);
        writeNumber(kept(L"\\Placement"), L"Height", 480);
        writeNumber(kept(L"\\Placement"), L"Dpi", dpi);
        SIZE size = {};
        TestDialog again{IDD_RESIZABLE};
        again.setUp = [&] {
            const RECT rect = screenRect(again.GetSafeHwnd());
            size = {rect.right - rect.left, rect.bottom - rect.top};
        };
        again.run();
        return std::vector<LONG>{size.cx, size.cy};
    };
    EXPECT_THAT(opened(96), ElementsAre(640, 480));
    EXPECT_THAT(opened(72), ElementsAre(853, 640));
    EXPECT_THAT(opened(120), ElementsAre(512, 384));
    EXPECT_THAT(opened(0), ElementsAre(640, 480)) << "senseless";
    EXPECT_THAT(opened(0xFFFFFFFF), ElementsAre(640, 480)) << "senseless";
}

TEST_F(Scaling, aPlacementIsKeptWithTheScalingOfItsDisplay) {
    dialog.setUp = [this] { dialog.SetPersistency(1); };
    dialog.run();
    DWORD dpi = 0, size = sizeof dpi;
    EXPECT_EQ(
        RegGetValueW(HKEY_CURRENT_USER, kept(L"\\Placement").c_str(), L"Dpi", RRF_RT_REG_DWORD, nullptr, &dpi, &size),
        ERROR_SUCCESS);
    EXPECT_EQ(dpi, 96u);
}

TEST_F(Scaling, columnsKeptOnAnotherScalingAreAsWideForTheEye) {
    listDialog.setUp = [this] {
        setUpList(40);
        listDialog.SaveColumnSizes(&list);
        writeNumber(kept(L"\\Columns " + std::to_wstring(IDC_TEST_LIST)), L"Dpi", 192);
        listDialog.GetColumnSizes(&list);
        EXPECT_THAT(widths(), ElementsAre(20, 20, 20));
        listDialog.SaveColumnSizes(&list);
        listDialog.GetColumnSizes(&list);
        EXPECT_THAT(widths(), ElementsAre(20, 20, 20)) << "kept anew, with this display's scaling";
        list.Detach();
    };
    listDialog.run();
}

} // namespace
