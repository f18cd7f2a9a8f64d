// SPDX-License-Identifier: MIT
#pragma once

#include "app/Performance.h"
#include "content/MediaNode.h"
#include "platform/foundation/Result.h"
#include "platform/scene/SCNReferenceNode.h"
#include "stage/Nodes.h"

#include <filesystem>
#include <string_view>

namespace zelvo::app {

/// Applies the styles of the performance to the content nodes; empty fields change nothing. A
/// picture's or an object's path is relative to `folder`. Errors: the picture or the object cannot be
/// loaded; the message begins with the line in the performance file.
[[nodiscard]] foundation::Result<void> styleContent(
    const Performance& performance, const std::filesystem::path& folder, stage::Nodes& stage);

/// Puts a 3D file on the media node, in its own materials. What is missing in it is logged. Errors:
/// those of SCNReferenceNode::load.
[[nodiscard]] foundation::Result<scene::SCNReferenceNodePtr>
showObject(const std::filesystem::path& file, content::MediaNode& node);

/// The content node with this short name. An unknown name is a programming error.
[[nodiscard]] node::NodePtr nodeNamed(std::string_view shortName, const stage::Nodes& stage);

} // namespace zelvo::app
