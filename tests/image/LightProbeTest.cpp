// SPDX-License-Identifier: MIT
#include "platform/image/LightProbe.h"

#include "image/ImageFiles.h"
#include "platform/image/Octahedral.h"

#include <glm/gtc/packing.hpp>
#include <gtest/gtest.h>

#include <numbers>
#include <random>

namespace zelvo::image {
namespace {

constexpr int kSamples = 32;

/// A panorama with `light` in the directions for which `inside` is true, and black elsewhere.
template <class Inside> Radiance painted(const glm::vec3& light, Inside inside) {
    Radiance radiance{128, 64, {}};
    for (int row = 0; row < radiance.height; ++row) {
        for (int column = 0; column < radiance.width; ++column) {
            const float azimuth =
                ((static_cast<float>(column) + 0.5f) / 128 - 0.5f) * 2 * std::numbers::pi_v<float>;
            const float polar = (static_cast<float>(row) + 0.5f) / 64 * std::numbers::pi_v<float>;
            const glm::vec3 direction{
                std::sin(polar) * std::sin(azimuth),
                std::cos(polar),
                -std::sin(polar) * std::cos(azimuth)};
            radiance.pixels.push_back(inside(direction) ? light : glm::vec3(0));
        }
    }
    return radiance;
}

glm::vec3 texel(const LightProbe& probe, int level, int column, int row) {
    const auto& values = probe.specular.at(static_cast<std::size_t>(level));
    const auto at = static_cast<std::size_t>(row * LightProbe::kSide + column) * 3;
    return {
        glm::unpackHalf1x16(values[at]),
        glm::unpackHalf1x16(values[at + 1]),
        glm::unpackHalf1x16(values[at + 2])};
}

glm::vec3 specular(const LightProbe& probe, int level, const glm::vec3& direction) {
    const glm::vec2 place = octahedralFromDirection(direction) * 128.0f + 1.0f;
    return texel(probe, level, static_cast<int>(place.x), static_cast<int>(place.y));
}

std::vector<glm::vec3> directions() {
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same directions in each run
    std::uniform_real_distribution<float> side(-1, 1);
    std::vector<glm::vec3> result;
    for (const float sign : {1.0f, -1.0f})
        result.insert(result.end(), {{sign, 0, 0}, {0, sign, 0}, {0, 0, sign}});
    while (result.size() < 200) {
        const glm::vec3 d{side(random), side(random), side(random)};
        if (glm::length(d) > 0.1f)
            result.push_back(glm::normalize(d));
    }
    return result;
}

TEST(Octahedral, EveryDirectionComesBack) {
    for (const glm::vec3& d : directions()) {
        const glm::vec3 back = directionFromOctahedral(octahedralFromDirection(d));
        EXPECT_NEAR(glm::distance(back, d), 0, 1e-5f) << d.x << ' ' << d.y << ' ' << d.z;
    }
}

TEST(LightProbe, UniformLightStaysAsItIs) {
    const glm::vec3 light{0.5f, 2, 30};
    const LightProbe probe =
        LightProbe::filtered(painted(light, [](auto&&) { return true; }), kSamples);
    for (const glm::vec3& d : directions()) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(probe.diffuse(d)[i] / light[i], 1, 1e-3f);
            for (int level = 0; level < LightProbe::kLevels; ++level) {
                EXPECT_NEAR(specular(probe, level, d)[i] / light[i], 1, 1e-3f);
            }
        }
    }
}

TEST(LightProbe, IrradianceOfACapFollowsTheCosine) {
    // A cap with half angle a and radiance L gives L sin(a)^2 cos(t) to a surface at angle t to its
    // axis, if all of the cap is above the surface's horizon. Nine coefficients have an error of a
    // few hundredths of the peak.
    constexpr float kHalfAngle = 0.5f;
    const float peak = 4 * std::sin(kHalfAngle) * std::sin(kHalfAngle);
    for (const glm::vec3& axis : std::initializer_list<glm::vec3>{
             {0, 1, 0}, {1, 0, 0}, {0, 0, -1}, {0.6f, 0, 0.8f}, {0, -0.6f, 0.8f}}) {
        const LightProbe probe = LightProbe::filtered(
            painted(
                glm::vec3(4),
                [&](const glm::vec3& d) { return glm::dot(d, axis) > std::cos(kHalfAngle); }),
            1);
        for (const glm::vec3& normal : directions()) {
            const float cosine = glm::dot(normal, axis);
            const float reflected = probe.diffuse(normal).g;
            if (std::abs(cosine) > 0.5f) {
                EXPECT_NEAR(reflected / peak, std::max(cosine, 0.0f), 0.09f);
            }
        }
    }
}

TEST(LightProbe, RoughnessSpreadsTheLightAndKeepsItsAmount) {
    const glm::vec3 axis{1, 0, 0};
    const LightProbe probe = LightProbe::filtered(
        painted(glm::vec3(10), [&](const glm::vec3& d) { return glm::dot(d, axis) > 0.9f; }),
        kSamples);
    EXPECT_NEAR(specular(probe, 0, axis).r, 10, 0.01f);
    EXPECT_EQ(specular(probe, 0, {0.7f, 0, 0.7f}).r, 0);
    float before = 10.01f;
    for (int level = 1; level < LightProbe::kLevels; ++level) {
        EXPECT_LE(specular(probe, level, axis).r, before + 0.02f) << level;
        before = specular(probe, level, axis).r;
    }
    EXPECT_LT(before, 4);
    EXPECT_GT(specular(probe, 6, {0.7f, 0, 0.7f}).r, 0.5f);
    EXPECT_LT(specular(probe, 6, -axis).r, 0.1f);
}

TEST(LightProbe, BordersRepeatWhatLiesOverTheFold) {
    const LightProbe probe = LightProbe::filtered(
        painted(glm::vec3(1), [](const glm::vec3& d) { return d.x > d.z * 0.3f + d.y * 0.2f; }), 4);
    constexpr int kLast = LightProbe::kSide - 1;
    for (int level = 0; level < LightProbe::kLevels; ++level) {
        for (int i = 1; i < kLast; ++i) {
            EXPECT_EQ(texel(probe, level, i, 0), texel(probe, level, kLast - i, 1));
            EXPECT_EQ(texel(probe, level, i, kLast), texel(probe, level, kLast - i, kLast - 1));
            EXPECT_EQ(texel(probe, level, 0, i), texel(probe, level, 1, kLast - i));
            EXPECT_EQ(texel(probe, level, kLast, i), texel(probe, level, kLast - 1, kLast - i));
        }
    }
}

TEST(LightProbe, FilesComeBackAndDamagedOnesAreRefused) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "a.probe";
    const LightProbe probe = LightProbe::filtered(
        painted(glm::vec3(3, 2, 1), [](const glm::vec3& d) { return d.y > 0; }), 2);
    ASSERT_TRUE(probe.save(file));
    const auto back = LightProbe::load(file);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->irradiance, probe.irradiance);
    EXPECT_EQ(back->specular, probe.specular);

    EXPECT_EQ(LightProbe::load(folder.path() / "none").error().cause, foundation::Cause::notFound);
    for (const std::uintmax_t length : {0U, 3U, 16U, 5000U}) {
        std::filesystem::resize_file(file, length);
        EXPECT_EQ(LightProbe::load(file).error().cause, foundation::Cause::malformed) << length;
    }
}

} // namespace
} // namespace zelvo::image
