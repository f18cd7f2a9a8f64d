// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/CameraView.h"
#include "platform/render/Lighting.h"
#include "platform/render/PixelRect.h"

namespace zelvo::render {

/// The part of a picture that shows the node's bounding box.
[[nodiscard]] PixelRect
boundsOnScreen(const VisibleNode& node, const CameraView& camera, Size picture);

/// The part of a picture that shows a box in the world.
[[nodiscard]] PixelRect
boundsOnScreen(const geometry::Box& box, const CameraView& camera, Size picture);

/// The box around a node in the world.
[[nodiscard]] geometry::Box worldBox(const VisibleNode& node);

/// The part of a picture in which casters of a light can throw a shadow on the node: the node's box
/// cut by the light's rays around the casters. On a wide floor that is a small part. Of a node with
/// few triangles, these are cut instead of the box.
///
///          *           the light
///         /.|
///        /TT|          a caster, and the rays around it
///    ===/====|======   the node: shadows can fall only between the rays
[[nodiscard]] PixelRect shadowOnScreen(
    const VisibleNode& node, const ShadowView& view, const CameraView& camera, Size picture);

/// As shadowOnScreen, but with a smaller result: if the part is large, each caster is looked at by
/// itself. For example, casters in a diagonal row have a large common box and short shadows.
[[nodiscard]] PixelRect shadowReach(
    const VisibleNode& node, const ShadowView& view, const Snapshot& snapshot, Size picture);

} // namespace zelvo::render
