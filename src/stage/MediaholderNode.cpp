// SPDX-License-Identifier: MIT
#include "stage/MediaholderNode.h"

namespace zelvo::stage {

MediaholderNode::MediaholderNode()
    : xAxisNode(std::make_shared<node::DefaultSCNNode>())
    , yAxisNode(std::make_shared<node::DefaultSCNNode>())
    , zAxisNode(std::make_shared<node::DefaultSCNNode>())
    , contentNode(std::make_shared<node::DefaultSCNNode>()) {}

std::shared_ptr<MediaholderNode> MediaholderNode::make() {
    auto holder = std::make_shared<MediaholderNode>();
    holder->addChildNode(holder->xAxisNode);
    holder->xAxisNode->addChildNode(holder->yAxisNode);
    holder->yAxisNode->addChildNode(holder->zAxisNode);
    holder->zAxisNode->addChildNode(holder->contentNode);
    return holder;
}

} // namespace zelvo::stage
