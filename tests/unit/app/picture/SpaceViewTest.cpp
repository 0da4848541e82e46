// What a space has shown, and the two points that a person gives in it.

#include "PointPick.h"
#include "SpaceView.h"

#include <gtest/gtest.h>

using workbench::PointPick;
using workbench::SpaceView;
using workbench::ViewTransform;

namespace {

ViewTransform scaled(double scale) {
    return {{0, 0}, scale, {100, 100}};
}

} // namespace

TEST(SpaceView, GoesBackOverWhatWasOnViewOneByOne) {
    SpaceView space(scaled(1));
    EXPECT_FALSE(space.showPrevious());
    space.show(scaled(2), false);
    space.show(scaled(3), false);
    EXPECT_EQ(space.view().scale(), 3);
    EXPECT_TRUE(space.showPrevious());
    EXPECT_EQ(space.view().scale(), 2);
    EXPECT_TRUE(space.showPrevious());
    EXPECT_EQ(space.view().scale(), 1);
    EXPECT_FALSE(space.showPrevious());
    EXPECT_EQ(space.view().scale(), 1);
}

TEST(SpaceView, ShowingTheSameAgainIsNothingToGoBackOver) {
    SpaceView space(scaled(1));
    space.show(scaled(1), false);
    EXPECT_FALSE(space.showPrevious());
    for (const ViewTransform& other : {ViewTransform({1, 0}, 1, {100, 100}), ViewTransform({0, 1}, 1, {100, 100}),
                                       ViewTransform({0, 0}, 1, {101, 100}), ViewTransform({0, 0}, 1, {100, 101})}) {
        space.show(other, false);
        EXPECT_TRUE(space.showPrevious()) << "any difference counts";
    }
}

TEST(SpaceView, LittleChangesByHandAreGoneBackOverAtOnce) {
    SpaceView space(scaled(1));
    for (const double scale : {2, 3, 4})
        space.show(scaled(scale), true);
    EXPECT_TRUE(space.showPrevious());
    EXPECT_EQ(space.view().scale(), 1);
    EXPECT_FALSE(space.showPrevious());

    space.show(scaled(5), true);
    space.show(scaled(6), false);
    space.show(scaled(7), true);
    space.show(scaled(8), true);
    for (const double before : {6, 5, 1}) {
        EXPECT_TRUE(space.showPrevious());
        EXPECT_EQ(space.view().scale(), before);
    }
    space.show(scaled(9), true);
    EXPECT_TRUE(space.showPrevious());
    space.show(scaled(10), true);
    EXPECT_TRUE(space.showPrevious());
    EXPECT_EQ(space.view().scale(), 1) << "a change after going back is one of its own";
}

TEST(SpaceView, KeepsSoManyEarlierViewsAndForgetsTheOldest) {
    SpaceView space(scaled(1));
    for (std::size_t i = 0; i < SpaceView::kMostEarlier + 5; ++i)
        space.show(scaled(2 + static_cast<double>(i)), false);
    std::size_t steps = 0;
    while (space.showPrevious())
        ++steps;
    EXPECT_EQ(steps, SpaceView::kMostEarlier);
    EXPECT_EQ(space.view().scale(), 6) << "five were forgotten";
}

TEST(SpaceView, EarlierViewsKeepTheirMiddleWhenTheWindowGrows) {
    SpaceView space(ViewTransform({50, 50}, 1, {100, 100}));
    space.show(ViewTransform({70, 70}, 2, {100, 100}), false);
    space.resize(20, 10);
    EXPECT_EQ(space.view().toScreen({70, 70}).x, 110);
    ASSERT_TRUE(space.showPrevious());
    EXPECT_EQ(space.view().toScreen({50, 50}).x, 110);
    EXPECT_EQ(space.view().toScreen({50, 50}).y, 105);
}

TEST(PointPick, TheSecondPointEndsItAndBothAreAnswered) {
    PointPick pick;
    pick.begin();
    EXPECT_TRUE(pick.isActive());
    EXPECT_FALSE(pick.first());
    EXPECT_FALSE(pick.take({1, 2}));
    ASSERT_TRUE(pick.first());
    EXPECT_EQ(pick.first()->y, 2);
    const auto points = pick.take({3, 4});
    ASSERT_TRUE(points);
    EXPECT_EQ(points->first.x, 1);
    EXPECT_EQ(points->second.y, 4);
    EXPECT_FALSE(pick.isActive());
    EXPECT_FALSE(pick.first());
}

TEST(PointPick, TakesNothingBeforeItBeginsOrAfterItsEnd) {
    PointPick pick;
    EXPECT_FALSE(pick.take({1, 2}));
    EXPECT_FALSE(pick.take({3, 4}));
    pick.begin();
    EXPECT_FALSE(pick.take({5, 6}));
    pick.end();
    EXPECT_FALSE(pick.take({7, 8}));
    pick.begin();
    EXPECT_FALSE(pick.first()) << "it begins anew";
    EXPECT_FALSE(pick.take({9, 10}));
}
