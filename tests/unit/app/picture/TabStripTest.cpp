// Where the tabs are, and how they are scrolled.

#include "TabStrip.h"

#include <gtest/gtest.h>

using workbench::TabStrip;

namespace {

constexpr int kMargin = 8;
constexpr int kButton = 20;
constexpr int kTab = 50;

/// A strip of tabs that are equally wide.
TabStrip stripOf(std::size_t count, int bar) {
    TabStrip strip;
    strip.arrange(std::vector<int>(count, kTab), {bar, kMargin, kButton});
    return strip;
}

void expectSpan(const TabStrip::Span& span, int left, int right) {
    EXPECT_EQ(span.left, left);
    EXPECT_EQ(span.right, right);
}

bool isWhole(const TabStrip& strip, std::size_t tab) {
    return strip.tab(tab).right - strip.tab(tab).left == kTab;
}

} // namespace

TEST(TabStrip, LaysTabsSideBySideWithoutButtonsWhereThereIsRoom) {
    const TabStrip strip = stripOf(3, 3 * kTab + 2 * kMargin);
    expectSpan(strip.tab(0), 8, 58);
    expectSpan(strip.tab(2), 108, 158);
    EXPECT_TRUE(strip.tab(3).isEmpty());
    EXPECT_TRUE(strip.back().isEmpty());
    EXPECT_TRUE(strip.forward().isEmpty());
    EXPECT_FALSE(strip.canGoBack());
    EXPECT_FALSE(strip.canGoForward());
}

TEST(TabStrip, HasButtonsAtItsEndWhenOnePixelIsMissing) {
    const TabStrip strip = stripOf(3, 3 * kTab + 2 * kMargin - 1);
    expectSpan(strip.back(), 117, 137);
    expectSpan(strip.forward(), 137, 157);
    expectSpan(strip.tab(2), 108, 117);
    expectSpan(strip.whole(2), 108, 158);
    EXPECT_FALSE(strip.canGoBack());
    EXPECT_TRUE(strip.canGoForward());
}

TEST(TabStrip, ScrollsTabByTabAndNoFurtherThanTheLast) {
    TabStrip strip = stripOf(10, 206); // room for three whole tabs
    EXPECT_FALSE(strip.scroll(-1));
    EXPECT_TRUE(strip.scroll(1));
    EXPECT_TRUE(strip.tab(0).isEmpty());
    expectSpan(strip.tab(1), 8, 58);
    EXPECT_TRUE(strip.canGoBack());
    EXPECT_TRUE(strip.scroll(100));
    EXPECT_TRUE(isWhole(strip, 7));
    EXPECT_TRUE(isWhole(strip, 9));
    EXPECT_FALSE(strip.canGoForward());
    EXPECT_FALSE(strip.scroll(1));
    EXPECT_TRUE(strip.scroll(-100));
    EXPECT_TRUE(isWhole(strip, 0));
}

TEST(TabStrip, RevealsATabWithTheLeastScrolling) {
    TabStrip strip = stripOf(40, 206);
    strip.reveal(20);
    EXPECT_TRUE(isWhole(strip, 18));
    EXPECT_TRUE(isWhole(strip, 20));
    strip.reveal(19);
    EXPECT_TRUE(isWhole(strip, 18)) << "what is in sight needs no scrolling";
    strip.reveal(5);
    expectSpan(strip.tab(5), 8, 58);
    strip.reveal(39);
    EXPECT_TRUE(isWhole(strip, 39));
    strip.reveal(40);
    EXPECT_TRUE(isWhole(strip, 39)) << "there is no such tab";
}

TEST(TabStrip, KeepsItsPlaceWhenItIsLaidOutAnew) {
    TabStrip strip = stripOf(40, 206);
    strip.scroll(10);
    strip.arrange(std::vector<int>(40, kTab), {256, kMargin, kButton});
    expectSpan(strip.tab(10), 8, 58);
    strip.arrange(std::vector<int>(4, kTab), {206, kMargin, kButton});
    EXPECT_TRUE(isWhole(strip, 3)) << "fewer tabs leave no empty room";
    EXPECT_TRUE(isWhole(strip, 1));
    strip.arrange({}, {206, kMargin, kButton});
    EXPECT_TRUE(strip.tab(0).isEmpty());
    EXPECT_TRUE(strip.back().isEmpty());
}

TEST(TabStrip, ShowsThePartOfATabThatIsWiderThanTheBar) {
    TabStrip strip;
    strip.arrange({500, 500}, {100, kMargin, kButton});
    EXPECT_EQ(strip.tab(0).right, strip.back().left);
    strip.reveal(1);
    EXPECT_EQ(strip.tab(1).left, kMargin);
    EXPECT_TRUE(strip.tab(0).isEmpty());
    strip.arrange({500, 500}, {0, kMargin, kButton});
    EXPECT_TRUE(strip.tab(1).isEmpty()) << "a bar without any room";
}
