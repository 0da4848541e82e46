// What a button does to its picture, pixel by pixel.

#include "controls/AlphaImage.h"

#include <gmock/gmock.h>

using framework::AlphaImage;
using framework::fromStraightAlpha;
using framework::greyed;
using framework::scaled;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(AlphaImage, straightAlphaIsMultipliedIntoTheColours) {
    EXPECT_THAT(fromStraightAlpha(2, 1, {0x80FF8000, 0xFF102030}).pixels, ElementsAre(0x80804000u, 0xFF102030u));
}

TEST(AlphaImage, withoutAnyAlphaTheTopLeftColourIsTransparent) {
    EXPECT_THAT(fromStraightAlpha(2, 2, {0x00FF00FF, 0x00123456, 0x00FF00FF, 0x00000000}).pixels,
                ElementsAre(0u, 0xFF123456u, 0u, 0xFF000000u));
}

TEST(AlphaImage, wholeMultiplesRepeatThePixels) {
    const AlphaImage image = {2, 1, {0xFF000001, 0xFF000002}};
    EXPECT_THAT(scaled(image, 4, 2).pixels, ElementsAre(0xFF000001u, 0xFF000001u, 0xFF000002u, 0xFF000002u, 0xFF000001u,
                                                        0xFF000001u, 0xFF000002u, 0xFF000002u));
}

TEST(AlphaImage, scaledDownEachPixelIsTheAverageOfWhatItCovers) {
    const AlphaImage image = {2, 2, {0xFF000000, 0xFF000064, 0x00000000, 0xFF640000}};
    EXPECT_THAT(scaled(image, 1, 1).pixels, ElementsAre(0xBF190019u));
}

TEST(AlphaImage, betweenWholeMultiplesOnlyTheSharedPixelsAreMixed) {
    const AlphaImage image = {2, 1, {0xFF000000, 0xFF000064}};
    EXPECT_THAT(scaled(image, 3, 1).pixels, ElementsAre(0xFF000000u, 0xFF000032u, 0xFF000064u));
}

TEST(AlphaImage, aPlainPictureStaysPlainAtEverySize) {
    const AlphaImage image = {32, 32, std::vector<std::uint32_t>(1024, 0xFF3366CC)};
    for (int size = 1; size <= 70; ++size) {
        const AlphaImage result = scaled(image, size, size);
        EXPECT_EQ(result.pixels.size(), static_cast<std::size_t>(size * size));
        EXPECT_THAT(result.pixels, Each(0xFF3366CCu)) << size;
    }
}

TEST(AlphaImage, nothingOrNoSizeGivesNothing) {
    EXPECT_THAT(scaled({}, 4, 4).pixels, IsEmpty());
    EXPECT_THAT(scaled({1, 1, {0xFF000000}}, 0, 4).pixels, IsEmpty());
}

TEST(AlphaImage, greyedLosesItsColourAndHalfOfItsOpacity) {
    const AlphaImage result = greyed({2, 1, {0xFFFF0000, 0xFFFFFFFF}});
    EXPECT_THAT(result.pixels, ElementsAre(0x7F262626u, 0x7F7F7F7Fu));
}

} // namespace
