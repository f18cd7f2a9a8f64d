// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace zelvo::model {

/// The speed setting: how long animations of the catalogue take.
enum class AnimationRatio {
    superSuperSlow,
    superSlow,
    slow,
    normal,
    fast,
    superFast,
    superSuperFast
};

struct SpeedRow {
    AnimationRatio ratio;
    double rawValue;
    double animationFactor; ///< seconds: the base duration of every catalogue action
    std::string_view title;
};

/// All speeds, slowest first. The factor is the raw value times 0.85.
// clang-format off
inline constexpr auto kSpeeds = std::to_array<SpeedRow>({
    {AnimationRatio::superSuperSlow, 3.0,  2.55,   "Slowest"},
    {AnimationRatio::superSlow,      2.0,  1.7,    "Slower" },
    {AnimationRatio::slow,           1.5,  1.275,  "Slow"   },
    {AnimationRatio::normal,         1.0,  0.85,   "Normal" },
    {AnimationRatio::fast,           0.75, 0.6375, "Fast"   },
    {AnimationRatio::superFast,      0.5,  0.425,  "Faster" },
    {AnimationRatio::superSuperFast, 0.25, 0.2125, "Fastest"},
});

// clang-format on

[[nodiscard]] constexpr const SpeedRow& speedOf(AnimationRatio ratio) {
    return kSpeeds[static_cast<std::size_t>(ratio)];
}

/// Nothing if the value is not one of the seven.
[[nodiscard]] constexpr std::optional<AnimationRatio> animationRatioOf(double rawValue) {
    for (const SpeedRow& row : kSpeeds) {
        if (row.rawValue == rawValue)
            return row.ratio;
    }
    return std::nullopt;
}

/// The row whose factor is nearest.
[[nodiscard]] constexpr const SpeedRow& speedWith(double animationFactor) {
    const auto distance = [&](const SpeedRow& row) {
        const double apart = row.animationFactor - animationFactor;
        return apart < 0 ? -apart : apart;
    };
    return *std::ranges::min_element(kSpeeds, {}, distance);
}

} // namespace zelvo::model
