// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "model/Model.h"

namespace zelvo::document {

/// The style of the stage as it stands, with every field, and with absolute paths. Applied to any
/// stage, it gives this one.
[[nodiscard]] Style styleOf(model::Model& model);

/// The style of a text node, of the image node, of the media node; as above.
[[nodiscard]] TextStyle styleOf(const content::TextNode& node, const text::FontRegistry& fonts);
[[nodiscard]] ImageStyle styleOf(const content::ImageNode& node);
[[nodiscard]] MediaStyle styleOf(const content::MediaNode& node);

/// The cues that would make the model's records again: the performance as it would be replayed.
[[nodiscard]] std::vector<Cue> cuesOf(const model::Model& model);

} // namespace zelvo::document
