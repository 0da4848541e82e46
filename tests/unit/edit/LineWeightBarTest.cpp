// The sample of a lineweight.

#include "LineWeightBar.h"

#include <gtest/gtest.h>

#include <utility>

TEST(LineWeightBar, IsOnePixelThickUpToAQuarterOfAMillimetre) {
    for (const int weight : {-3, -1, 0, 1, 9, 25})
        EXPECT_EQ(barThickness(weight), 1) << weight;
}

TEST(LineWeightBar, IsATenthOfTheWeightBeyondThatAndAtMostTwentyThree) {
    for (const auto& [weight, pixels] :
         {std::pair{26, 2}, {30, 3}, {39, 3}, {40, 4}, {211, 21}, {229, 22}, {230, 23}, {231, 23}, {10000, 23}})
        EXPECT_EQ(barThickness(weight), pixels) << weight;
}

TEST(LineWeightBar, StandsInTheMiddleOfItsBox) {
    const BarPlace thin = placeBar(1, 13);
    EXPECT_EQ(std::pair(thin.top, thin.bottom), std::pair(6, 7));
    const BarPlace thick = placeBar(5, 14);
    EXPECT_EQ(std::pair(thick.top, thick.bottom), std::pair(4, 9));
}

TEST(LineWeightBar, ThatIsThickerThanItsBoxLeavesOnePixel) {
    const BarPlace cut = placeBar(21, 12);
    EXPECT_EQ(std::pair(cut.top, cut.bottom), std::pair(0, 11));
    const BarPlace fits = placeBar(12, 12);
    EXPECT_EQ(std::pair(fits.top, fits.bottom), std::pair(0, 12));
}

TEST(LineWeightBar, NeverStartsAboveItsBox) {
    EXPECT_EQ(placeBar(1, 0).top, 0);
    EXPECT_EQ(placeBar(20, -3).top, 0);
}
