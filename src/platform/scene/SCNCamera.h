// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zelvo::scene {

/// Stands at its node and looks along the node's -z.
///
/// Depth of field is a thin lens: sensor height 24 mm, focal length from the field of view, one
/// scene unit a metre; the pass is skipped where the largest circle of confusion is under half an
/// output pixel.
class SCNCamera {
public:
    double fieldOfView = 60; ///< degrees, vertical
    double zNear = 1;        ///< scene units
    double zFar = 100;       ///< scene units
    bool wantsHDR = false;   ///< filmic tone map instead of a plain clamp
    bool wantsExposureAdaptation = true;
    bool wantsDepthOfField = false;
    double focusDistance = 2.5; ///< scene units
    double fStop = 5.6;
    double motionBlurIntensity = 0;
    double exposureOffset = 0; ///< stops
};

using SCNCameraPtr = std::shared_ptr<SCNCamera>;

} // namespace zelvo::scene
