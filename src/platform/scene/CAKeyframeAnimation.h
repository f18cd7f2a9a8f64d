// SPDX-License-Identifier: MIT
#pragma once

#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>

#include <cstddef>
#include <optional>
#include <vector>

namespace zelvo::scene {

/// The cubic curve from (0, 0) to (1, 1) with two control points, whose x lie in 0 to 1. The curve
/// is solved for x = t, to a thousandth of a per cent.
struct CAMediaTimingFunction {
    float x1 = 0;
    float y1 = 0;
    float x2 = 1;
    float y2 = 1;

    [[nodiscard]] float at(float t) const;
};

/// A property that goes through given values at given times.
///
/// While it runs on a node (SCNNode::addAnimation) the node is drawn with the animated value in
/// place of its own; the own one does not change, actions go on writing it, and it shows again in
/// the end. Fades mix the two.
///
///     keyTimes         0      t1      t2         1    shares of the duration
///     values           v0     v1      v2         v3
///     timingFunctions     f0      f1       f2         one between each two, linear where missing
///     timingFunction   bends the progress of the whole before any of that
struct CAKeyframeAnimation {
    enum class KeyPath {
        position, ///< x, y, z of the values
        rotation  ///< axis (need not be unit) and angle in radians; goes the short way between two
    };

    KeyPath keyPath = KeyPath::position;
    std::vector<glm::vec4> values;
    std::vector<double> keyTimes;
    std::vector<CAMediaTimingFunction> timingFunctions;
    std::optional<CAMediaTimingFunction> timingFunction;
    double duration = 0; ///< seconds, of one round
    double repeatCount = 1;
    double fadeInDuration = 0; ///< seconds
    double fadeOutDuration = 0;

    /// Ends the process if values and times do not go together.
    void check() const;

    /// Seconds, all rounds.
    [[nodiscard]] double length() const { return duration * repeatCount; }

    /// How much of the animated value shows: 0 to 1.
    [[nodiscard]] float weightAt(double elapsed) const;

    /// For key paths other than rotation.
    [[nodiscard]] glm::vec3 vectorAt(double elapsed) const;
    /// For the rotation.
    [[nodiscard]] glm::quat orientationAt(double elapsed) const;

private:
    struct Place {
        std::size_t index; ///< of the key before
        float progress;    ///< from there to the next
    };

    [[nodiscard]] Place placeAt(double elapsed) const;
};

/// No turn for a zero axis.
[[nodiscard]] glm::quat orientationFromAxisAngle(const glm::vec4& axisAngle);
/// All zero for no turn.
[[nodiscard]] glm::vec4 axisAngleFromOrientation(const glm::quat& orientation);

} // namespace zelvo::scene
