// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"
#include "platform/scene/Animated.h"

#include <cstdint>
#include <memory>

namespace zelvo::scene {

enum class SCNLightType { ambient, directional, omni, spot };
enum class SCNShadowMode { forward = 0, deferred = 1, modulated = 2 };

/// A light. It sits at its node and shines along the node's -z, on nodes whose category mask shares
/// a bit with its own.
///
/// Intensity: 1000 is nominal. Omni and spot lights get weaker with the square of the distance; at
/// distance 1 they are as bright as a directional light of the same intensity. So a letter 300
/// units away needs about 1000 * 300^2 = 9e7. Ambient and directional lights do not get weaker.
class SCNLight {
public:
    SCNLightType type = SCNLightType::omni;
    image::Color color = image::Color::white(1);
    std::uint32_t categoryBitMask = 0xFFFFFFFFU;

    bool castsShadow = false;
    /// Nodes whose mask shares a bit with this one cast shadows even if their castsShadow is off. A
    /// stage uses it for nodes that it did not make.
    std::uint32_t shadowCasterMask = 0;
    SCNShadowMode shadowMode = SCNShadowMode::forward;
    /// Alpha is the share of the light that a full shadow takes away.
    image::Color shadowColor{0, 0, 0, 0.5f};
    float shadowRadius = 3; ///< softness of every shadow, in texels of the shadow map
    /// Size of the lamp: the farther a shadow falls from its caster, the softer it is. Scene units;
    /// of a directional light, at a distance of 1000.
    float lampRadius = 40;
    int shadowMapSize = 1024;

    double spotInnerAngle = 0;  ///< degrees; full brightness inside
    double spotOuterAngle = 45; ///< degrees, dark from here on
    double zNear = 1;           ///< scene units, of the shadow's view
    double zFar = 2000;

    /// Multiplies the intensity; an effect whose figures are too small for this stage is seen.
    double gain = 1;
    /// Scene units that the light is nearer to the camera than its node: that of a ball of fire
    /// comes from its surface, and lights the front of what stands in its middle.
    float lift = 0;

    /// An assignment inside a transaction with a duration animates (SCNTransaction).
    Animated<double> intensity{1000};
};

using SCNLightPtr = std::shared_ptr<SCNLight>;

} // namespace zelvo::scene
