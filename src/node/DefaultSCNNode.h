// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"

#include <memory>

namespace zelvo::core {

class Node;

/// A node that casts no shadow: all plain transform nodes are of this class.
class DefaultSCNNode : public scene::SCNNode {
public:
    DefaultSCNNode() { castsShadow = false; }
};

using DefaultSCNNodePtr = std::shared_ptr<DefaultSCNNode>;

/// A node that knows the content it belongs to: how a hit test finds its way back.
class ReferNode : public DefaultSCNNode {
public:
    std::weak_ptr<Node> wrapperNode;
};

using ReferNodePtr = std::shared_ptr<ReferNode>;

/// Content carries this categoryBitMask: lights of mask 4 reach it, lights of mask 2 do not.
inline constexpr std::uint32_t kContentMask = 260;
/// Touch targets carry this one.
inline constexpr std::uint32_t kTouchMask = 0x10;

} // namespace zelvo::core
