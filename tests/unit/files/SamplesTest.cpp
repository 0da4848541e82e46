// The drawings that come with the product.
#include "files/DrawingFile.h"
#include "files/References.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

using namespace zdr;

namespace {

class Samples : public testing::TestWithParam<const char*> {};

TEST_P(Samples, openWithAllTheirReferences) {
    const std::wstring path = widePath(std::filesystem::path(SAMPLES) / GetParam());
    Drawing drawing;
    std::wstring reason;
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    std::vector<ReferenceProblem> problems;
    resolveReferences(drawing, path, problems);
    for (const ReferenceProblem& problem : problems)
        ADD_FAILURE() << toUtf8(problem.reason);
    EXPECT_FALSE(drawing.states.empty());
    EXPECT_FALSE(drawing.entities.empty());
}

TEST_P(Samples, canBeSaved) {
    const std::wstring path = widePath(std::filesystem::path(SAMPLES) / GetParam());
    Drawing drawing;
    std::wstring reason;
    ASSERT_EQ(readDrawingFile(path, drawing, reason), Vorn::eOk) << toUtf8(reason);
    std::vector<std::byte> bytes;
    EXPECT_EQ(drawingBytes(drawing, bytes, reason), Vorn::eOk) << toUtf8(reason);
}

INSTANTIATE_TEST_SUITE_P(All, Samples, testing::Values("annex.zdr", "house.zdr", "site.zdr"));

} // namespace
