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

image::LightProbe probeOf(const Baked& baked, int samplesPerTexel) {
    image::LightProbe probe = image::LightProbe::filtered(*baked.light, samplesPerTexel);
    for (glm::vec3& coefficient : probe.irradiance)
        coefficient *= baked.matteShare;
    return probe;
}

foundation::Result<void>
store(const Baked& baked, std::string_view name, const std::filesystem::path& folder) {
    const auto file = folder / name;
    auto saved =
        name.ends_with(".jpg") ? saveJPEG(baked.picture, file) : savePNG(baked.picture, file);
    if (saved && !baked.picture.fineNormals.empty())
        saved = image::saveFineNormals(baked.picture, file.string() + ".normals");
    if (!saved || !baked.light)
        return saved;
    return probeOf(baked, kProbeSamples).save(file.string() + ".probe");
}

} // namespace zelvo::bake
