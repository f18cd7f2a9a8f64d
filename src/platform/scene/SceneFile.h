// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/JsonObject.h"
#include "platform/foundation/Result.h"
#include "platform/scene/SCNMaterial.h"

namespace zelvo::scene {

// The parts of a scene file (SCNScene::fromJSON).

using foundation::JsonObject;
using foundation::JsonValue;
using foundation::Problems;
using foundation::Range;

constexpr double kMaxCoordinate = 1e6; ///< scene units, degrees: far above what a stage needs
constexpr Range kCoordinate{-kMaxCoordinate, kMaxCoordinate};

template <class T> struct Named {
    std::string_view name;
    T value;
};

/// "#RRGGBB" or "#RRGGBBAA"; nothing for anything else.
[[nodiscard]] std::optional<image::Color> parseColor(std::string_view text);

/// The same of a key; anything else is a problem.
[[nodiscard]] std::optional<image::Color> readColor(JsonObject& object, std::string_view key);

/// A slot: "#RRGGBB", a number of 0 to 1, or {"image": name, "intensity": number, "scale": [u, v]}
/// of which either "image" or "color" must be there. A picture repeats. Empty for an absent key.
[[nodiscard]] SCNMaterialProperty
readProperty(JsonObject& object, std::string_view key, Problems& problems);

/// The first problem as an error of the file.
[[nodiscard]] tl::unexpected<foundation::Error>
failureOf(const foundation::Problem& problem, const std::string& file);

[[nodiscard]] SCNMaterialPtr
readMaterial(const JsonValue& value, const std::string& place, Problems& problems);

} // namespace zelvo::scene
