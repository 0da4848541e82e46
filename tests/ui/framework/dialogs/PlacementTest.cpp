// Where dialogs stand, from one run to the next.

#include "DialogFixture.h"

#include "persistence/Placement.h"

using framework::placeOnWorkAreas;
using framework::screenRectOf;

bool operator==(const RECT& a, const RECT& b) {
    return EqualRect(&a, &b) != FALSE;
}
void PrintTo(const RECT& rect, std::ostream* out) {
    *out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
}

namespace {

const std::vector<RECT> kTwoMonitors = {{0, 0, 1000, 800}, {1000, 0, 1500, 400}};

TEST(PlaceOnWorkAreas, leavesWhatLiesWhollyOnOne) {
    EXPECT_EQ(placeOnWorkAreas({100, 100, 300, 200}, kTwoMonitors), (RECT{100, 100, 300, 200}));
    EXPECT_EQ(placeOnWorkAreas({1100, 100, 1300, 200}, kTwoMonitors), (RECT{1100, 100, 1300, 200}));
}

TEST(PlaceOnWorkAreas, movesWhatStandsOutBackOntoTheOneThatItTouchesMost) {
    EXPECT_EQ(placeOnWorkAreas({-50, 700, 150, 900}, kTwoMonitors), (RECT{0, 600, 200, 800}));
    EXPECT_EQ(placeOnWorkAreas({950, 100, 1150, 200}, kTwoMonitors), (RECT{1000, 100, 1200, 200}));
}

TEST(PlaceOnWorkAreas, takesTheFirstForWhatTouchesNone) {
    EXPECT_EQ(placeOnWorkAreas({5000, 5000, 5200, 5100}, kTwoMonitors), (RECT{800, 700, 1000, 800}));
}

TEST(PlaceOnWorkAreas, cutsWhatIsLargerThanTheWorkArea) {
    EXPECT_EQ(placeOnWorkAreas({1000, 10, 1700, 910}, kTwoMonitors), (RECT{1000, 0, 1500, 400}));
}

TEST(ScreenRectOf, countsFromWhereTheTaskbarsLeaveRoom) {
    const RECT display = {1000, 0, 2000, 800};
    EXPECT_EQ(screenRectOf({1100, 100, 1300, 200}, {1060, 0, 2000, 800}, display), (RECT{1160, 100, 1360, 200}));
    EXPECT_EQ(screenRectOf({1100, 100, 1300, 200}, {1000, 40, 2000, 800}, display), (RECT{1100, 140, 1300, 240}));
    EXPECT_EQ(screenRectOf({1100, 100, 1300, 200}, {1000, 0, 1940, 760}, display), (RECT{1100, 100, 1300, 200}))
        << "at the right and at the bottom they don't matter";
}

class Placement : public DialogFixture {
  protected:
    /// Opens the dialog once, answers where it was, and runs `then` on it before it closes.
    RECT open(UINT templateId, bool persistent, std::function<void(HWND)> then = {}) {
        TestDialog dialog{templateId};
        RECT stood = {};
        dialog.setUp = [&] {
            if (persistent)
                dialog.SetPersistency(1);
        };
        dialog.run(look("where it stands", [&] {
            stood = screenRect(dialog.GetSafeHwnd());
            if (then)
                then(dialog.GetSafeHwnd());
        }));
        return stood;
    }
    void keep(int left, int top, int width, int height) {
        writeNumber(kept(L"\\Placement"), L"Left", static_cast<DWORD>(left));
        writeNumber(kept(L"\\Placement"), L"Top", static_cast<DWORD>(top));
        writeNumber(kept(L"\\Placement"), L"Width", static_cast<DWORD>(width));
        writeNumber(kept(L"\\Placement"), L"Height", static_cast<DWORD>(height));
    }
};

TEST_F(Placement, aDialogOpensWhereItWasClosed) {
    open(IDD_FIXED, true,
         [](HWND dialog) { SetWindowPos(dialog, nullptr, 333, 222, 0, 0, SWP_NOSIZE | SWP_NOZORDER); });
    const RECT again = open(IDD_FIXED, true);
    EXPECT_EQ(again.left, 333);
    EXPECT_EQ(again.top, 222);
}

TEST_F(Placement, ofAMinimizedOrMaximizedDialogTheNormalOneIsKept) {
    for (const int how : {SW_MINIMIZE, SW_MAXIMIZE}) {
        open(IDD_RESIZABLE, true, [how](HWND dialog) {
            SetWindowPos(dialog, nullptr, 120, 130, 500, 400, SWP_NOZORDER);
            ShowWindow(dialog, how);
        });
        EXPECT_EQ(open(IDD_RESIZABLE, true), (RECT{120, 130, 620, 530})) << how;
    }
}

TEST_F(Placement, withoutPersistencyNothingIsKept) {
    open(IDD_FIXED, false,
         [](HWND dialog) { SetWindowPos(dialog, nullptr, 333, 222, 0, 0, SWP_NOSIZE | SWP_NOZORDER); });
    const RECT again = open(IDD_FIXED, false);
    EXPECT_NE(again.left, 333);
    EXPECT_NE(again.top, 222);
}

TEST_F(Placement, aResizableDialogGetsItsSizeBack) {
    keep(100, 90, 640, 480);
    EXPECT_EQ(open(IDD_RESIZABLE, true), (RECT{100, 90, 740, 570}));
}

TEST_F(Placement, aResizableDialogIsNeverSmallerThanItsTemplateAndStaysOnTheWorkArea) {
    const RECT plain = open(IDD_RESIZABLE, false);
    const int width = plain.right - plain.left, height = plain.bottom - plain.top;
    keep(100, 90, 10, 10);
    EXPECT_EQ(open(IDD_RESIZABLE, false), (RECT{100, 90, 100 + width, 90 + height}));
    keep(100, 90, width + 30, 10);
    EXPECT_EQ(open(IDD_RESIZABLE, false), (RECT{100, 90, 130 + width, 90 + height}));
    const RECT work = framework::monitorWorkAreas().front();
    keep(work.right - 10, work.bottom - 10, 10, 10);
    EXPECT_EQ(open(IDD_RESIZABLE, false), (RECT{work.right - width, work.bottom - height, work.right, work.bottom}));
}

TEST_F(Placement, aFixedDialogKeepsTheSizeOfItsTemplate) {
    const RECT plain = open(IDD_FIXED, false);
    keep(100, 90, 640, 480);
    const RECT placed = open(IDD_FIXED, false);
    EXPECT_EQ(placed.left, 100);
    EXPECT_EQ(placed.top, 90);
    EXPECT_EQ(placed.right - placed.left, plain.right - plain.left);
    EXPECT_EQ(placed.bottom - placed.top, plain.bottom - plain.top);
}

TEST_F(Placement, aPlaceThatNoMonitorShowsAnyMoreIsMovedOntoOne) {
    keep(20000, -9000, 300, 200);
    const RECT placed = open(IDD_FIXED, true);
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    RECT visible = {};
    ASSERT_TRUE(IntersectRect(&visible, &placed, &work));
    EXPECT_EQ(visible, placed);
}

TEST_F(Placement, incompleteOrSenselessPlacementsCountAsMissing) {
    const RECT plain = open(IDD_FIXED, false);
    keep(333, 222, 0, 200);
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "no width";
    keep(333, 222, 300, 0x7FFFFFFF);
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "a height that no desktop has";
    keep(0x7FFFFFF0, 222, 300, 200);
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "a position whose right edge overflows";
    keep(333, 222, 300, 200);
    writeValue(kept(L"\\Placement"), L"Top", REG_SZ, L"222", 8);
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "a text in the place of a number";
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kept(L"\\Placement").c_str(), L"Top");
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "no top";
}

TEST_F(Placement, aPlaceLeftOfThePrimaryMonitorSurvivesTheStore) {
    keep(-20, 50, 300, 200); // partly outside: moved to the edge, not taken for a huge number
    EXPECT_EQ(open(IDD_FIXED, true).left, 0);
}

} // namespace
