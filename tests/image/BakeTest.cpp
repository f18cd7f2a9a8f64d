// SPDX-License-Identifier: MIT
#include "Panorama.h"
#include "Recipe.h"
#include "Surface.h"
#include "platform/image/Octahedral.h"

#include <glm/geometric.hpp>
#include <glm/gtc/packing.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace zelvo::bake {
namespace {

int valueAt(const image::Image& picture, int x, int y, int component) {
    return picture.pixels
        [static_cast<std::size_t>(y * picture.width + x) * 4 + static_cast<std::size_t>(component)];
}

/// The mean difference between two columns (or rows), over all components.
double step(const image::Image& picture, int first, int second, bool columns) {
    const int length = columns ? picture.height : picture.width;
    double sum = 0;
    for (int i = 0; i < length; ++i) {
        for (int c = 0; c < 4; ++c) {
            const int a = columns ? valueAt(picture, first, i, c) : valueAt(picture, i, first, c);
            const int b = columns ? valueAt(picture, second, i, c) : valueAt(picture, i, second, c);
            sum += std::abs(a - b);
        }
    }
    return sum / length;
}

/// The largest step between neighbours. The step across the rim must not be larger.
double roughest(const image::Image& picture, bool columns) {
    double most = 0;
    const int count = columns ? picture.width : picture.height;
    for (int i = 0; i + 1 < count; ++i)
        most = std::max(most, step(picture, i, i + 1, columns));
    return most;
}

Baked small(const Recipe& recipe) {
    return recipe.make(recipe.width / 8, recipe.height / 8);
}

void expectToGoOnOverItsRims(const image::Image& picture, Repeats repeats) {
    constexpr double kSlack = 1.1; // in fine grain, all steps are about equal
    if (repeats == Repeats::never)
        return;
    EXPECT_LE(step(picture, picture.width - 1, 0, true), kSlack * roughest(picture, true));
    if (repeats == Repeats::sideways)
        return;
    EXPECT_LE(step(picture, picture.height - 1, 0, false), kSlack * roughest(picture, false));
}

TEST(Bake, EveryRecipeShowsSomethingAndTheSameEachTime) {
    std::set<std::string_view> names;
    for (const Recipe& recipe : allRecipes()) {
        SCOPED_TRACE(recipe.name);
        EXPECT_TRUE(names.insert(recipe.name).second);
        const Baked baked = small(recipe);
        const std::set<std::uint8_t> values(
            baked.picture.pixels.begin(), baked.picture.pixels.end());
        // Masks and fillers have one colour in large parts, and a particle's picture is small.
        const bool isPlain = recipe.name.starts_with("Mask") || recipe.name.starts_with("black_");
        const bool isParticle = recipe.name.starts_with("particle_");
        EXPECT_GT(values.size(), isPlain ? 1U : (isParticle ? 4U : 12U));
        expectToGoOnOverItsRims(baked.picture, recipe.repeats);
        const Baked again = small(recipe);
        EXPECT_EQ(baked.picture.pixels, again.picture.pixels);
        ASSERT_EQ(baked.light.has_value(), again.light.has_value());
        EXPECT_TRUE(!baked.light || baked.light->pixels == again.light->pixels);
    }
}

TEST(Bake, NormalsOfADomePointAwayFromItsTop) {
    const Field dome =
        Field::of(32, 32, [](const glm::vec2& p) { return 1 - 3 * glm::dot(p - 0.5f, p - 0.5f); });
    const image::Image normals = normalPicture(dome, 0.2f);
    ASSERT_EQ(normals.fineNormals.size(), normals.pixels.size() / 2);
    for (std::size_t i = 0; i < normals.fineNormals.size(); ++i)
        EXPECT_NEAR(normals.fineNormals[i] / 257.0, normals.pixels[i / 2 * 4 + i % 2], 0.51);

    struct Row {
        int x, y;
        int right, up; ///< the expected sign
    };

    for (const Row& row : {Row{26, 16, 1, 0}, {5, 16, -1, 0}, {16, 5, 0, 1}, {16, 26, 0, -1}}) {
        const int red = valueAt(normals, row.x, row.y, 0) - 128;
        const int green = valueAt(normals, row.x, row.y, 1) - 128;
        EXPECT_TRUE(row.right == 0 ? std::abs(red) < 8 : red * row.right > 20)
            << row.x << ' ' << row.y;
        EXPECT_TRUE(row.up == 0 ? std::abs(green) < 8 : green * row.up > 20)
            << row.x << ' ' << row.y;
        EXPECT_GT(valueAt(normals, row.x, row.y, 2), 128);
    }
}

TEST(Bake, BlurSpreadsAPointOverTheRimAndLosesNothing) {
    Field point(64, 32);
    point.at(0, 0) = 1;
    const Field soft = blurred(point, 0.05f);
    double sum = 0;
    for (const float value : soft.values)
        sum += value;
    EXPECT_NEAR(sum, 1, 1e-4);
    EXPECT_NEAR(soft.at(3, 0), soft.at(61, 0), 1e-6f);
    EXPECT_NEAR(soft.at(0, 3), soft.at(3, 0), 1e-6f);
    EXPECT_GT(soft.at(0, 0), soft.at(3, 0));
}

/// White plastic in the light of each environment, with the strength that the program uses.
TEST(Bake, EnvironmentsModelLettersWithoutBurningThem) {
    struct Row {
        std::string_view name;
        float strength;
        float least, most; ///< light reflected by a white face that faces the camera
    };

    constexpr auto kRows = std::to_array<Row>(
        {{"Environment001.jpg", 1.75f, 0.5f, 0.76f}, {"grayHorizont.png", 7, 0.3f, 0.6f}});
    for (const Row& row : kRows) {
        const auto recipes = allRecipes();
        const auto found = std::ranges::find(recipes, row.name, &Recipe::name);
        ASSERT_NE(found, recipes.end()) << row.name;
        const Baked baked = small(*found);
        ASSERT_TRUE(baked.light) << row.name;
        const auto probe = probeOf(baked, 1);
        const auto reflected = [&](const glm::vec3& normal) {
            return probe.diffuse(normal).g * row.strength;
        };
        const float face = reflected({0, 0, 1});
        EXPECT_GT(face, row.least) << row.name;
        EXPECT_LT(face, row.most) << row.name;
        EXPECT_GT(reflected({0, 1, 0}), 1.4f * face) << row.name;
        EXPECT_LT(reflected({0, -1, 0}), 0.6f * face) << row.name;
        EXPECT_GT(std::abs(reflected({1, 0, 0}) - reflected({-1, 0, 0})), 0.2f * face) << row.name;
    }
}

/// Metal looks like metal only if flat faces mirror bright and dark side by side.
TEST(Bake, EveryEnvironmentGivesMetalFacesBrightAndDark) {
    for (const Recipe& recipe : allRecipes()) {
        const Baked baked = small(recipe);
        if (!baked.light)
            continue;
        const auto probe = probeOf(baked, 16);
        float darkest = 1e9f;
        float brightest = 0;
        for (int i = 0; i < 35; ++i) { // what a title of two lines mirrors
            const int column = i % 7 - 3;
            const int row = i / 7 - 2;
            const glm::vec2 place = image::octahedralFromDirection(directionOf(
                180 + 8.0f * static_cast<float>(column), 6.0f * static_cast<float>(row)));
            const glm::uvec2 texel(place * 128.0f + 1.0f);
            const std::size_t at =
                texel.y * static_cast<std::size_t>(image::LightProbe::kSide) + texel.x;
            const float light = glm::unpackHalf1x16(probe.specular[1][at * 3 + 1]);
            darkest = std::min(darkest, light);
            brightest = std::max(brightest, light);
        }
        EXPECT_GT(brightest, 5 * darkest) << recipe.name;
        EXPECT_GT(brightest, 2 * probe.diffuse({0, 0, 1}).g) << recipe.name;
    }
}

} // namespace
} // namespace zelvo::bake
