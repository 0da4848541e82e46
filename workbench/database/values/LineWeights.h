// The lineweights that there are, in hundredths of a millimetre.
#pragma once

#include <cstdint>
#include <iterator>

namespace engine {

inline constexpr std::int16_t kLineWeightByLayer = -1;
inline constexpr std::int16_t kLineWeightByBlock = -2;
inline constexpr std::int16_t kLineWeightDefault = -3;
inline constexpr std::int16_t kLineWidths[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                               53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
inline constexpr std::int16_t kWidestLine = *std::rbegin(kLineWidths);

} // namespace engine
