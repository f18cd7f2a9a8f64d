// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <optional>
#include <string>
#include <string_view>

namespace zelvo::image {

/// A colour as users choose it: sRGB (not linear), straight alpha, all components 0 to 1.
struct Color {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;

    friend bool operator==(const Color&, const Color&) = default;

    [[nodiscard]] static constexpr Color white(float white, float alpha = 1) {
        return {white, white, white, alpha};
    }

    /// From 0xRRGGBB, opaque.
    [[nodiscard]] static constexpr Color hex(unsigned rgb) {
        return {
            static_cast<float>((rgb >> 16U) & 0xFFU) / 255.0f,
            static_cast<float>((rgb >> 8U) & 0xFFU) / 255.0f,
            static_cast<float>(rgb & 0xFFU) / 255.0f,
            1.0f};
    }

    [[nodiscard]] static constexpr Color clear() { return {0, 0, 0, 0}; }

    /// From "#RRGGBB" (upper or lower case); nothing for any other text.
    [[nodiscard]] static std::optional<Color> parse(std::string_view text);
};

/// Hue, saturation, brightness in 0 .. 1. A hue outside, also a negative one, is taken modulo 1.
struct HSBColor {
    float hue = 0;
    float saturation = 0;
    float brightness = 0;
    float alpha = 1;
};

[[nodiscard]] HSBColor toHSB(const Color& color);
[[nodiscard]] Color fromHSB(const HSBColor& color);

/// The grey value of a colour: 0.299 red + 0.587 green + 0.114 blue (ITU-R BT.601 luma).
[[nodiscard]] float whiteOf(const Color& color);

/// The sRGB transfer function of one component and its inverse (IEC 61966-2-1).
[[nodiscard]] float linearFromSRGB(float value);
[[nodiscard]] float sRGBFromLinear(float value);

} // namespace zelvo::image
