// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Effort.h"
#include "platform/render/ShaderBlocks.h"
#include "platform/render/Snapshot.h"

#include <array>
#include <cstdint>
#include <span>

namespace zelvo::render {

inline constexpr float kSunDistance = 1000; ///< scene units; see SCNLight::lampRadius
inline constexpr float kShiftTexels = 1.5f; ///< of ShadowView::receiverShift

/// A shadow-casting light seen as a camera, and the shadow map made from there.
struct ShadowView {
    std::uint32_t light = 0;     ///< index into Snapshot::lights()
    glm::mat4 viewProjection{1}; ///< depth is reversed
    glm::mat4 toTexture{1};      ///< from the world to 0 .. 1 in the map
    /// Left, top, right, bottom of all casters in the map, with a margin for the soft edge.
    glm::vec4 bounds{0, 0, 1, 1};
    float nearest = 1;       ///< depth in the map of the caster nearest to the light, reversed
    float leastRadius = 0;   ///< of the soft edge, in 0 .. 1 of the map
    float softness = 0;      ///< radius for a distance of 1 from the caster, in depths of the map
    float receiverShift = 0; ///< scene units along the normal; prevents self-shadowing
    int mapSize = 1024;      ///< texels
};

/// The shadow views of a frame.
struct ShadowViews {
    std::array<ShadowView, kMaxShadows> views{};
    std::size_t count = 0;

    [[nodiscard]] std::span<const ShadowView> all() const { return {views.data(), count}; }
};

/// From clip space to texture coordinates. Row 0 of a map is the top row.
[[nodiscard]] glm::mat4 clipToTexture();

/// Whether the node casts a shadow in this light.
[[nodiscard]] bool casts(const VisibleNode& node, const scene::SCNLight& light);

/// The views of the first kMaxShadows lights that cast shadows. A spot's view is its cone; a
/// directional light's view is fitted around all casters. An omni light's view is a pyramid around
/// all casters; if it is among them, it casts no shadow.
///
/// `shadowRadius` is in texels of a map of `shadowMapSize`. That map covers a spot's cone; for a
/// directional light it covers 1000 scene units, or all casters if they need more. The map that is
/// really drawn is coarser the softer the edge is. It has at most `maxMap` texels on each side.
[[nodiscard]] ShadowViews
shadowViews(const Snapshot& snapshot, unsigned maxMap = effortOf(Detail::full).maxShadowMap);

/// The same view, limited to a single caster.
[[nodiscard]] ShadowView boundedTo(const VisibleNode& caster, const ShadowView& view);

} // namespace zelvo::render
