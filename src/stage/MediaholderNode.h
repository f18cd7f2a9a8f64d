// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

namespace zelvo::core {

/// The group that carries the content: three levels to turn it by, then the content nodes.
class MediaholderNode final : public scene::SCNNode {
public:
    /// Links the levels under the holder.
    [[nodiscard]] static std::shared_ptr<MediaholderNode> make();
    MediaholderNode();

    const DefaultSCNNodePtr xAxisNode;
    const DefaultSCNNodePtr yAxisNode;
    const DefaultSCNNodePtr zAxisNode;
    const DefaultSCNNodePtr contentNode;
};

} // namespace zelvo::core
