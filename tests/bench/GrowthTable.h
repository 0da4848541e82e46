// A table of what something costs by size, in milliseconds, with the exponent of its growth.
#pragma once

#include "Exponent.h"

#include <cstdio>
#include <span>

struct GrowthFigure {
    const char* name;
    double aimMs; ///< at the largest size
};

inline void printGrowthHeading(const char* title, std::span<const std::size_t> sizes) {
    std::printf("%s\n%-34s", title, "");
    for (const std::size_t size : sizes)
        std::printf(" %8zu", size);
    std::printf(" %9s %6s  %s\n", "exponent", "aim", "met?");
}

/// @param measure answers the milliseconds for a size
template <class Measure>
void printGrowth(const GrowthFigure& figure, std::span<const std::size_t> sizes, Measure measure) {
    std::printf("%-34s", figure.name);
    std::vector<double> numbers;
    std::vector<double> times;
    for (const std::size_t size : sizes) {
        numbers.push_back(static_cast<double>(size));
        times.push_back(measure(size));
        std::printf(" %8.1f", times.back());
        std::fflush(stdout);
    }
    std::printf(" %9.2f %6.0f  %s\n", exponent(numbers, times), figure.aimMs,
                times.back() <= figure.aimMs ? "yes" : "no");
}
