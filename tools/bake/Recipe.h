// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"
#include "platform/image/Image.h"
#include "platform/image/LightProbe.h"

#include <optional>
#include <span>
#include <string_view>

namespace zelvo::bake {

/// What a recipe makes: a picture and, of an environment, the light it stands for.
struct Baked {
    image::Image picture;
    std::optional<image::Radiance> light;
};

/// Whether a picture goes on at its rims as it does within.
enum class Repeats {
    bothWays, ///< a tile for surfaces
    sideways, ///< a panorama
    never,    ///< a drawing
};

/// How one resource is made. To add a resource, write a function and add its row to the table of
/// its family.
struct Recipe {
    std::string_view name; ///< of the file; a name in .jpg is stored as JPEG, all else as PNG
    Repeats repeats;
    int width;
    int height;
    Baked (*make)(int width, int height); ///< the same picture at any size
};

[[nodiscard]] std::span<const Recipe> metalRecipes();
[[nodiscard]] std::span<const Recipe> stoneRecipes();
[[nodiscard]] std::span<const Recipe> circuitRecipes();
[[nodiscard]] std::span<const Recipe> energyRecipes();
[[nodiscard]] std::span<const Recipe> cityRecipes();
[[nodiscard]] std::span<const Recipe> studioRecipes();
[[nodiscard]] std::span<const Recipe> environmentRecipes();
[[nodiscard]] std::span<const Recipe> placeholderRecipes();
[[nodiscard]] std::span<const Recipe> maskRecipes();
[[nodiscard]] std::span<const Recipe> particleRecipes();

/// Every recipe, family by family.
[[nodiscard]] std::vector<Recipe> allRecipes();

/// The files that a recipe's result is stored in, below the folder: the picture, and the light
/// probe of an environment.
[[nodiscard]] foundation::Result<void>
store(const Baked& baked, std::string_view name, const std::filesystem::path& folder);

} // namespace zelvo::bake
