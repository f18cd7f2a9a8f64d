// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zelvo::scene {

/// A camera. It sits at its node and looks along the node's -z.
///
/// Depth of field is that of a thin lens: the sensor is 24 mm high, the focal length follows from
/// the field of view, one scene unit is a metre. It is not drawn if the largest circle of confusion
/// is under half an output pixel.
class SCNCamera {
public:
    double fieldOfView = 60; ///< degrees, vertical
    double zNear = 1;        ///< scene units
    double zFar = 100;       ///< scene units
    bool wantsHDR = false;   ///< filmic tone map instead of clamping
    bool wantsExposureAdaptation = true;
    bool wantsDepthOfField = false;
    double focusDistance = 2.5; ///< scene units
    double fStop = 5.6;
    double motionBlurIntensity = 0;
    double exposureOffset = 0; ///< stops
};

using SCNCameraPtr = std::shared_ptr<SCNCamera>;

} // namespace zelvo::scene
