// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/ShadowViews.h"

namespace zelvo::render {

/// Whether a shadow that can be seen falls on an element of the node. True if that is not known. It
/// is known for elements on a side of their shape (MeshElement::facing): the shape itself throws
/// none there, and other casters only with what stands before that side. Looking up shadows is half
/// of what a letter costs, and most of a title is faces and chamfers on which none falls.
[[nodiscard]] bool isShaded(
    const VisibleNode& node, std::size_t element, const ShadowView& view, const Snapshot& snapshot);

} // namespace zelvo::render
