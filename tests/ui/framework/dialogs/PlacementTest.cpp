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
    EXPECT_EQ(placeOnWorkAreas({800, 100, 1100, 200}, kTwoMonitors), (RECT{700, 100, 1000, 200}));
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
    static std::vector<std::optional<unsigned long>> keptSize() {
        const framework::DialogStore store(L"FrameworkTests:Dialog", L"Placement");
        return {store.number(L"Width"), store.number(L"Height")};
    }
    /// The work area of the screen.
    static RECT screen() { return framework::monitorWorkAreas().front(); }
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

TEST_F(Placement, ofAMinimizedDialogThatKeepsItsPositionAloneTheNormalOneIsKept) {
    open(IDD_FIXED, false, [](HWND dialog) {
        SetWindowPos(dialog, nullptr, 120, 130, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ShowWindow(dialog, SW_MINIMIZE);
    });
    const RECT again = open(IDD_FIXED, false);
    EXPECT_EQ(again.left, 120);
    EXPECT_EQ(again.top, 130);
}

TEST_F(Placement, withoutPersistencyOnlyThePositionIsKept) {
    const RECT plain = open(IDD_RESIZABLE, false);
    open(IDD_RESIZABLE, false, [](HWND dialog) { SetWindowPos(dialog, nullptr, 133, 122, 640, 480, SWP_NOZORDER); });
    RECT expected = plain;
    OffsetRect(&expected, 133 - plain.left, 122 - plain.top);
    EXPECT_EQ(open(IDD_RESIZABLE, false), expected);
    EXPECT_EQ(keptSize(), (std::vector<std::optional<unsigned long>>{std::nullopt, std::nullopt}));
}

TEST_F(Placement, withoutPersistencyASizeThatWasKeptStays) {
    keep(100, 90, 640, 480);
    open(IDD_RESIZABLE, false, [](HWND dialog) { SetWindowPos(dialog, nullptr, 133, 122, 700, 500, SWP_NOZORDER); });
    EXPECT_EQ(open(IDD_RESIZABLE, true), (RECT{133, 122, 133 + 640, 122 + 480}));
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

TEST_F(Placement, ofASenselessSizeThePositionRemains) {
    const RECT plain = open(IDD_RESIZABLE, false);
    RECT expected = plain;
    OffsetRect(&expected, 133 - plain.left, 122 - plain.top);
    keep(133, 122, 0, 480);
    EXPECT_EQ(open(IDD_RESIZABLE, false), expected) << "no width";
    keep(133, 122, 640, 0x7FFFFFFF);
    EXPECT_EQ(open(IDD_RESIZABLE, false), expected) << "a height that no desktop has";
    keep(133, 122, 640, 480);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kept(L"\\Placement").c_str(), L"Width");
    EXPECT_EQ(open(IDD_RESIZABLE, false), expected) << "a height alone";
}

TEST_F(Placement, incompleteOrSenselessPositionsCountAsMissing) {
    const RECT plain = open(IDD_FIXED, false);
    keep(0x7FFFFFF0, 222, 300, 200);
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "a position whose right edge overflows";
    keep(333, -0x7FFFFFF0, 300, 200);
    EXPECT_EQ(open(IDD_FIXED, false), plain) << "a position that no desktop has";
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

TEST_F(Placement, aDialogThatAPersonDragsAwayOpensWhereItWasLeft) {
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        TestDialog dialog{IDD_FIXED};
        RECT left = {};
        ui::Script drag;
        drag.waitForControl(IDC_TEST_LIST).dragWindow(120, 70);
        drag.look("where it is left", [&left](const ui::View& view) { left = view.rect(); }).press(key);
        EXPECT_TRUE(ui::perform(drag, [&] { EXPECT_EQ(dialog.DoModal(), key == VK_RETURN ? IDOK : IDCANCEL); }));
        EXPECT_EQ(open(IDD_FIXED, false), left) << "closed by key " << key;
    }
}

TEST_F(Placement, aDialogWithoutANameKeepsNoPosition) {
    const auto opened = [](POINT to) {
        TestDialog dialog{IDD_FIXED, L""};
        RECT stood = {};
        dialog.run(look("where it stands", [&] {
            stood = screenRect(dialog.GetSafeHwnd());
            SetWindowPos(dialog.GetSafeHwnd(), nullptr, to.x, to.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        }));
        return stood;
    };
    const RECT plain = opened({333, 222});
    EXPECT_EQ(opened({0, 0}), plain);
    EXPECT_NE(plain.left, 333);
}

TEST_F(Placement, aDialogThatBecomesSmallerAsItIsSetUpStandsWhereItStood) {
    const auto opened = [](LONG moveTo) {
        TestDialog dialog{IDD_FIXED};
        RECT stood = {};
        dialog.setUp = [&] { // as one that closes a panel
            const RECT whole = screenRect(dialog.GetSafeHwnd());
            SetWindowPos(dialog.GetSafeHwnd(), nullptr, 0, 0, (whole.right - whole.left) / 2, whole.bottom - whole.top,
                         SWP_NOMOVE | SWP_NOZORDER);
        };
        dialog.run(look("where it stands", [&] {
            stood = screenRect(dialog.GetSafeHwnd());
            SetWindowPos(dialog.GetSafeHwnd(), nullptr, moveTo, 55, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        }));
        return stood;
    };
    const RECT narrow = opened(0);
    const LONG width = narrow.right - narrow.left, atTheEdge = screen().right - width;
    opened(atTheEdge);
    EXPECT_EQ(opened(atTheEdge + 30), (RECT{atTheEdge, 55, screen().right, 55 + narrow.bottom - narrow.top}));
    EXPECT_EQ(opened(0).left, atTheEdge) << "moved back onto the screen";
}

TEST_F(Placement, aDialogThatWasClosedWhereItsTemplateLeavesItIsNotCentred) {
    RECT first = {};
    TestDialog dialog{IDD_PLACE_LEFT_OPEN};
    dialog.setUp = [&] { first = screenRect(dialog.GetSafeHwnd()); };
    dialog.run();
    EXPECT_NE(open(IDD_PLACE_LEFT_OPEN, false), first) << "centred";
    keep(first.left, first.top, 1, 1);
    EXPECT_EQ(open(IDD_PLACE_LEFT_OPEN, false), first);
}

TEST_F(Placement, aDialogThatEndsBeforeItIsShownKeepsNothing) {
    keep(333, 222, 300, 200);
    TestDialog dialog{IDD_FIXED};
    dialog.setUp = [&] {
        SetWindowPos(dialog.GetSafeHwnd(), nullptr, 10, 10, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        dialog.EndDialog(IDCANCEL);
    };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(open(IDD_FIXED, false).left, 333);
}

TEST_F(Placement, aDialogThatIsHiddenAndShownAgainStaysWhereItHasBeenMoved) {
    keep(333, 222, 300, 200);
    open(IDD_FIXED, false, [](HWND dialog) {
        SetWindowPos(dialog, nullptr, 444, 111, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ShowWindow(dialog, SW_HIDE);
        ShowWindow(dialog, SW_SHOW);
        EXPECT_EQ(screenRect(dialog).left, 444);
    });
}

TEST_F(Placement, aDialogOpensWhereItWasClosedWhateverItStandsOver) {
    keep(333, 222, 300, 200);
    CWnd owner, child;
    ASSERT_TRUE(owner.CreateEx(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 700, 500, 200, 100, nullptr, nullptr));
    ASSERT_TRUE(child.CreateEx(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 50, 50, 20, 20, owner.GetSafeHwnd(), nullptr));
    for (CWnd* parent : {&owner, &child}) {
        TestDialog dialog{IDD_FIXED, L"FrameworkTests:Dialog", parent};
        dialog.run(look("where it stands", [&] {
            EXPECT_EQ(screenRect(dialog.GetSafeHwnd()).left, 333);
            EXPECT_EQ(screenRect(dialog.GetSafeHwnd()).top, 222);
        }));
    }
    owner.DestroyWindow();
}

TEST_F(Placement, ofTwoDialogsOfOneNameTheOneThatClosesLastCounts) {
    keep(333, 222, 300, 200);
    TestDialog outer{IDD_FIXED};
    outer.onCommand = [&outer](UINT id) {
        if (id == IDC_TEST_BUTTON)
            TestDialog(IDD_FIXED, L"FrameworkTests:Dialog", &outer).DoModal();
    };
    ui::Script script;
    script.waitForControl(IDC_TEST_BUTTON).dragWindow(111, -22).click(IDC_TEST_BUTTON);
    script.waitUntil("the inner one", [&outer](const ui::View& view) { return view.window() != outer.GetSafeHwnd(); });
    script.look("where it stands", [](const ui::View& inner) {
        EXPECT_EQ(inner.rect().left, 333) << "the outer one has kept nothing yet";
    });
    script.dragWindow(-100, 50).press(VK_RETURN);
    script.waitUntil("the outer one", [&outer](const ui::View& view) { return view.window() == outer.GetSafeHwnd(); });
    script.press(VK_RETURN);
    EXPECT_TRUE(ui::perform(script, [&outer] { outer.DoModal(); }));
    const RECT again = open(IDD_FIXED, false);
    EXPECT_EQ(again.left, 444);
    EXPECT_EQ(again.top, 200);
}

TEST_F(Placement, aPositionIsInPixelsOfTheScreenWhateverTheScaling) {
    for (const DWORD dpi : {72ul, 96ul, 192ul}) {
        keep(120, 90, 500, 400);
        writeNumber(kept(L"\\Placement"), L"Dpi", dpi);
        const RECT placed = open(IDD_FIXED, false);
        EXPECT_EQ(placed.left, 120) << dpi;
        EXPECT_EQ(placed.top, 90) << dpi;
    }
}

TEST_F(Placement, aDialogThatIsPartOfAnotherWindowHasNone) {
    keep(333, 222, 300, 200);
    open(IDD_FIXED, false, [](HWND outer) {
        CWnd* const parent = CWnd::FromHandle(outer);
        TestDialog part{IDD_PART_OF_A_WINDOW};
        ASSERT_TRUE(part.Create(MAKEINTRESOURCEW(IDD_PART_OF_A_WINDOW), parent));
        RECT inside = screenRect(part.GetSafeHwnd());
        MapWindowPoints(nullptr, outer, reinterpret_cast<POINT*>(&inside), 2);
        EXPECT_LT(inside.left, 50) << "where its template has it";
        SetWindowPos(outer, nullptr, 444, 111, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        part.DestroyWindow();
        EXPECT_EQ(framework::DialogStore(L"FrameworkTests:Dialog", L"Placement").number(L"Left"), 333u);
    });
}

} // namespace
