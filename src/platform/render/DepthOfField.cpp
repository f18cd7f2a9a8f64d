// SPDX-License-Identifier: MIT
#include "platform/render/DepthOfField.h"

#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::render {
namespace {

constexpr double kSensorHeight = 0.024; // metres
constexpr double kMinVisible = 0.5;     // output pixels

} // namespace

double largestBlur(const scene::SCNCamera& camera, int outputHeight) {
    // Potmesil and Chakravarty 1981, "A Lens and Aperture Camera Model for Synthetic Image
    // Generation": at depth d the circle is A f |d - s| / (d (s - f)). For large d this tends to A
    // f / (s - f).
    const double focalLength = kSensorHeight / (2 * std::tan(glm::radians(camera.fieldOfView) / 2));
    const double aperture = focalLength / camera.fStop;
    const double focus = std::max(camera.focusDistance, 2 * focalLength);
    return aperture * focalLength / (focus - focalLength) / kSensorHeight * outputHeight;
}

bool needsDepthOfField(const scene::SCNCamera& camera, int outputHeight) {
    return camera.wantsDepthOfField && largestBlur(camera, outputHeight) >= kMinVisible;
}

} // namespace zelvo::render
