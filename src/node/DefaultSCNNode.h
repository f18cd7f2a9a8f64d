// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/SCNNode.h"

#include <memory>

namespace zelvo::node {

class Node;

/// A node without a shadow. All plain transform nodes have this class.
class DefaultSCNNode : public scene::SCNNode {
public:
    DefaultSCNNode() { castsShadow = false; }
};

using DefaultSCNNodePtr = std::shared_ptr<DefaultSCNNode>;

/// A node that knows which content it belongs to. A hit test uses it to find the content.
class ReferNode : public DefaultSCNNode {
public:
    std::weak_ptr<Node> wrapperNode;
};

using ReferNodePtr = std::shared_ptr<ReferNode>;

/// The categoryBitMask of content: lights with mask 4 affect it, lights with mask 2 do not.
inline constexpr std::uint32_t kContentMask = 260;
/// The categoryBitMask of all that an environment shows around the content.
inline constexpr std::uint32_t kStageMask = 2;
/// The categoryBitMask of lamps that shine on the content only.
inline constexpr std::uint32_t kContentLightMask = 4;
/// The categoryBitMask of touch targets.
inline constexpr std::uint32_t kTouchMask = 0x10;

} // namespace zelvo::node
