// The drawings that the generator makes up are the same on every system, and good enough for measurements.
#include "DrawingGenerator.h"
#include "files/ContentHash.h"
#include "files/DrawingFile.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using namespace zdr;

namespace {

std::uint64_t fingerprint(const GeneratorOptions& options) {
    std::vector<std::byte> bytes;
    std::wstring reason;
    EXPECT_EQ(drawingBytes(generateDrawing(options), bytes, reason), Vorn::eOk) << toUtf8(reason);
    ContentHash hash;
    hash.add(bytes);
    return hash.value();
}

bool matches(const LayerColumns& a, const LayerColumns& b) {
    return a.flags.equals(b.flags) && a.colors.equals(b.colors) && a.linetypes.equals(b.linetypes) &&
           a.lineWeights.equals(b.lineWeights) && a.plotStyles.equals(b.plotStyles);
}

} // namespace

TEST(Generator, theSameOptionsMakeTheSameDrawingOnEverySystem) {
    EXPECT_EQ(fingerprint({}), 9678463922869912679u) << "changes only when the generator or the file format does";
}

TEST(Generator, anotherSeedMakesAnotherDrawing) {
    EXPECT_NE(fingerprint({.seed = 1}), fingerprint({.seed = 2}));
}

TEST(Generator, halfOfTheStatesMatchTheDrawing) {
    const Drawing drawing = generateDrawing({.layers = 200, .states = 50});
    EXPECT_EQ(drawing.layers.size(), 200u);
    ASSERT_EQ(drawing.states.size(), 50u);
    int matching = 0, withViewport = 0, described = 0;
    for (const LayerState& state : drawing.states) {
        matching += matches(state.columns, drawing.columns);
        withViewport += state.hasViewportData;
        described += !state.description.empty();
    }
    EXPECT_EQ(matching, 25);
    EXPECT_GT(withViewport, 0);
    EXPECT_GT(described, 10);
}
