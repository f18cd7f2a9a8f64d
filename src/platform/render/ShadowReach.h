// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/CameraView.h"
#include "platform/render/Lighting.h"
#include "platform/render/PixelRect.h"

namespace zelvo::render {

/// The part of a picture in which a node can be seen, by the box around it.
[[nodiscard]] PixelRect
boundsOnScreen(const VisibleNode& node, const CameraView& camera, Size picture);

/// The part of a picture in which the casters of a light can throw a shadow on a node: its box cut
/// by the light's rays past the casters. On a wide floor that is a small part of it.
///
///          *           the light
///         /.|
///        /TT|          a caster, and the rays past it
///    ===/====|======   the node: only between the rays are shadows to be looked up
[[nodiscard]] PixelRect shadowOnScreen(
    const VisibleNode& node, const ShadowView& view, const CameraView& camera, Size picture);

/// The same, closer: where the rays past all casters reach far, as those past a row that lies
/// athwart the map do, they are told apart.
[[nodiscard]] PixelRect shadowReach(
    const VisibleNode& node, const ShadowView& view, const Snapshot& snapshot, Size picture);

} // namespace zelvo::render
