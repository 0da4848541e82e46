// Where the main window opens, whatever stands in the registry: values of the wrong type or size, numbers beyond
// reason, and places that no screen shows any more.

#include "WorkbenchFixture.h"

#include "SavedPlacement.h"

#include <climits>

namespace {

constexpr const wchar_t* kKey = L"Software\\KelWorkbench\\Window";
constexpr const wchar_t* kValue = L"Placement";

/// The value in the registry, as the window writes it.
struct Kept {
    LONG left, top, right, bottom;
    DWORD maximized;
    UINT dpi;
};

std::string text(const RECT& rect) {
    return std::to_string(rect.left) + ',' + std::to_string(rect.top) + ',' + std::to_string(rect.right) + ',' +
           std::to_string(rect.bottom);
}

class SavedPlacementTest : public WorkbenchTest {
  protected:
    ~SavedPlacementTest() override { RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, kValue); }

    static void keep(DWORD type, const void* bytes, std::size_t size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, type, bytes, static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }
    CRect rect() const {
        CRect rect;
        window->GetWindowRect(rect);
        return rect;
    }
    int restore() { return workbench::restorePlacement(*window, SW_SHOWNORMAL); }
    CRect restored(const Kept& kept) {
        keep(REG_BINARY, &kept, sizeof kept);
        restore();
        return rect();
    }
    static CRect screen() {
        CRect area;
        SystemParametersInfoW(SPI_GETWORKAREA, 0, area, 0);
        return area;
    }
    UINT dpi() const { return GetDpiForWindow(window->m_hWnd); }
    void expectOnScreen(const CRect& placed) {
        CRect shared;
        shared.IntersectRect(placed, screen());
        EXPECT_EQ(text(shared), text(placed));
        EXPECT_GE(placed.Width(), 400) << "small enough to be lost";
        EXPECT_GE(placed.Height(), 300);
    }
};

} // namespace

TEST_F(SavedPlacementTest, ASensiblePlaceIsTakenAsItIs) {
    EXPECT_EQ(text(restored({110, 120, 810, 720, 0, dpi()})), text(CRect(110, 120, 810, 720)));
    workbench::savePlacement(*window);
    window->MoveWindow(0, 0, 600, 500);
    EXPECT_EQ(restore(), SW_SHOWNORMAL);
    EXPECT_EQ(text(rect()), text(CRect(110, 120, 810, 720)));
    const Kept maximized{110, 120, 810, 720, 1, dpi()};
    keep(REG_BINARY, &maximized, sizeof maximized);
    EXPECT_EQ(restore(), SW_SHOWMAXIMIZED);
}

TEST_F(SavedPlacementTest, ItGrowsWithTheScaling) {
    EXPECT_EQ(text(restored({10, 20, 310, 320, 0, dpi() / 2})), text(CRect(10, 20, 610, 620)));
}

TEST_F(SavedPlacementTest, AScalingBeyondReasonIsTheOneThatIs) {
    for (const UINT dpi : {0u, 1u, 2000u, static_cast<UINT>(INT_MAX), UINT_MAX})
        EXPECT_EQ(text(restored({10, 10, 1010, 810, 0, dpi})), text(CRect(10, 10, 1010, 810))) << dpi;
}

TEST_F(SavedPlacementTest, ItLiesWhollyOnTheScreen) {
    const LONG width = screen().Width(), height = screen().Height();
    const Kept places[] = {
        {width - 1, height - 1, width + 899, height + 599, 0, dpi()}, // one pixel of it is on the screen
        {-899, -599, 1, 1, 0, dpi()},
        {5000, 5000, 5900, 5600, 0, dpi()},
        {-9000, 100, -8100, 700, 0, dpi()},
        {10, 10, 60010, 60010, 0, dpi()},                // larger than the screen
        {10, 10, 1010, 810, 0, dpi() / 2},               // larger than the screen once it is scaled
        {width - 1, height - 1, width, height, 0, dpi()} // one pixel, which grows to the least size of the window
    };
    for (const Kept& kept : places)
        expectOnScreen(restored(kept));
}

TEST_F(SavedPlacementTest, NumbersBeyondReasonAreNoPlace) {
    const CRect before = rect();
    const Kept places[] = {
        {0, 0, 0, 0, 0, dpi()},
        {500, 500, 100, 100, 0, dpi()},
        {INT_MIN, INT_MIN, INT_MAX, INT_MAX, 0, dpi()},
        {INT_MAX - 900, 0, INT_MAX, 600, 0, dpi()},
        {0, INT_MIN, 900, INT_MIN + 600, 0, dpi()},
        {0, 0, 0x10001, 600, 0, dpi()},
        {-1, -1, -1, -1, 0xFFFFFFFF, UINT_MAX},
    };
    for (const Kept& kept : places) {
        keep(REG_BINARY, &kept, sizeof kept);
        EXPECT_EQ(restore(), SW_SHOWNORMAL) << kept.left;
        EXPECT_EQ(text(rect()), text(before)) << kept.left;
    }
}

TEST_F(SavedPlacementTest, ValuesOfAnotherTypeOrSizeAreNoPlaceUntilTheNextIsKept) {
    const CRect before = rect();
    const Kept good{110, 120, 810, 720, 1, dpi()};
    char longer[sizeof good + 1] = {};
    std::memcpy(longer, &good, sizeof good);
    const std::string much(100'000, 'x');
    const struct {
        DWORD type;
        const void* bytes;
        std::size_t size;
    } values[] = {
        {REG_SZ, &good, sizeof good},
        {REG_NONE, &good, sizeof good},
        {REG_DWORD, &good, 4},
        {REG_QWORD, &good, 8},
        {REG_MULTI_SZ, L"1\0002\0", 10},
        {REG_BINARY, &good, 0},
        {REG_BINARY, &good, sizeof good - 1},
        {REG_BINARY, longer, sizeof longer},
        {REG_BINARY, much.data(), much.size()},
    };
    for (const auto& value : values) {
        keep(value.type, value.bytes, value.size);
        EXPECT_EQ(restore(), SW_SHOWNORMAL) << value.type << ", " << value.size << " bytes";
        EXPECT_EQ(text(rect()), text(before)) << value.type << ", " << value.size << " bytes";
    }
    workbench::savePlacement(*window);
    window->MoveWindow(0, 0, 600, 500);
    restore();
    EXPECT_EQ(text(rect()), text(before));
}

TEST(Workspace, BeginsWhereTheDisplayDoesWhereverTheTaskbarStands) {
    const RECT display{1280, -100, 3200, 980};
    EXPECT_EQ(text(workbench::workspaceOf({1280, -100, 3200, 940}, display)), text(CRect(1280, -100, 3200, 940)))
        << "below";
    EXPECT_EQ(text(workbench::workspaceOf({1280, -60, 3200, 980}, display)), text(CRect(1280, -100, 3200, 940)))
        << "above";
    EXPECT_EQ(text(workbench::workspaceOf({1340, -100, 3200, 980}, display)), text(CRect(1280, -100, 3140, 980)))
        << "left";
}
