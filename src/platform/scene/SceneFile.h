// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/JsonReader.h"
#include "platform/scene/SCNMaterial.h"

namespace zelvo::scene {

// The parts of a scene file (SCNScene::fromJSON).

template <class T> struct Named {
    std::string_view name;
    T value;
};

/// "#RRGGBB" or "#RRGGBBAA"; nothing for anything else.
[[nodiscard]] std::optional<image::Color> parseColor(std::string_view text);

/// The same of a key; faults anything else.
[[nodiscard]] std::optional<image::Color> readColor(JsonObject& object, std::string_view key);

/// A slot: "#RRGGBB", a number of 0 to 1, or {"image": name, "intensity": number, "scale": [u, v]}
/// of which either "image" or "color" must be there. A picture repeats. Empty for an absent key.
[[nodiscard]] SCNMaterialProperty
readProperty(JsonObject& object, std::string_view key, JsonFault& fault);

[[nodiscard]] SCNMaterialPtr
readMaterial(const rapidjson::Value& value, const std::string& path, JsonFault& fault);

} // namespace zelvo::scene
