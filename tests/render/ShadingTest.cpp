// SPDX-License-Identifier: MIT
#include "platform/render/Shading.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace zelvo::render {
namespace {

constexpr double kPi = std::numbers::pi;
const glm::vec3 kUp{0, 0, 1};

/// Sums f over the hemisphere around +z, weighed by solid angle.
template <class Function> double overHemisphere(Function f) {
    constexpr int kRings = 400;
    constexpr int kSectors = 200;
    double sum = 0;
    for (int ring = 0; ring < kRings; ++ring) {
        const double theta = (ring + 0.5) * kPi / 2 / kRings;
        for (int sector = 0; sector < kSectors; ++sector) {
            const double phi = (sector + 0.5) * 2 * kPi / kSectors;
            const glm::vec3 direction(
                std::sin(theta) * std::cos(phi), std::sin(theta) * std::sin(phi), std::cos(theta));
            sum += f(direction) * std::sin(theta);
        }
    }
    return sum * (kPi / 2 / kRings) * (2 * kPi / kSectors);
}

glm::vec3 viewAt(float NoV) {
    return {std::sqrt(1 - NoV * NoV), 0, NoV};
}

TEST(Shading, MicrofacetsCoverTheirSurfaceOnce) {
    for (const float roughness : {0.3f, 0.6f, 1.0f}) {
        const double area = overHemisphere(
            [&](const glm::vec3& h) { return distributionGGX(roughness * roughness, h.z) * h.z; });
        EXPECT_NEAR(area, 1, 0.01) << "roughness " << roughness;
    }
}

// A white mirror in an even white room: what is missing to 1 is light that was reflected twice and
// more; both fits must know how much that is.
TEST(Shading, AWhiteMirrorInAWhiteRoomReflectsNearlyEverything) {
    for (const float roughness : {0.2f, 0.4f, 0.6f, 0.8f, 1.0f}) {
        for (const float NoV : {0.4f, 0.7f, 0.95f}) {
            const SurfaceModel mirror{glm::vec3(1), 1, roughness};
            const double whole = overHemisphere([&](const glm::vec3& l) {
                return reflectedLight(mirror, kUp, l, viewAt(NoV)).g / kPi;
            });
            EXPECT_LT(whole, 1.01) << "roughness " << roughness << ", NoV " << NoV;
            EXPECT_NEAR(singleBounceEnergy(roughness, NoV), whole, 0.17);
            const EnvironmentFit fit = environmentFit(roughness, NoV);
            EXPECT_NEAR(fit.scale + fit.bias, whole, 0.17);
        }
    }
}

TEST(Shading, LightAndEyeMayChangePlaces) {
    const SurfaceModel surface{glm::vec3(0.8f, 0.4f, 0.1f), 0.5f, 0.4f};
    const glm::vec3 a = glm::normalize(glm::vec3(0.3f, 0.2f, 1));
    const glm::vec3 b = glm::normalize(glm::vec3(-0.7f, 0.1f, 0.6f));
    const glm::vec3 there = reflectedLight(surface, kUp, a, b) / a.z;
    const glm::vec3 back = reflectedLight(surface, kUp, b, a) / b.z;
    EXPECT_LT(glm::distance(there, back), 1e-4f);
}

TEST(ToneMap, KeepsOrderAndStaysBelowWhite) {
    float last = -1;
    for (int step = 0; step < 6000; ++step) {
        const float x = 0.01f * static_cast<float>(step);
        const glm::vec3 mapped = toneMapped(glm::vec3(x));
        EXPECT_GT(mapped.g, last) << "at " << x;
        EXPECT_LE(mapped.g, 1);
        last = mapped.g;
    }
}

TEST(ToneMap, KeepsOrdinaryColoursAndFadesBrightOnesToWhite) {
    EXPECT_NEAR(toneMapped(glm::vec3(0.5f)).g, 0.46f, 1e-4f);
    const glm::vec3 brand = toneMapped({0.6f, 0.1f, 0.1f});
    EXPECT_NEAR(brand.r - brand.g, 0.5f, 1e-4f);
    const glm::vec3 glare = toneMapped({60, 6, 6});
    EXPECT_GT(glare.g, 0.8f) << "a red light that blinds looks white";
    EXPECT_GT(glare.r, glare.g);
}

} // namespace
} // namespace zelvo::render
