// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

namespace zelvo::core {

/// The group of all content: three levels for rotation, then the content nodes.
class MediaholderNode final : public scene::SCNNode {
public:
    /// Links the levels below the holder.
    [[nodiscard]] static std::shared_ptr<MediaholderNode> make();
    MediaholderNode();

    const DefaultSCNNodePtr xAxisNode;
    const DefaultSCNNodePtr yAxisNode;
    const DefaultSCNNodePtr zAxisNode;
    const DefaultSCNNodePtr contentNode;
};

} // namespace zelvo::core
