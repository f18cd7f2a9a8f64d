// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Snapshot.h"

#include <span>

namespace zelvo::render {

/// The light that smoke and clouds take up: lamps, surroundings and a background of one colour.
/// They scatter it in all directions, so it has no direction.
class ParticleLight {
public:
    /// No light: particles are drawn in their own colours.
    ParticleLight() = default;
    /// The lights must outlive it.
    ParticleLight(const scene::SCNScene& scene, std::span<const PlacedLight> lights);

    /// A factor for encoded colours, 0 to 1. The brightest light only sets the hue; dim light also
    /// darkens.
    [[nodiscard]] glm::vec3 at(const glm::vec3& place) const;

private:
    std::span<const PlacedLight> lamps;
    glm::vec3 everywhere{1};
};

} // namespace zelvo::render
