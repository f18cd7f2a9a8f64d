// SPDX-License-Identifier: MIT
#include "platform/media/ColorConversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace zelvo::media {
namespace {

TEST(ColorConversionTest, IsWithinOneOfTheStandardsFormulaInBothByteOrders) {
    std::mt19937 random(7);
    constexpr int kWidth = 38;
    constexpr int kHeight = 6;
    for (const auto format : {PixelFormat::bgra, PixelFormat::rgba}) {
        PixelBuffer source = PixelBufferPool(kWidth, kHeight, format).acquire();
        for (int y = 0; y < kHeight; ++y) {
            std::generate_n(
                source.row(y), 4 * kWidth, [&] { return static_cast<std::uint8_t>(random()); });
        }
        std::array<std::uint8_t, kWidth * kHeight> luma{};
        std::array<std::uint8_t, kWidth * kHeight / 4> cb{};
        std::array<std::uint8_t, kWidth * kHeight / 4> cr{};
        convertToYuv420(source, {luma.data(), cb.data(), cr.data(), kWidth, kWidth / 2});

        const auto ycc = [&](int x, int y) {
            const std::uint8_t* p = source.row(y) + 4L * std::max(x, 0);
            const bool isBgra = format == PixelFormat::bgra;
            const double r = p[isBgra ? 2 : 0];
            const double b = p[isBgra ? 0 : 2];
            const double light = 0.2126 * r + 0.7152 * p[1] + 0.0722 * b;
            return std::array{light, (b - light) / 1.8556, (r - light) / 1.5748};
        };
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const double expected = 16.0 + 219.0 * ycc(x, y)[0] / 255.0;
                EXPECT_NEAR(luma[static_cast<std::size_t>(y * kWidth + x)], expected, 1.0);
                if (x % 2 == 1 || y % 2 == 1)
                    continue;
                const auto mean = [&](std::size_t channel) {
                    double sum = 0.0;
                    for (const int row : {y, y + 1}) {
                        sum += ycc(x - 1, row)[channel] + 2.0 * ycc(x, row)[channel] +
                               ycc(x + 1, row)[channel];
                    }
                    return 128.0 + 224.0 * sum / 8.0 / 255.0;
                };
                const auto at = static_cast<std::size_t>(y / 2 * kWidth / 2 + x / 2);
                EXPECT_NEAR(cb[at], mean(1), 1.0);
                EXPECT_NEAR(cr[at], mean(2), 1.0);
            }
        }
    }
}

} // namespace
} // namespace zelvo::media
