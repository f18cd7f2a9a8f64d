// SPDX-License-Identifier: MIT
#include "platform/render/Shading.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelvo::render {
namespace {

glm::vec3 fresnelSchlick(const glm::vec3& f0, float LoH) {
    return f0 + (1.0f - f0) * std::pow(1.0f - LoH, 5.0f);
}

} // namespace

float distributionGGX(float alpha, float NoH) {
    const float a2 = alpha * alpha;
    const float k = (NoH * a2 - NoH) * NoH + 1.0f;
    return a2 / (std::numbers::pi_v<float> * k * k);
}

float visibilityFit(float alpha, float NoL, float NoV) {
    return 0.5f / std::max(glm::mix(2.0f * NoL * NoV, NoL + NoV, alpha), 1e-7f);
}

float singleBounceEnergy(float roughness, float NoV) {
    return 1.0f - roughness * roughness * (0.32f + 0.36f * NoV);
}

EnvironmentFit environmentFit(float roughness, float NoV) {
    const float x = 1.0f - roughness;
    const float y = 0.0425f - 0.0275f * roughness;
    const float a004 = std::min(x * x, std::exp2(-9.28f * NoV)) * x + y;
    return {-1.04f * a004 + 1.04f - 0.572f * roughness, 1.04f * a004 - 0.04f + 0.022f * roughness};
}

glm::vec3 reflectedLight(
    const SurfaceModel& surface, const glm::vec3& N, const glm::vec3& L, const glm::vec3& V) {
    const float NoL = std::clamp(glm::dot(N, L), 0.0f, 1.0f);
    const float NoV = std::clamp(glm::dot(N, V), 1e-3f, 1.0f);
    const glm::vec3 H = glm::normalize(L + V);
    const float NoH = std::clamp(glm::dot(N, H), 0.0f, 1.0f);
    const float LoH = std::clamp(glm::dot(L, H), 0.0f, 1.0f);
    const float roughness = std::clamp(surface.roughness, kMinRoughness, 1.0f);
    const float alpha = roughness * roughness;
    const glm::vec3 f0 =
        glm::mix(glm::vec3(0.08f * surface.specular), surface.baseColor, surface.metalness);
    const glm::vec3 albedo = surface.baseColor * (1.0f - surface.metalness);
    const glm::vec3 lobe = std::numbers::pi_v<float> * distributionGGX(alpha, NoH) *
                           visibilityFit(alpha, NoL, NoV) * fresnelSchlick(f0, LoH);
    return NoL * (albedo + lobe);
}

glm::vec3 toneMapped(const glm::vec3& color) {
    constexpr float kStart = 0.8f - 0.04f;
    constexpr float kDesaturation = 0.15f;
    const float least = std::min({color.r, color.g, color.b});
    const glm::vec3 c = color - (least < 0.08f ? least - 6.25f * least * least : 0.04f);
    const float peak = std::max({c.r, c.g, c.b});
    if (peak < kStart)
        return c;
    constexpr float kRoom = 1.0f - kStart;
    const float newPeak = 1.0f - kRoom * kRoom / (peak + kRoom - kStart);
    const float grey = 1.0f - 1.0f / (kDesaturation * (peak - newPeak) + 1.0f);
    return glm::mix(c * (newPeak / peak), glm::vec3(newPeak), grey);
}

} // namespace zelvo::render
