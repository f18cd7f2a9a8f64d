// SPDX-License-Identifier: MIT
#pragma once

#include "content/MediaNode.h"
#include "document/Performance.h"
#include "document/StageMedia.h"
#include "platform/foundation/Result.h"
#include "platform/scene/SCNReferenceNode.h"
#include "stage/Nodes.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace zelvo::document {

/// Applies the style to the content nodes. Empty fields change nothing, and neither does what the
/// nodes have already. What could not be read leaves its node without a picture or an object, but the
/// node keeps the name of the file.
void styleContent(const Style& style, StageMedia media, stage::Nodes& stage);

/// Adds the font files of the style. Returns the fonts that are not known then.
[[nodiscard]] std::vector<foundation::Problem>
addFonts(const Style& style, text::FontRegistry& fonts);

/// Puts a 3D file on the media node, in its own materials. What is missing in it is logged. Errors:
/// those of SCNReferenceNode::load.
[[nodiscard]] foundation::Result<scene::SCNReferenceNodePtr>
showObject(const std::filesystem::path& file, content::MediaNode& node);

/// The content node with this short name. An unknown name is a programming error.
[[nodiscard]] node::NodePtr nodeNamed(std::string_view shortName, const stage::Nodes& stage);

} // namespace zelvo::document
