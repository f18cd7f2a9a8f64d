// SPDX-License-Identifier: MIT
#pragma once

#include "document/PerformanceReader.h"
#include "platform/foundation/JsonObject.h"

#include <map>
#include <optional>
#include <string>

namespace zelvo::document {

/// The member "nodes" of a performance.
struct NodeStyles {
    std::map<std::string, TextStyle> texts; ///< by short name
    std::optional<ImageStyle> picture;
    std::optional<MediaStyle> object;
};

[[nodiscard]] NodeStyles readNodeStyles(
    const foundation::JsonValue& value, const Names& names, foundation::Problems& problems);

/// Reads a colour like "#194CE6" and reports any other value.
[[nodiscard]] std::optional<image::Color>
readColor(foundation::JsonObject& object, std::string_view key);

} // namespace zelvo::document
