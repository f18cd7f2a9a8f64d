// SPDX-License-Identifier: MIT
#include "platform/render/LinearResampler.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/WideLoop.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zelvo::render {
namespace {

constexpr std::size_t kNoRow = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kChannels = 4;

ZELVO_WIDE_LOOP void mixRows(
    const std::uint16_t* __restrict upper,
    const std::uint16_t* __restrict lower,
    std::uint32_t shareOfLower,
    std::uint8_t* __restrict result,
    std::size_t count) {
    const std::uint32_t shareOfUpper = 256 - shareOfLower;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t sum = upper[i] * shareOfUpper + lower[i] * shareOfLower;
        result[i] = static_cast<std::uint8_t>((sum + 0x8000U) >> 16U);
    }
}

} // namespace

LinearResampler::LinearResampler(Size from, Size to)
    : drawn(from)
    , output(to)
    , columns(makeAxis(from.width, to.width))
    , rows(makeAxis(from.height, to.height)) {
    for (Row& row : widenedRows)
        row.values.resize(columns.size() * kChannels);
}

std::vector<LinearResampler::Between> LinearResampler::makeAxis(int from, int to) {
    CHECK(from > 0 && to > 0, "{} pixels cannot be scaled to {}", from, to);
    std::vector<Between> axis;
    for (int i = 0; i < to; ++i) {
        const double place = std::clamp((i + 0.5) * from / to - 0.5, 0.0, from - 1.0);
        const auto lower = static_cast<std::size_t>(place);
        const double share = place - static_cast<double>(lower);
        axis.push_back(
            {lower,
             std::min(lower + 1, static_cast<std::size_t>(from) - 1),
             static_cast<std::uint32_t>(std::lround(256 * share))});
    }
    return axis;
}

void LinearResampler::write(std::span<const std::uint8_t> pixels, std::uint8_t* result) {
    for (Row& row : widenedRows)
        row.source = kNoRow;
    const std::size_t count = columns.size() * kChannels;
    for (const Between& row : rows) {
        const Row& upper = widened(pixels, row.lower);
        const Row& lower = widened(pixels, row.upper);
        mixRows(upper.values.data(), lower.values.data(), row.share, result, count);
        result += count;
    }
}

const LinearResampler::Row&
LinearResampler::widened(std::span<const std::uint8_t> pixels, std::size_t source) {
    Row& row = widenedRows.at(source % 2); // neighbours never meet
    if (row.source == source)
        return row;
    row.source = source;
    const auto width = static_cast<std::size_t>(drawn.width);
    const std::uint8_t* from = pixels.data() + source * width * kChannels;
    std::uint16_t* to = row.values.data();
    for (const Between& column : columns) {
        const std::uint8_t* left = from + column.lower * kChannels;
        const std::uint8_t* right = from + column.upper * kChannels;
        for (std::size_t c = 0; c < kChannels; ++c)
            *to++ = static_cast<std::uint16_t>(
                left[c] * (256 - column.share) + right[c] * column.share);
    }
    return row;
}

} // namespace zelvo::render
