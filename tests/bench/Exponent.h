// How what something costs grows with its size.
#pragma once

#include <cmath>
#include <vector>

/// The slope of the straight line through the logarithms: 0 doesn't grow, 1 grows as the size does.
inline double exponent(const std::vector<double>& sizes, const std::vector<double>& times) {
    double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const double x = std::log(sizes[i]), y = std::log(times[i]);
        sumX += x, sumY += y, sumXX += x * x, sumXY += x * y;
    }
    const auto n = static_cast<double>(sizes.size());
    return (n * sumXY - sumX * sumY) / (n * sumXX - sumX * sumX);
}
