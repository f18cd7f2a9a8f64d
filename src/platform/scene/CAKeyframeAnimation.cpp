// SPDX-License-Identifier: MIT
#include "platform/scene/CAKeyframeAnimation.h"

#include "platform/foundation/Check.h"
#include "platform/scene/Timing.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::scene {

namespace {

/// One coordinate of a cubic Bezier curve from 0 to 1 with the inner control values a and b.
float cubic(float a, float b, float s) {
    const float left = 1 - s;
    return 3 * left * left * s * a + 3 * left * s * s * b + s * s * s;
}

} // namespace

float CAMediaTimingFunction::at(float t) const {
    if (t <= 0 || t >= 1)
        return glm::clamp(t, 0.0f, 1.0f);
    // x grows with s, so bisection works; 20 steps reach a millionth.
    float low = 0;
    float high = 1;
    for (int i = 0; i < 20; ++i) {
        const float middle = (low + high) / 2;
        (cubic(x1, x2, middle) < t ? low : high) = middle;
    }
    return cubic(y1, y2, (low + high) / 2);
}

void CAKeyframeAnimation::check() const {
    CHECK(duration > 0, "a keyframe animation cannot take {} s", duration);
    CHECK(repeatCount > 0, "a keyframe animation cannot run {} times", repeatCount);
    CHECK(
        values.size() >= 2 && values.size() == keyTimes.size(),
        "{} values cannot stand at {} times",
        values.size(),
        keyTimes.size());
    CHECK(
        keyTimes.front() == 0 && keyTimes.back() == 1 && std::ranges::is_sorted(keyTimes),
        "key times do not go from 0 to 1");
}

float CAKeyframeAnimation::weightAt(double elapsed) const {
    double weight = 1;
    if (fadeInDuration > 0)
        weight = std::min(weight, elapsed / fadeInDuration);
    if (fadeOutDuration > 0)
        weight = std::min(weight, (length() - elapsed) / fadeOutDuration);
    return static_cast<float>(std::max(0.0, weight));
}

CAKeyframeAnimation::Place CAKeyframeAnimation::placeAt(double elapsed) const {
    const bool isOver = elapsed >= length() - kTimeTolerance;
    const double share = isOver ? 1 : std::fmod(elapsed, duration) / duration;
    const double bent = timingFunction ? timingFunction->at(static_cast<float>(share)) : share;
    const auto later = std::upper_bound(keyTimes.begin() + 1, keyTimes.end() - 1, bent);
    const auto index = static_cast<std::size_t>(later - keyTimes.begin()) - 1;
    const double length = *later - keyTimes[index];
    const double within = length > 0 ? (bent - keyTimes[index]) / length : 1;
    const auto progress = static_cast<float>(std::clamp(within, 0.0, 1.0));
    return {index, index < timingFunctions.size() ? timingFunctions[index].at(progress) : progress};
}

glm::vec3 CAKeyframeAnimation::vectorAt(double elapsed) const {
    const auto [index, progress] = placeAt(elapsed);
    return glm::mix(glm::vec3(values[index]), glm::vec3(values[index + 1]), progress);
}

glm::quat CAKeyframeAnimation::orientationAt(double elapsed) const {
    const auto [index, progress] = placeAt(elapsed);
    return glm::slerp(
        orientationFromAxisAngle(values[index]),
        orientationFromAxisAngle(values[index + 1]),
        progress);
}

glm::quat orientationFromAxisAngle(const glm::vec4& axisAngle) {
    const glm::vec3 axis(axisAngle);
    const float length = glm::length(axis);
    return length == 0 ? glm::quat(1, 0, 0, 0) : glm::angleAxis(axisAngle.w, axis / length);
}

glm::vec4 axisAngleFromOrientation(const glm::quat& orientation) {
    const glm::vec3 along(orientation.x, orientation.y, orientation.z);
    const float sine = glm::length(along);
    if (sine == 0)
        return glm::vec4(0);
    return {along / sine, 2 * std::atan2(sine, orientation.w)};
}

} // namespace zelvo::scene
