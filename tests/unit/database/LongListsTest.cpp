// How the work of opening a drawing grows with each of its lists, counted in the bytes that it asks for: those don't
// depend on what else the computer does. The time is looked at in the benchmark of the same lists. Only natively.

#include "FailingAllocation.h"
#include "LongLists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

double bytesToOpen(const LongList& list, std::size_t count) {
    const FilesOfDrawing files(list.make(count));
    const std::size_t before = allocatedBytes();
    files.open();
    return static_cast<double>(allocatedBytes() - before);
}

class LongLists : public testing::TestWithParam<LongList> {};

std::string nameOf(const testing::TestParamInfo<LongList>& info) {
    std::string name = info.param.name;
    std::ranges::replace_if(
        name, [](char c) { return !std::isalpha(static_cast<unsigned char>(c)); }, '_');
    return name;
}

} // namespace

TEST_P(LongLists, TakeMemoryInProportion) {
    constexpr std::size_t kCount = 20;
    const double small = bytesToOpen(GetParam(), kCount);
    const double tenTimes = bytesToOpen(GetParam(), 10 * kCount);
    const double hundredTimes = bytesToOpen(GetParam(), 100 * kCount);
    EXPECT_GT(hundredTimes - small, 99 * kCount)
        << "the list is one of those lengths: each entry takes a byte at least";
    EXPECT_LT(std::log10(hundredTimes / tenTimes), 1.2) << tenTimes << " bytes, then " << hundredTimes;
    EXPECT_LT(std::log10(hundredTimes / small) / 2, 1.2) << small << " bytes, then " << hundredTimes;
}

INSTANTIATE_TEST_SUITE_P(OfTheSchema, LongLists, testing::ValuesIn(longLists()), nameOf);
