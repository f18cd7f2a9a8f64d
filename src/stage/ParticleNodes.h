// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNParticleSystem.h"

#include <string>
#include <vector>

namespace zelvo::core {

using ParticleList = std::vector<scene::SCNParticleSystemPtr>;

/// Loads the particle resources. One that is missing or empty ends the process.
struct ParticleNodes {
    /// The system of a ".scnp" file, or all that hang on the nodes of a scene, parents first; where
    /// those nodes stand does not matter.
    [[nodiscard]] static ParticleList load(const std::string& file);
    /// What the sweeping streak sheds.
    [[nodiscard]] static scene::SCNParticleSystemPtr sparkles();
};

} // namespace zelvo::core
