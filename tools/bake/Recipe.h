// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"
#include "platform/image/Image.h"
#include "platform/image/LightProbe.h"

#include <optional>
#include <span>
#include <string_view>

namespace zelvo::bake {

/// The result of a recipe: a picture and, for an environment, its light.
struct Baked {
    image::Image picture;
    std::optional<image::Radiance> light;
    /// How much of the light falls on matte surfaces. Lamps that are bright enough to be mirrored by
    /// metal would burn white letters.
    float matteShare = 1;
};

/// In which directions a picture repeats without a seam.
enum class Repeats {
    bothWays, ///< a tile for surfaces
    sideways, ///< a panorama
    never,    ///< a drawing
};

/// How one resource is made. To add a resource, write a function and add a row to its family's
/// table.
struct Recipe {
    std::string_view name; ///< file name; .jpg is stored as JPEG, all else as PNG
    Repeats repeats;
    int width;
    int height;
    Baked (*make)(int width, int height); ///< must give the same picture at any size
};

[[nodiscard]] std::span<const Recipe> metalRecipes();
[[nodiscard]] std::span<const Recipe> stoneRecipes();
[[nodiscard]] std::span<const Recipe> circuitRecipes();
[[nodiscard]] std::span<const Recipe> energyRecipes();
[[nodiscard]] std::span<const Recipe> cityRecipes();
[[nodiscard]] std::span<const Recipe> studioRecipes();
[[nodiscard]] std::span<const Recipe> stageRecipes();
[[nodiscard]] std::span<const Recipe> environmentRecipes();
[[nodiscard]] std::span<const Recipe> placeholderRecipes();
[[nodiscard]] std::span<const Recipe> maskRecipes();
[[nodiscard]] std::span<const Recipe> particleRecipes();

/// All recipes, grouped by family.
[[nodiscard]] std::vector<Recipe> allRecipes();

/// The light of an environment, filtered.
[[nodiscard]] image::LightProbe probeOf(const Baked& baked, int samplesPerTexel);

/// Writes the files of a recipe's result: the picture, the fine normals of a normal map, and the
/// light probe of an environment.
[[nodiscard]] foundation::Result<void>
store(const Baked& baked, std::string_view name, const std::filesystem::path& folder);

} // namespace zelvo::bake
