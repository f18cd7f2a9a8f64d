// SPDX-License-Identifier: MIT
#pragma once

#include "app/PerformanceReader.h"
#include "platform/foundation/JsonObject.h"

#include <map>
#include <optional>
#include <string>

namespace zelvo::app {

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

} // namespace zelvo::app
