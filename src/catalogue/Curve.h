// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/Timing.h"

#include <array>

namespace zelvo::catalogue {

/// A timing curve as a value for tables.
struct Curve {
    enum class Kind { none, linear, sineIn, elasticIn, elasticOut, bezier, spring };

    Kind kind = Kind::none;
    std::array<float, 4> values{};

    /// The curve as a function; null for `none`.
    [[nodiscard]] scene::TimingFunction timing() const;
};

inline constexpr Curve kNoCurve{};
inline constexpr Curve kLinear{Curve::Kind::linear, {}};
inline constexpr Curve kSineIn{Curve::Kind::sineIn, {}};

constexpr Curve elasticIn(float period) {
    return {Curve::Kind::elasticIn, {period}};
}

constexpr Curve elasticOut(float period) {
    return {Curve::Kind::elasticOut, {period}};
}

constexpr Curve bezier(float x1, float y1, float x2, float y2) {
    return {Curve::Kind::bezier, {x1, y1, x2, y2}};
}

struct SpringValues {
    float damping, mass, stiffness, velocity;
};

constexpr Curve spring(const SpringValues& spring) {
    return {Curve::Kind::spring, {spring.damping, spring.stiffness, spring.mass, spring.velocity}};
}

} // namespace zelvo::catalogue
