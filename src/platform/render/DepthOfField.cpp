// SPDX-License-Identifier: MIT
#include "platform/render/DepthOfField.h"

#include <algorithm>
#include <cmath>

namespace zelvo::render {
namespace {

constexpr double kSensorHeight = 0.024; // metres
constexpr double kMinVisible = 0.5;     // output pixels

} // namespace

double largestBlur(const scene::SCNCamera& camera, Size output) {
    // Potmesil and Chakravarty 1981, "A Lens and Aperture Camera Model for Synthetic Image
    // Generation": at depth d the circle is A f |d - s| / (d (s - f)). For large d this tends to A
    // f / (s - f).
    const double angle = camera.verticalAngle(output.aspect());
    const double focalLength = kSensorHeight / (2 * std::tan(angle / 2));
    const double aperture = focalLength / camera.fStop;
    const double focus = std::max(camera.focusDistance, 2 * focalLength);
    return aperture * focalLength / (focus - focalLength) / kSensorHeight * output.height;
}

bool needsDepthOfField(const scene::SCNCamera& camera, Size output) {
    return camera.wantsDepthOfField && largestBlur(camera, output) >= kMinVisible;
}

} // namespace zelvo::render
