// How controls move and grow with their dialog.

#include "DialogFixture.h"

#include "dialogs/ResizeTable.h"

namespace {

using framework::resizedControl;

constexpr RECT kDesign = {10, 20, 110, 70};

void expectRect(const RECT& actual, const RECT& expected) {
    EXPECT_TRUE(EqualRect(&actual, &expected))
        << actual.left << ' ' << actual.top << ' ' << actual.right << ' ' << actual.bottom;
}

TEST(ResizedControl, followsTheBottomEdgeOnly) {
    expectRect(resizedControl(kDesign, {40, 30}, {1, kOrvUiResizeFollowBottom, 100}), {10, 50, 110, 100});
}

TEST(ResizedControl, followsTheLowerRightCorner) {
    expectRect(resizedControl(kDesign, {40, 30}, {1, kOrvUiResizeFollowCorner, 100}), {50, 50, 150, 100});
}

TEST(ResizedControl, stretchesInBothDirections) {
    expectRect(resizedControl(kDesign, {40, 30}, {1, kOrvUiResizeStretch, 100}), {10, 20, 150, 100});
}

TEST(ResizedControl, takesItsShareOfTheGrowth) {
    expectRect(resizedControl(kDesign, {40, 30}, {1, kOrvUiResizeFollowCorner, 50}), {30, 35, 130, 85});
}

TEST(ResizedControl, neverGetsANegativeSize) {
    expectRect(resizedControl(kDesign, {-300, -300}, {1, kOrvUiResizeStretch, 100}), {10, 20, 10, 20});
}

class Resize : public DialogFixture {
  protected:
    TestDialog dialog{IDD_RESIZABLE};
    _dlgControlTag rows[4] = {{IDC_TEST_STRETCH, kOrvUiResizeStretch, 100},
                              {IDC_TEST_BUTTON, kOrvUiResizeFollowBottom, 100},
                              {IDOK, kOrvUiResizeFollowCorner, 100},
                              {9999, kOrvUiResizeFollowCorner, 100}};

    RECT place(int id) {
        RECT rect = screenRect(dialog.control(id));
        MapWindowPoints(nullptr, dialog.GetSafeHwnd(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    void grow(int dx, int dy) {
        const RECT now = screenRect(dialog.GetSafeHwnd());
        SetWindowPos(dialog.GetSafeHwnd(), nullptr, 0, 0, now.right - now.left + dx, now.bottom - now.top + dy,
                     SWP_NOMOVE | SWP_NOZORDER);
    }
};

TEST_F(Resize, theControlsOfTheTableGoWithTheDialogAndAbsentOnesAreSkipped) {
    dialog.setUp = [this] { dialog.SetControlProperty(rows, 4); };
    dialog.run(look("growing by 60 and 50, and shrinking back", [&] {
        const RECT stretch = place(IDC_TEST_STRETCH);
        const RECT bottom = place(IDC_TEST_BUTTON);
        const RECT corner = place(IDOK);
        grow(60, 50);
        expectRect(place(IDC_TEST_STRETCH), {stretch.left, stretch.top, stretch.right + 60, stretch.bottom + 50});
        expectRect(place(IDC_TEST_BUTTON), {bottom.left, bottom.top + 50, bottom.right, bottom.bottom + 50});
        expectRect(place(IDOK), {corner.left + 60, corner.top + 50, corner.right + 60, corner.bottom + 50});
        grow(-60, -50);
        expectRect(place(IDC_TEST_STRETCH), stretch);
        expectRect(place(IDOK), corner);
    }));
}

TEST_F(Resize, aSizeRestoredBeforeTheTableCameIsLaidOutAsWell) {
    RECT corner = {};
    RECT window = {};
    TestDialog plain{IDD_RESIZABLE};
    plain.run(look("the template", [&] {
        corner = screenRect(plain.control(IDOK));
        window = screenRect(plain.GetSafeHwnd());
    }));
    writeNumber(kept(L"\\Placement"), L"Left", 50);
    writeNumber(kept(L"\\Placement"), L"Top", 50);
    writeNumber(kept(L"\\Placement"), L"Width", static_cast<DWORD>(window.right - window.left + 80));
    writeNumber(kept(L"\\Placement"), L"Height", static_cast<DWORD>(window.bottom - window.top + 70));
    dialog.setUp = [this] { dialog.SetControlProperty(rows, 4); };
    dialog.run(look("the restored size", [&] {
        const RECT now = screenRect(dialog.GetSafeHwnd());
        const RECT button = screenRect(dialog.control(IDOK));
        EXPECT_EQ(now.right - now.left, window.right - window.left + 80);
        EXPECT_EQ(now.right - button.right, window.right - corner.right);
        EXPECT_EQ(now.bottom - button.bottom, window.bottom - corner.bottom);
        EXPECT_EQ(button.right - button.left, corner.right - corner.left);
    }));
}

TEST_F(Resize, aLaterTableTakesThePlaceOfAnEarlierOneAndNoneIsOneToo) {
    dialog.setUp = [this] { dialog.SetControlProperty(rows, 4); };
    dialog.run(look("another table, and none", [&] {
        const RECT stretch = place(IDC_TEST_STRETCH);
        const RECT corner = place(IDOK);
        dialog.SetControlProperty(rows + 2, 1);
        grow(60, 50);
        expectRect(place(IDC_TEST_STRETCH), stretch);
        expectRect(place(IDOK), {corner.left + 60, corner.top + 50, corner.right + 60, corner.bottom + 50});
        dialog.SetControlProperty(nullptr, 3);
        grow(10, 10);
        expectRect(place(IDOK), {corner.left + 60, corner.top + 50, corner.right + 60, corner.bottom + 50});
    }));
}

TEST_F(Resize, theRowsAreCopied) {
    _dlgControlTag row = rows[2];
    dialog.setUp = [&] {
        dialog.SetControlProperty(&row, 1);
        row = {};
    };
    dialog.run(look("growing", [&] {
        const RECT corner = place(IDOK);
        grow(60, 50);
        expectRect(place(IDOK), {corner.left + 60, corner.top + 50, corner.right + 60, corner.bottom + 50});
    }));
}

TEST_F(Resize, theDialogCannotBeMadeSmallerThanItsTemplate) {
    dialog.setUp = [this] { dialog.SetControlProperty(rows, 4); };
    dialog.run(look("shrinking", [&] {
        const RECT before = screenRect(dialog.GetSafeHwnd());
        grow(-100, -80);
        const RECT after = screenRect(dialog.GetSafeHwnd());
        EXPECT_EQ(after.right - after.left, before.right - before.left);
        EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
    }));
}

} // namespace
