// SPDX-License-Identifier: MIT
#include "Recipe.h"

#include <array>

namespace zelvo::bake {

namespace {

constexpr int kProbeSamples = 192;

} // namespace

std::vector<Recipe> allRecipes() {
    std::vector<Recipe> all;
    for (const auto family :
         {studioRecipes(),
          metalRecipes(),
          stoneRecipes(),
          circuitRecipes(),
          energyRecipes(),
          cityRecipes(),
          environmentRecipes(),
         stageRecipes(),
          placeholderRecipes(),
          maskRecipes(),
          particleRecipes()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

foundation::Result<void>
store(const Baked& baked, std::string_view name, const std::filesystem::path& folder) {
    const auto file = folder / name;
    auto saved =
        name.ends_with(".jpg") ? saveJPEG(baked.picture, file) : savePNG(baked.picture, file);
    if (!saved || !baked.light)
        return saved;
    return image::LightProbe::filtered(*baked.light, kProbeSamples).save(file.string() + ".probe");
}

} // namespace zelvo::bake
