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

/// A shadow-casting light seen as a camera, and the shadow map made from there.
struct ShadowView {
    std::uint32_t light = 0;     ///< index into Snapshot::lights()
    glm::mat4 viewProjection{1}; ///< depth is reversed
    glm::mat4 toTexture{1};      ///< from the world to 0 .. 1 in the map
    /// Left, top, right, bottom of all casters in the map, with a margin for the soft edge.
    glm::vec4 bounds{0, 0, 1, 1};
    float nearest = 1;       ///< depth in the map of the caster nearest to the light, reversed
    float tapSpacing = 0;    ///< distance of the shader's samples, in 0 .. 1 of the map
    float receiverShift = 0; ///< scene units along the normal; prevents self-shadowing
    int mapSize = 1024;      ///< texels
};

/// The shadow views of a frame.
struct ShadowViews {
    std::array<ShadowView, kMaxShadows> views{};
    std::size_t count = 0;

    [[nodiscard]] std::span<const ShadowView> all() const { return {views.data(), count}; }
};

/// Whether the node casts a shadow in this light.
[[nodiscard]] bool casts(const VisibleNode& node, const scene::SCNLight& light);

/// The views of the first kMaxShadows lights that cast shadows. A spot's view is its cone; a
/// directional light's view is fitted around all casters. Omni lights cast no shadows.
///
/// `shadowRadius` is in texels of a map of `shadowMapSize`. That map covers a spot's cone; for a
/// directional light it covers 1000 scene units, or all casters if they need more. The map that is
/// really drawn is coarser the softer the edge is, so that four samples are always enough.
[[nodiscard]] ShadowViews shadowViews(const Snapshot& snapshot);

/// The same view, limited to a single caster.
[[nodiscard]] ShadowView boundedTo(const VisibleNode& caster, const ShadowView& view);

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
    LightBlock block;
    /// For each map that the shader reads, the index of its view.
    std::array<std::uint32_t, kMaxShadows> shadowViews{};
};

/// Selects and sorts the lights for the nodes of a mask. Only the first kMaxLights are used.
[[nodiscard]] LightSet makeLightSet(
    std::span<const PlacedLight> lights, std::span<const ShadowView> shadows, std::uint32_t mask);

} // namespace zelvo::render
