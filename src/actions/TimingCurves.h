// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/Timing.h"

// The family of timing curves that every animation is written with. Each maps progress t in 0 to 1
// to a value that is 0 at the start and 1 (for springs: nearly 1) at the end, and may leave 0 to 1
// in between. All arithmetic is in 32-bit floats.

namespace zelvo::actions {

[[nodiscard]] float linearTiming(float t);
[[nodiscard]] float sineIn(float t);
[[nodiscard]] float sineOut(float t);
[[nodiscard]] float sineInOut(float t);

/// Swings of growing, shrinking, and first growing then shrinking height. A period is a fraction of
/// the whole time (of half of it for the two halves of elasticInOut); a shorter one swings more
/// often.
[[nodiscard]] scene::TimingFunction elasticIn(float period);
[[nodiscard]] scene::TimingFunction elasticOut(float period);
[[nodiscard]] scene::TimingFunction elasticInOut(float inPeriod, float outPeriod);

/// The step response of a damped spring over 1.5 seconds of its own time. From the critical damping
/// on, the critically damped form is used.
struct Spring {
    float damping = 0;
    float stiffness = 0;
    float mass = 1;
    float velocity = 0; ///< at the start, in distances per second

    [[nodiscard]] float at(float t) const;
};

[[nodiscard]] scene::TimingFunction
springTiming(float damping, float stiffness, float mass, float velocity);

/// The cubic curve from (0, 0) to (1, 1) with control points (x1, y1) and (x2, y2), solved for x =
/// t by Newton's method from s = t in at most five steps.
struct Bezier {
    float x1 = 0;
    float y1 = 0;
    float x2 = 1;
    float y2 = 1;

    [[nodiscard]] float at(float t) const;
};

[[nodiscard]] scene::TimingFunction bezierTiming(float x1, float y1, float x2, float y2);

} // namespace zelvo::actions
