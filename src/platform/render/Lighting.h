// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/ShaderBlocks.h"
#include "platform/render/Snapshot.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zelvo::render {

/// How a shadow-casting light looks at the scene.
struct ShadowView {
    std::uint32_t light = 0;     ///< index into Snapshot::lights()
    glm::mat4 viewProjection{1}; ///< reversed depth, as everywhere
    glm::mat4 toTexture{1};      ///< world to 0 .. 1 in the map
    glm::vec4 bounds{
        0, 0, 1, 1}; ///< left, top, right, bottom of all casters in the map, with room for the taps
    float nearest = 1;       ///< depth in the map of the caster next to the light, reversed
    float tapSpacing = 0;    ///< in the map's 0 .. 1
    float receiverShift = 0; ///< scene units along the normal, against self-shadowing
    int mapSize = 1024;      ///< texels
};

/// Those of a frame.
struct ShadowViews {
    std::array<ShadowView, kMaxShadows> views{};
    std::size_t count = 0;

    [[nodiscard]] std::span<const ShadowView> all() const { return {views.data(), count}; }
};

/// Whether the node stands in the light's way.
[[nodiscard]] bool casts(const VisibleNode& node, const scene::SCNLight& light);

/// Views of the first kMaxShadows lights that cast shadows: spots by their cone, directional ones
/// fitted around all that casts. Omni lights cast none.
///
/// shadowRadius counts texels of a map of shadowMapSize, which covers a spot's cone, and of a
/// directional light 1000 scene units or, if that is more, all casters. The map that is drawn is as
/// much coarser as the edge is softer, so that four taps always do.
[[nodiscard]] ShadowViews shadowViews(const Snapshot& snapshot);

/// The same view, its bounds and its nearest depth those of one caster alone.
[[nodiscard]] ShadowView boundedTo(const VisibleNode& caster, const ShadowView& view);

/// How many lights of each kind a shader computes.
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

/// The lights that shine on the nodes of one category mask.
struct LightSet {
    std::uint32_t mask = 0;
    LightCounts counts;
    LightBlock block;
    std::array<std::uint32_t, kMaxShadows>
        shadowViews{}; ///< index of the view of each map that the shader reads
};

/// Sorts and weighs the lights for the nodes of a mask. Of more than kMaxLights the first stay.
[[nodiscard]] LightSet makeLightSet(
    std::span<const PlacedLight> lights, std::span<const ShadowView> shadows, std::uint32_t mask);

} // namespace zelvo::render
