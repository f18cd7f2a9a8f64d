// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

#include <optional>

namespace zelvo::content {

/// One letter of a text. Letters are replaced on each change of style, so do not keep pointers to
/// them.
class CharNode final : public node::ReferNode {
public:
    CharNode() { categoryBitMask = node::kContentMask; }

    /// The place of the letter in its text. Letter animations return to it.
    std::optional<glm::vec3> originalPosition;
};

using CharNodePtr = std::shared_ptr<CharNode>;

} // namespace zelvo::content
