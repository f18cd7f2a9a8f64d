// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"
#include "platform/foundation/JsonObject.h"

#include <optional>
#include <string>
#include <vector>

namespace zelvo::document {

/// Reads the member "cues" of a performance. The result is sorted by time.
[[nodiscard]] std::vector<Cue>
readCues(foundation::JsonObject& root, const Names& names, foundation::Problems& problems);

/// Reads the title of a speed. The result is spelt as in `names`.
[[nodiscard]] std::optional<std::string> readSpeed(
    foundation::JsonObject& object,
    const char* key,
    const Names& names,
    foundation::Problems& problems);

/// The short names of the nodes that a cue can name.
[[nodiscard]] const std::vector<std::string>& nodeNames();

} // namespace zelvo::document
