// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/ShaderBlocks.h"
#include "platform/render/ShadowViews.h"
#include "platform/render/Snapshot.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zelvo::render {

/// How many lights of each kind a shader handles.
struct LightCounts {
    int directional = 0;
    int directionalShadows = 0;
    int omni = 0;
    int spot = 0;
    int spotShadows = 0;

    friend bool operator==(const LightCounts&, const LightCounts&) = default;

    [[nodiscard]] std::uint32_t key() const; ///< 18 bits
    [[nodiscard]] std::vector<std::string> defines() const;
};

/// The lights for all nodes with one category mask.
struct LightSet {
    std::uint32_t mask = 0;
    LightCounts counts;
    bool hasLamps = false; ///< a light of an effect (with a gain) does not count
    LightBlock block;
    /// For each map that the shader reads, the index of its view.
    std::array<std::uint32_t, kMaxShadows> shadowViews{};
};

/// Linear colour times brightness; 1 is nominal.
[[nodiscard]] glm::vec3 radiance(const scene::SCNLight& light);

/// One bit for each of the first 64 lights.
using LightBits = std::uint64_t;

/// The lights that need not be computed on a flat element, as they stand behind it: those at the
/// back of the scene (below z = 0, where titles stand), if all of them do. Most lamps of a stage are
/// among them, and faces are the largest part of a title. All or none, as each choice of lights is a
/// shader of its own.
[[nodiscard]] LightBits
rearLightsBehind(std::span<const PlacedLight> lights, const VisibleNode& node, std::size_t element);

/// Whether a flat element turns its back to a place.
[[nodiscard]] bool
isTurnedFrom(const glm::vec3& place, const VisibleNode& node, std::size_t element);

/// Selects and sorts the lights for the nodes of a mask. Only the first kMaxLights are used. Those
/// in `unshaded` get no shadow.
[[nodiscard]] LightSet makeLightSet(
    std::span<const PlacedLight> lights,
    std::span<const ShadowView> shadows,
    std::uint32_t mask,
    LightBits leftOut = 0,
    LightBits unshaded = 0);

} // namespace zelvo::render
