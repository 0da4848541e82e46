// The headings of the narrow columns, and the faces of the two buttons.

#include "DrawingTest.h"
#include "GuiObjects.h"
#include "ImportFaults.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

using testing::ElementsAre;
using ui::Script;
using ui::View;

class HeadingDrawing : public GridDrawing {
  protected:
    static constexpr int kNarrow[] = {1, 2, 3, 4, 8, 9};

    /// A heading, in the grid.
    static RECT headingPlace(const View& view, int column) {
        RECT place = view.headingRect(grid, column).value_or(RECT{});
        MapWindowPoints(nullptr, view.control(grid), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    /// The smallest rectangle of what isn't of the ground's colour.
    static std::optional<RECT> inkOf(const Pixels& seen) {
        const COLORREF ground = seen.colors.front();
        RECT ink = {seen.place.right, seen.place.bottom, seen.place.left, seen.place.top};
        for (LONG y = seen.place.top; y < seen.place.bottom; ++y)
            for (LONG x = seen.place.left; x < seen.place.right; ++x)
                if (seen.at(x, y) != ground)
                    ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                           std::max(ink.bottom, y + 1)};
        return ink.left < ink.right ? std::optional(ink) : std::nullopt;
    }
    static HIMAGELIST headingImages(const View& view) {
        return Header_GetImageList(ListView_GetHeader(view.control(grid)));
    }
};

TEST_F(HeadingDrawing, OfANarrowColumnIsAnImageOfItsOwnThoughItKeepsItsText) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) {
        EXPECT_THAT(view.headings(grid),
                    ElementsAre(L"Name", L"On", L"Freeze", L"Lock", L"Color", L"Linetype", L"Lineweight", L"Plot style",
                                L"Plot", L"Freeze in new viewports"));
        for (std::size_t i = 0; i < std::size(kNarrow); ++i) {
            SCOPED_TRACE(kNarrow[i]);
            const RECT place = headingPlace(view, kNarrow[i]);
            const LONG left = place.left + px(4), top = place.top + (place.bottom - place.top - px(16)) / 2;
            EXPECT_EQ(imageAt(view, left, top, IDB_LSTATE_GRID_HEADINGS), static_cast<int>(i));
            // No dots behind it; there the line that divides the headings comes next.
            const Pixels behind = pixels(view, {left + px(16), place.top, place.right - 2, place.bottom});
            EXPECT_EQ(behind, blank(behind.place));
        }
    }));
}

TEST_F(HeadingDrawing, HasImagesAsLargeAsThoseOfTheGrid) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) {
        int width = 0, height = 0;
        ASSERT_TRUE(ImageList_GetIconSize(headingImages(view), &width, &height));
        EXPECT_EQ(width, px(16));
        EXPECT_EQ(height, px(16));
        EXPECT_EQ(ImageList_GetImageCount(headingImages(view)), 6);
    }));
}

TEST_F(HeadingDrawing, OfAWidenedColumnShowsItsTextBehindTheImage) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) {
        setWidth(view, 2, px(100));
        const RECT place = headingPlace(view, 2);
        const Pixels behind = pixels(view, {place.left + px(24), place.top, place.right, place.bottom});
        const std::optional<RECT> ink = inkOf(behind);
        ASSERT_TRUE(ink);
        EXPECT_GT(ink->right - ink->left, px(20));
    }));
}

TEST_F(HeadingDrawing, WithoutMemoryForTheImagesIsTheTextAlone) {
    open(drawing({L"Walls"}));
    const ImportFaults faults({L"KelLayerApps.xmod"});
    const auto seeHeading = [](bool hasImage) {
        return Script().look("the heading", [hasImage](const View& view) {
            HDITEMW item{};
            item.mask = HDI_FORMAT;
            Header_GetItem(ListView_GetHeader(view.control(grid)), 1, &item);
            EXPECT_EQ(item.fmt & (HDF_STRING | HDF_IMAGE), hasImage ? HDF_STRING | HDF_IMAGE : HDF_STRING);
            EXPECT_EQ(view.headings(grid)[1], L"On");
        });
    };
    EXPECT_TRUE(edit(L"Look", seeHeading(true).press(VK_ESCAPE)));
    ImportFaults::begin("ImageList_Create", 1);
    EXPECT_TRUE(edit(L"Look", seeHeading(false).press(VK_ESCAPE)));
    EXPECT_TRUE(ImportFaults::struck());
}

TEST_F(HeadingDrawing, LeavesNothingOfTheSystemsBehind) {
    open(drawing({L"Walls"}));
    const auto run = [this] { EXPECT_TRUE(edit(L"Look", Script().waitForControl(IDC_ADD_LAYERS).press(VK_ESCAPE))); };
    for (int i = 0; i < 3; ++i) // what the system keeps for good is made now
        run();
    const std::optional<int> drawing = countGdiObjects(), others = countUserObjects();
    constexpr int kRuns = 6;
    for (int i = 0; i < kRuns; ++i)
        run();
    ASSERT_TRUE(drawing && others);
    EXPECT_LT(countGdiObjects(), *drawing + kRuns);
    EXPECT_LT(countUserObjects(), *others + kRuns);
}

class ButtonDrawing : public HeadingDrawing {
  protected:
    static constexpr int kButtons[] = {IDC_ADD_LAYERS, IDC_REMOVE_LAYERS};

    /// A button's face, without its edges, as it stands.
    static Pixels face(const View& view, int button) {
        const HWND window = view.control(button);
        UpdateWindow(window);
        RECT rect = view.rect(button);
        Pixels all{rect, {}};
        all.colors = view.pixels(button);
        InflateRect(&rect, -px(3), -px(3));
        Pixels inner{rect, {}};
        for (LONG y = rect.top; y < rect.bottom; ++y)
            for (LONG x = rect.left; x < rect.right; ++x)
                inner.colors.push_back(all.at(x, y));
        return inner;
    }
};

TEST_F(ButtonDrawing, IsAnIconInTheMiddleAsLargeAsTheDisplaysScalingAsksFor) {
    EXPECT_TRUE(lookAt(drawing({L"Walls"}), [](const View& view) {
        for (const int button : kButtons) {
            SCOPED_TRACE(button);
            const auto icon = reinterpret_cast<HICON>(SendMessageW(view.control(button), BM_GETIMAGE, IMAGE_ICON, 0));
            ICONINFO info{};
            ASSERT_TRUE(GetIconInfo(icon, &info)) << "the button's icon is one that still exists";
            BITMAP bitmap{};
            GetObjectW(info.hbmColor, sizeof bitmap, &bitmap);
            DeleteObject(info.hbmColor);
            DeleteObject(info.hbmMask);
            EXPECT_EQ(bitmap.bmWidth, px(16));
            EXPECT_EQ(bitmap.bmHeight, px(16));
        }
        EXPECT_NE(face(view, IDC_ADD_LAYERS), face(view, IDC_REMOVE_LAYERS));
    }));
}

TEST_F(ButtonDrawing, LooksPressedWhileItIsAndFocusedWhileItHasTheFocus) {
    open(drawing({L"Walls"}));
    const auto whole = [](const View& view) { return view.pixels(IDC_REMOVE_LAYERS); };
    std::vector<COLORREF> usual;
    EXPECT_TRUE(
        edit(L"Look",
             Script()
                 .pointAway()
                 .waitUntil("the button is drawn",
                            [&](const View& view) {
                                const std::optional<RECT> ink = inkOf(face(view, IDC_REMOVE_LAYERS));
                                if (!ink)
                                    return false;
                                const RECT button = view.rect(IDC_REMOVE_LAYERS);
                                EXPECT_NEAR((ink->left + ink->right) / 2.0, (button.left + button.right) / 2.0, px(2));
                                EXPECT_NEAR((ink->top + ink->bottom) / 2.0, (button.top + button.bottom) / 2.0, px(2));
                                usual = whole(view);
                                return true;
                            })
                 .look("pressed",
                       [](const View& view) { SendMessageW(view.control(IDC_REMOVE_LAYERS), BM_SETSTATE, TRUE, 0); })
                 .waitUntil("it looks pressed", [&](const View& view) { return whole(view) != usual; })
                 .look("released",
                       [](const View& view) { SendMessageW(view.control(IDC_REMOVE_LAYERS), BM_SETSTATE, FALSE, 0); })
                 .waitUntil("it looks as before", [&](const View& view) { return whole(view) == usual; })
                 .press(VK_TAB)
                 .press(VK_TAB)
                 .waitUntil("it looks focused",
                            [&](const View& view) {
                                return view.focusedControl() == IDC_REMOVE_LAYERS && whole(view) != usual;
                            })
                 .press(VK_ESCAPE)));
}

} // namespace
