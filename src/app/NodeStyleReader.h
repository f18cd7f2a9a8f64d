// SPDX-License-Identifier: MIT
#pragma once

#include "app/ObjectReader.h"
#include "app/PerformanceReader.h"

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

[[nodiscard]] NodeStyles
readNodeStyles(const JsonValue& value, const Names& names, Problems& problems);

} // namespace zelvo::app
