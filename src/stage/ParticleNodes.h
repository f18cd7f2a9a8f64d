// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNParticleSystem.h"

#include <string>
#include <vector>

namespace zelvo::stage {

using ParticleList = std::vector<scene::SCNParticleSystemPtr>;

/// Loads the particle resources. A missing or empty one ends the process.
struct ParticleNodes {
    /// The system of a ".scnp" file, or all systems in a scene file, parents first; the places of
    /// its nodes do not matter.
    [[nodiscard]] static ParticleList load(const std::string& file);
    /// The sparkles of the sweeping streak.
    [[nodiscard]] static scene::SCNParticleSystemPtr sparkles();
};

} // namespace zelvo::stage
