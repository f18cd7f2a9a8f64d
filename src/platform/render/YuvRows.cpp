// SPDX-License-Identifier: MIT
#include "platform/render/YuvRows.h"

#include "platform/foundation/WideLoop.h"

#include <cstddef>

namespace zelvo::render {
namespace {

constexpr double kRed = 0.2126;
constexpr double kBlue = 0.0722;
constexpr double kGreen = 1.0 - kRed - kBlue;
constexpr int kShift = 16;
constexpr int kHalf = 1 << (kShift - 1);

constexpr int fixedPoint(double factor) {
    const double scaled = factor * (1 << kShift);
    return static_cast<int>(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
}

constexpr double kLumaScale = 219.0 / 255.0;
constexpr int kLumaRed = fixedPoint(kRed * kLumaScale);
constexpr int kLumaGreen = fixedPoint(kGreen * kLumaScale);
constexpr int kLumaBlue = fixedPoint(kBlue * kLumaScale);

// The sums that these weigh are of eight pixels. The greens are what makes grey come out without
// colour.
constexpr double kChromaScale = 224.0 / 255.0 / 8.0;
constexpr int kCbRed = fixedPoint(-kRed / 1.8556 * kChromaScale);
constexpr int kCbBlue = fixedPoint(0.5 * kChromaScale);
constexpr int kCbGreen = -kCbRed - kCbBlue;
constexpr int kCrRed = fixedPoint(0.5 * kChromaScale);
constexpr int kCrBlue = fixedPoint(-kBlue / 1.5748 * kChromaScale);
constexpr int kCrGreen = -kCrRed - kCrBlue;

ZELVO_WIDE_LOOP void
lumaRow(const std::uint8_t* __restrict pixels, std::uint8_t* __restrict luma, int width) {
    for (int x = 0; x < width; ++x) {
        const int sum = pixels[4 * x] * kLumaRed + pixels[4 * x + 1] * kLumaGreen +
                        pixels[4 * x + 2] * kLumaBlue;
        luma[x] = static_cast<std::uint8_t>((sum + (16 << kShift) + kHalf) >> kShift);
    }
}

struct ChromaRows {
    const std::uint8_t* upper;
    const std::uint8_t* lower;
    std::uint8_t* cb;
    std::uint8_t* cr;
};

void chromaSample(const ChromaRows& rows, int x, int left) {
    const auto weighed = [&rows, x, left](int c) {
        const int middle = 8 * x + c;
        const int before = middle - left;
        return rows.upper[before] + 2 * rows.upper[middle] + rows.upper[middle + 4] +
               rows.lower[before] + 2 * rows.lower[middle] + rows.lower[middle + 4];
    };
    const int red = weighed(0);
    const int green = weighed(1);
    const int blue = weighed(2);
    constexpr int kOffset = (128 << kShift) + kHalf;
    rows.cb[x] = static_cast<std::uint8_t>(
        (red * kCbRed + green * kCbGreen + blue * kCbBlue + kOffset) >> kShift);
    rows.cr[x] = static_cast<std::uint8_t>(
        (red * kCrRed + green * kCrGreen + blue * kCrBlue + kOffset) >> kShift);
}

ZELVO_WIDE_LOOP void chromaRow(const ChromaRows& rows, int pairs) {
    for (int x = 1; x < pairs; ++x) {
        chromaSample(rows, x, 4);
    }
}

} // namespace

void writeYuvRows(const std::uint8_t* rows, int y, Size size, std::span<std::uint8_t> planes) {
    const std::ptrdiff_t width = size.width;
    const std::ptrdiff_t lumaBytes = width * size.height;
    const std::uint8_t* lower = rows + width * 4;
    lumaRow(rows, planes.data() + y * width, size.width);
    lumaRow(lower, planes.data() + (y + 1) * width, size.width);
    std::uint8_t* cb = planes.data() + lumaBytes + y / 2 * (width / 2);
    const ChromaRows chroma{rows, lower, cb, cb + lumaBytes / 4};
    chromaSample(chroma, 0, 0); // the first pair has nothing to its left
    chromaRow(chroma, size.width / 2);
}

} // namespace zelvo::render
