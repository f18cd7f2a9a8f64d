// SPDX-License-Identifier: MIT
#include "platform/render/AreaResampler.h"

#include "platform/foundation/Check.h"
#include "platform/foundation/WideLoop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace zelvo::render {
namespace {

/// The four channels of a pixel, handled by one instruction.
using Pixel = float __attribute__((vector_size(16)));
using Words = std::int32_t __attribute__((vector_size(16)));

/// Ordered dithering (Bayer 1973) instead of plain rounding: gradients do not band, and whole
/// values stay as they are.
constexpr std::array<std::array<float, 2>, 2> kThresholds{{{0.125f, 0.625f}, {0.875f, 0.375f}}};

ZELVO_WIDE_LOOP void
squareRow(const std::uint8_t* __restrict row, float weight, float* __restrict sums, int count) {
    for (int i = 0; i < count; ++i) {
        const auto value = static_cast<float>(row[i]);
        sums[i] = value * value * weight;
    }
}

ZELVO_WIDE_LOOP void
addSquareRow(const std::uint8_t* __restrict row, float weight, float* __restrict sums, int count) {
    for (int i = 0; i < count; ++i) {
        const auto value = static_cast<float>(row[i]);
        sums[i] += value * value * weight;
    }
}

ZELVO_WIDE_LOOP void addTwoSquareRows(
    const std::uint8_t* __restrict upper,
    const std::uint8_t* __restrict lower,
    const float* weights,
    float* __restrict sums,
    int count) {
    const float a = weights[0];
    const float b = weights[1];
    for (int i = 0; i < count; ++i) {
        const auto x = static_cast<float>(upper[i]);
        const auto y = static_cast<float>(lower[i]);
        sums[i] = x * x * a + y * y * b;
    }
}

/// Rounds down, because a threshold was added before.
void store(const Pixel& value, std::uint8_t* target) {
    const Words words = __builtin_convertvector(value, Words);
    target[0] = static_cast<std::uint8_t>(words[0]);
    target[1] = static_cast<std::uint8_t>(words[1]);
    target[2] = static_cast<std::uint8_t>(words[2]);
    target[3] = 255;
}

Pixel root(const Pixel& value) {
    return Pixel{std::sqrt(value[0]), std::sqrt(value[1]), std::sqrt(value[2]), 0};
}

} // namespace

AreaResampler::AreaResampler(Size drawnSize, Size outputSize)
    : drawn(drawnSize)
    , output(outputSize)
    , horizontal(makeAxis(drawn.width, output.width))
    , vertical(makeAxis(drawn.height, output.height))
    , sums(static_cast<std::size_t>(drawn.width) * 4) {}

AreaResampler::Axis AreaResampler::makeAxis(int from, int to) {
    CHECK(to > 0 && from >= to, "{} drawn pixels cannot be scaled down to {}", from, to);
    const double ratio = static_cast<double>(from) / to;
    constexpr double kTiny = 1e-6;
    Axis axis;
    for (int i = 0; i < to; ++i) {
        const double start = i * ratio;
        const double end = start + ratio;
        Taps taps;
        taps.first = static_cast<int>(std::floor(start + kTiny));
        taps.count = std::min(static_cast<int>(std::ceil(end - kTiny)), from) - taps.first;
        taps.firstWeight = static_cast<int>(axis.weights.size());
        for (int k = taps.first; k < taps.first + taps.count; ++k) {
            axis.weights.push_back(
                static_cast<float>((std::min(end, k + 1.0) - std::max<double>(start, k)) / ratio));
        }
        axis.taps.push_back(taps);
    }
    return axis;
}

void AreaResampler::writeRow(std::span<const std::uint8_t> pixels, int y, std::uint8_t* row) {
    const Taps& rows = vertical.taps[static_cast<std::size_t>(y)];
    const int count = drawn.width * 4;
    const std::uint8_t* source = pixels.data() + static_cast<std::ptrdiff_t>(rows.first) * count;
    const float* weights = vertical.weights.data() + rows.firstWeight;
    if (rows.count == 2) {
        addTwoSquareRows(source, source + count, weights, sums.data(), count);
    } else {
        squareRow(source, weights[0], sums.data(), count);
        for (int k = 1; k < rows.count; ++k) {
            addSquareRow(
                source + static_cast<std::ptrdiff_t>(k) * count, weights[k], sums.data(), count);
        }
    }
    for (int x = 0; x < output.width; ++x) {
        const Taps& columns = horizontal.taps[static_cast<std::size_t>(x)];
        Pixel sum{};
        for (int k = 0; k < columns.count; ++k) {
            Pixel value;
            std::memcpy(
                &value, sums.data() + (std::ptrdiff_t{columns.first} + k) * 4, sizeof(value));
            sum +=
                value *
                horizontal.weights
                    [static_cast<std::size_t>(columns.firstWeight) + static_cast<std::size_t>(k)];
        }
        const float threshold =
            kThresholds[static_cast<std::size_t>(y & 1)][static_cast<std::size_t>(x & 1)];
        store(root(sum) + threshold, row + static_cast<std::ptrdiff_t>(x) * 4);
    }
}

} // namespace zelvo::render
