// SPDX-License-Identifier: MIT
#include "platform/image/Color.h"

#include <gtest/gtest.h>

#include <array>

namespace zelvo::image {
namespace {

TEST(Color, TransferFunctionAgreesWithPublishedValues) {
    // Byte values and their linear light, from a table for IEC 61966-2-1.
    // clang-format off
    constexpr auto kRows = std::to_array<std::pair<int, float>>({
        {0,   0.0f        },
        {1,   0.000303527f},
        {10,  0.003035270f},
        {11,  0.003346536f},
        {55,  0.038204372f},
        {128, 0.215860501f},
        {188, 0.502886458f},
        {254, 0.991102098f},
        {255, 1.0f        }
    });
    // clang-format on
    for (const auto& [byte, linear] : kRows) {
        const float coded = static_cast<float>(byte) / 255;
        EXPECT_NEAR(linearFromSRGB(coded), linear, 2e-6f) << byte;
        EXPECT_NEAR(sRGBFromLinear(linear), coded, 2e-5f) << byte;
    }
}

TEST(Color, ParsesSixHexadecimalDigitsAndNothingElse) {
    EXPECT_EQ(Color::parse("#194CE6"), Color::hex(0x194CE6));
    EXPECT_EQ(Color::parse("#194ce6"), Color::hex(0x194CE6));
    for (const char* text : {"", "#", "194CE6", "#194CE", "#194CE60", "#194CEG"})
        EXPECT_FALSE(Color::parse(text).has_value()) << text;
    for (const char* text : {"#-94CE6", "#+94CE6", "# 94CE6", "#0x4CE6"})
        EXPECT_FALSE(Color::parse(text).has_value()) << text;
}

TEST(Color, HueSaturationBrightnessOfKnownColours) {
    struct Row {
        unsigned rgb;
        float hue, saturation, brightness;
    };

    // Degrees and percentages, as a colour picker shows them.
    // clang-format off
    constexpr auto kRows = std::to_array<Row>({
        {0xFF0000, 0,       100,    100  },
        {0xFFFF00, 60,      100,    100  },
        {0x00FF00, 120,     100,    100  },
        {0x008080, 180,     100,    50.2f},
        {0x0000FF, 240,     100,    100  },
        {0xFF00FF, 300,     100,    100  },
        {0xFF0080, 329.88f, 100,    100  },
        {0x808080, 0,       0,      50.2f},
        {0x000000, 0,       0,      0    },
        {0x194CE6, 225.07f, 89.13f, 90.2f}
    });
    // clang-format on
    for (const Row& row : kRows) {
        const HSBColor hsb = toHSB(Color::hex(row.rgb));
        EXPECT_NEAR(hsb.hue * 360, row.hue, 0.05f) << std::hex << row.rgb;
        EXPECT_NEAR(hsb.saturation * 100, row.saturation, 0.05f) << std::hex << row.rgb;
        EXPECT_NEAR(hsb.brightness * 100, row.brightness, 0.05f) << std::hex << row.rgb;
    }
}

TEST(Color, EveryColourComesBackFromHueSaturationBrightnessAtAnyTurn) {
    for (unsigned step = 0; step < 0x1000; ++step) {
        const unsigned rgb = (step * 0x9E3779U) & 0xFFFFFFU;
        const Color color = Color::hex(rgb);
        HSBColor hsb = toHSB(color);
        hsb.hue += static_cast<float>(step % 5) - 2;
        const Color back = fromHSB(hsb);
        ASSERT_NEAR(back.red, color.red, 1e-5f) << std::hex << rgb;
        ASSERT_NEAR(back.green, color.green, 1e-5f) << std::hex << rgb;
        ASSERT_NEAR(back.blue, color.blue, 1e-5f) << std::hex << rgb;
    }
}

} // namespace
} // namespace zelvo::image
