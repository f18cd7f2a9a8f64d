// SPDX-License-Identifier: MIT
#include "platform/image/Color.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zelvo::image {

std::optional<Color> Color::parse(std::string_view text) {
    constexpr std::size_t kLength = 7;
    if (text.size() != kLength || text.front() != '#')
        return std::nullopt;
    unsigned rgb = 0;
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, rgb, 16);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return hex(rgb);
}

HSBColor toHSB(const Color& color) {
    const float high = std::max({color.red, color.green, color.blue});
    const float low = std::min({color.red, color.green, color.blue});
    const float chroma = high - low;

    HSBColor result{0, 0, high, color.alpha};
    if (high <= 0 || chroma <= 0)
        return result;
    result.saturation = chroma / high;

    float sextant = 0;
    if (high == color.red) {
        sextant = (color.green - color.blue) / chroma;
    } else if (high == color.green) {
        sextant = 2 + (color.blue - color.red) / chroma;
    } else {
        sextant = 4 + (color.red - color.green) / chroma;
    }
    result.hue = sextant / 6;
    result.hue -= std::floor(result.hue);
    return result;
}

Color fromHSB(const HSBColor& color) {
    const float hue = (color.hue - std::floor(color.hue)) * 6;
    // Each component is the same trapezoid over the hue, shifted by two sextants.
    const auto component = [&](float turn) {
        const float sextant = std::fmod(turn + hue, 6.0f);
        const float slope = std::clamp(std::min(sextant, 4 - sextant), 0.0f, 1.0f);
        return color.brightness * (1 - color.saturation * slope);
    };
    return {component(5), component(3), component(1), color.alpha};
}

float whiteOf(const Color& color) {
    return 0.299f * color.red + 0.587f * color.green + 0.114f * color.blue;
}

float linearFromSRGB(float value) {
    if (value <= 0.04045f)
        return value / 12.92f;
    return std::pow((value + 0.055f) / 1.055f, 2.4f);
}

float sRGBFromLinear(float value) {
    if (value <= 0.0031308f)
        return value * 12.92f;
    return 1.055f * std::pow(value, 1 / 2.4f) - 0.055f;
}

} // namespace zelvo::image
