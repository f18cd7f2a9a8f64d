// SPDX-License-Identifier: MIT
#pragma once

#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include <cstddef>
#include <optional>
#include <vector>

namespace zelvo::scene {

/// A cubic Bezier curve from (0, 0) to (1, 1). x of both control points is in 0 .. 1. It is solved
/// for x = t with an error of at most 0.00001.
struct CAMediaTimingFunction {
    float x1 = 0;
    float y1 = 0;
    float x2 = 1;
    float y2 = 1;

    [[nodiscard]] float at(float t) const;
};

/// Moves a property of a node through given values at given times.
///
/// The node is drawn with the animated value. Its own value does not change: actions can still
/// write it, and it is shown again when the animation ends. Fades mix the two.
///
///     keyTimes         0      t1      t2         1    as shares of the duration
///     values           v0     v1      v2         v3
///     timingFunctions     f0      f1       f2         one for each interval; linear if missing
///     timingFunction   for the whole, applied first
struct CAKeyframeAnimation {
    enum class KeyPath {
        position, ///< uses x, y, z of the values
        rotation  ///< axis (any length) and angle in radians; takes the shortest way between two
    };

    KeyPath keyPath = KeyPath::position;
    std::vector<glm::vec4> values;
    std::vector<double> keyTimes;
    std::vector<CAMediaTimingFunction> timingFunctions;
    std::optional<CAMediaTimingFunction> timingFunction;
    double duration = 0; ///< seconds of one repeat
    double repeatCount = 1;
    double fadeInDuration = 0; ///< seconds
    double fadeOutDuration = 0;

    /// Ends the process if the number of values does not fit the key times.
    void check() const;

    /// Seconds, with all repeats.
    [[nodiscard]] double length() const { return duration * repeatCount; }

    /// The share of the animated value in the mix, 0 to 1.
    [[nodiscard]] float weightAt(double elapsed) const;

    /// For all key paths except rotation.
    [[nodiscard]] glm::vec3 vectorAt(double elapsed) const;
    /// For the rotation.
    [[nodiscard]] glm::quat orientationAt(double elapsed) const;

private:
    struct Place {
        std::size_t index; ///< of the last key
        float progress;    ///< from this key to the next
    };

    [[nodiscard]] Place placeAt(double elapsed) const;
};

/// No rotation if the axis is zero.
[[nodiscard]] glm::quat orientationFromAxisAngle(const glm::vec4& axisAngle);
/// All zero if there is no rotation.
[[nodiscard]] glm::vec4 axisAngleFromOrientation(const glm::quat& orientation);

} // namespace zelvo::scene
