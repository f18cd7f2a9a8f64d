// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/Timing.h"

// The timing curves of all animations. Each maps progress t in 0 .. 1 to a value that starts at 0
// and ends at 1 (springs: nearly 1), and can leave 0 .. 1 in between. Arithmetic is in 32-bit
// floats.

namespace zelvo::actions {

[[nodiscard]] float linearTiming(float t);
[[nodiscard]] float sineIn(float t);
[[nodiscard]] float sineOut(float t);
[[nodiscard]] float sineInOut(float t);

/// Oscillations that grow, shrink, or first grow and then shrink. The period is a fraction of the
/// whole time (for elasticInOut, of each half); a shorter period oscillates more often.
[[nodiscard]] scene::TimingFunction elasticIn(float period);
[[nodiscard]] scene::TimingFunction elasticOut(float period);
[[nodiscard]] scene::TimingFunction elasticInOut(float inPeriod, float outPeriod);

/// The step response of a damped spring over 1.5 seconds of its own time. Damping above the
/// critical value counts as critical.
struct Spring {
    float damping = 0;
    float stiffness = 0;
    float mass = 1;
    float velocity = 0; ///< at the start, in distances per second

    [[nodiscard]] float at(float t) const;
};

[[nodiscard]] scene::TimingFunction
springTiming(float damping, float stiffness, float mass, float velocity);

/// A cubic Bezier curve from (0, 0) to (1, 1) with control points (x1, y1) and (x2, y2). It is
/// solved for x = t by at most five steps of Newton's method, starting at s = t.
struct Bezier {
    float x1 = 0;
    float y1 = 0;
    float x2 = 1;
    float y2 = 1;

    [[nodiscard]] float at(float t) const;
};

[[nodiscard]] scene::TimingFunction bezierTiming(float x1, float y1, float x2, float y2);

} // namespace zelvo::actions
