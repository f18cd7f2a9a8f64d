// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace zelvo::scene {

/// A camera. It sits at its node and looks along the node's -z.
///
/// Depth of field is that of a thin lens: the sensor is 24 mm high, the focal length follows from
/// the field of view, one scene unit is a metre. It is not drawn if the largest circle of confusion
/// is under half an output pixel.
class SCNCamera {
public:
    double fieldOfView = 60; ///< degrees, vertical
    /// Width over height of the narrowest picture with that angle. A narrower one keeps the
    /// horizontal angle of this one, so that a wide subject stays within it.
    double narrowestAspect = 0;
    double zNear = 1;      ///< scene units
    double zFar = 100;     ///< scene units
    bool wantsHDR = false; ///< filmic tone map instead of clamping
    bool wantsExposureAdaptation = true;
    bool wantsDepthOfField = false;
    double focusDistance = 2.5; ///< scene units
    double fStop = 5.6;
    double motionBlurIntensity = 0;
    double exposureOffset = 0; ///< stops

    /// The vertical angle in a picture of that width over height, in radians.
    [[nodiscard]] double verticalAngle(double aspect) const {
        constexpr double kRadians = std::numbers::pi / 180;
        const double wider = std::max(1.0, narrowestAspect / aspect);
        return 2 * std::atan(wider * std::tan(fieldOfView * kRadians / 2));
    }
};

using SCNCameraPtr = std::shared_ptr<SCNCamera>;

} // namespace zelvo::scene
