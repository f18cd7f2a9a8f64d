// SPDX-License-Identifier: MIT
#include "stage/MediaholderNode.h"

namespace zelvo::core {

MediaholderNode::MediaholderNode()
    : xAxisNode(std::make_shared<DefaultSCNNode>())
    , yAxisNode(std::make_shared<DefaultSCNNode>())
    , zAxisNode(std::make_shared<DefaultSCNNode>())
    , contentNode(std::make_shared<DefaultSCNNode>()) {}

std::shared_ptr<MediaholderNode> MediaholderNode::make() {
    auto holder = std::make_shared<MediaholderNode>();
    holder->addChildNode(holder->xAxisNode);
    holder->xAxisNode->addChildNode(holder->yAxisNode);
    holder->yAxisNode->addChildNode(holder->zAxisNode);
    holder->zAxisNode->addChildNode(holder->contentNode);
    return holder;
}

} // namespace zelvo::core
