// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "model/Model.h"

#include <optional>
#include <vector>

namespace zelvo::document {

/// The style of the stage as it stands, with every field, and with absolute paths. Applied to any
/// stage, it gives this one.
[[nodiscard]] Style styleOf(model::Model& model);

/// The style of a text node, of the image node, of the media node; as above.
[[nodiscard]] TextStyle styleOf(const content::TextNode& node, const text::FontRegistry& fonts);
[[nodiscard]] ImageStyle styleOf(const content::ImageNode& node);
[[nodiscard]] MediaStyle styleOf(const content::MediaNode& node);

/// The records of one act of the hand, in the order of recording. They share an identifier.
using ActRecords = std::vector<actions::XACPtr>;

/// In the order in which the acts were recorded.
[[nodiscard]] std::vector<ActRecords> actsIn(const std::vector<actions::XACPtr>& records);

/// The cue that would make the records again. Nothing if no hand made them, or if only the release
/// of a button is left.
[[nodiscard]] std::optional<Cue> cueOf(const ActRecords& act, const model::Model& model);

/// The cues that would make the model's records again: the performance as it would be replayed.
[[nodiscard]] std::vector<Cue> cuesOf(const model::Model& model);

} // namespace zelvo::document
