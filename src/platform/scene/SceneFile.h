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

constexpr double kMaxCoordinate = 1e6; ///< scene units or degrees; far more than a stage needs
constexpr Range kCoordinate{-kMaxCoordinate, kMaxCoordinate};

template <class T> struct Named {
    std::string_view name;
    T value;
};

/// Reads "#RRGGBB" or "#RRGGBBAA".
[[nodiscard]] std::optional<image::Color> parseColor(std::string_view text);

/// Reads the value of a key as a colour; anything else is reported as a problem.
[[nodiscard]] std::optional<image::Color> readColor(JsonObject& object, std::string_view key);

/// Reads a slot: "#RRGGBB", a number from 0 to 1, or {"image": name, "intensity": number, "scale":
/// [u, v]}, which needs either "image" or "color". Pictures repeat. Empty if the key is missing.
[[nodiscard]] SCNMaterialProperty
readProperty(JsonObject& object, std::string_view key, Problems& problems);

/// The first problem as an error that names the file.
[[nodiscard]] tl::unexpected<foundation::Error>
failureOf(const foundation::Problem& problem, const std::string& file);

[[nodiscard]] SCNMaterialPtr
readMaterial(const JsonValue& value, const std::string& place, Problems& problems);

} // namespace zelvo::scene
