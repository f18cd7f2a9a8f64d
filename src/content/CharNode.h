// SPDX-License-Identifier: MIT
#pragma once

#include "node/DefaultSCNNode.h"

#include <optional>

namespace zelvo::content {

/// One letter of a text. Letters are made anew by each rebuild: nothing may hold on to one across a
/// change of style.
class CharNode final : public core::ReferNode {
public:
    CharNode() { categoryBitMask = core::kContentMask; }

    /// Where the rebuild placed the letter; letter animations return to it.
    std::optional<glm::vec3> originalPosition;
};

using CharNodePtr = std::shared_ptr<CharNode>;

} // namespace zelvo::content
