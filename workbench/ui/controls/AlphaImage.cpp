#include "AlphaImage.h"

#include <algorithm>
#include <array>
#include <utility>

namespace framework {
namespace {

using Channels = std::array<unsigned, 4>; // blue, green, red, alpha

Channels channelsOf(std::uint32_t pixel) {
    return {pixel & 0xFF, pixel >> 8 & 0xFF, pixel >> 16 & 0xFF, pixel >> 24};
}

std::uint32_t pixelOf(const Channels& channels) {
    return channels[0] | channels[1] << 8 | channels[2] << 16 | channels[3] << 24;
}

std::uint32_t premultiplied(std::uint32_t pixel) {
    Channels channels = channelsOf(pixel);
    for (int i = 0; i < 3; ++i)
        channels[i] = (channels[i] * channels[3] + 127) / 255;
    return pixelOf(channels);
}

void makeTopLeftTransparent(std::vector<std::uint32_t>& pixels) {
    const std::uint32_t background = pixels.front() & 0xFFFFFF;
    for (std::uint32_t& pixel : pixels) {
        const std::uint32_t colour = pixel & 0xFFFFFF;
        pixel = colour == background ? 0 : colour | 0xFF000000;
    }
}

/// The source pixels that one target pixel covers along one side: the first of them, and how much of each is covered,
/// in units of 1/target of a source pixel.
struct Span {
    int first;
    std::vector<std::uint64_t> weights;
};

std::vector<Span> spansOf(int source, int target) {
    std::vector<Span> spans;
    for (std::int64_t index = 0; index < target; ++index) {
        const std::int64_t from = index * source;
        const std::int64_t to = from + source;
        Span span = {static_cast<int>(from / target), {}};
        for (std::int64_t pixel = span.first; pixel * target < to; ++pixel) {
            const std::int64_t covered = std::min(to, (pixel + 1) * target) - std::max(from, pixel * target);
            span.weights.push_back(static_cast<std::uint64_t>(covered));
        }
        spans.push_back(std::move(span));
    }
    return spans;
}

std::uint32_t averageOf(const AlphaImage& image, const Span& across, const Span& down) {
    std::array<std::uint64_t, 4> sums = {};
    std::uint64_t total = 0;
    for (std::size_t y = 0; y < down.weights.size(); ++y) {
        const std::size_t row = (static_cast<std::size_t>(down.first) + y) * static_cast<std::size_t>(image.width);
        for (std::size_t x = 0; x < across.weights.size(); ++x) {
            const std::uint64_t weight = down.weights[y] * across.weights[x];
            const Channels channels = channelsOf(image.pixels[row + static_cast<std::size_t>(across.first) + x]);
            for (std::size_t i = 0; i < 4; ++i)
                sums[i] += weight * channels[i];
            total += weight;
        }
    }
    Channels average = {};
    for (std::size_t i = 0; i < 4; ++i)
        average[i] = static_cast<unsigned>((sums[i] + total / 2) / total);
    return pixelOf(average);
}

} // namespace

AlphaImage fromStraightAlpha(int width, int height, std::vector<std::uint32_t> pixels) {
    const bool hasAlpha = std::any_of(pixels.begin(), pixels.end(), [](std::uint32_t p) { return p >> 24 != 0; });
    if (!hasAlpha && !pixels.empty())
        makeTopLeftTransparent(pixels);
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), premultiplied);
    return {width, height, std::move(pixels)};
}

AlphaImage scaled(const AlphaImage& image, int width, int height) {
    if (image.isEmpty() || width <= 0 || height <= 0)
        return {};
    const std::vector<Span> across = spansOf(image.width, width);
    const std::vector<Span> down = spansOf(image.height, height);
    AlphaImage result = {width, height, {}};
    result.pixels.reserve(across.size() * down.size());
    for (const Span& row : down)
        for (const Span& column : across)
            result.pixels.push_back(averageOf(image, column, row));
    return result;
}

AlphaImage greyed(AlphaImage image) {
    for (std::uint32_t& pixel : image.pixels) {
        const Channels channels = channelsOf(pixel);
        // The weights of luminance, in 256ths.
        const unsigned grey = (channels[2] * 77 + channels[1] * 151 + channels[0] * 28) >> 8;
        pixel = pixelOf({grey / 2, grey / 2, grey / 2, channels[3] / 2});
    }
    return image;
}

} // namespace framework
