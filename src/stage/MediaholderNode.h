// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

namespace zelvo::stage {

/// The group of all content: three levels for rotation, then the content nodes.
class MediaholderNode final : public scene::SCNNode {
public:
    /// Links the levels below the holder.
    [[nodiscard]] static std::shared_ptr<MediaholderNode> make();
    MediaholderNode();

    const node::DefaultSCNNodePtr xAxisNode;
    const node::DefaultSCNNodePtr yAxisNode;
    const node::DefaultSCNNodePtr zAxisNode;
    const node::DefaultSCNNodePtr contentNode;
};

} // namespace zelvo::stage
