// SPDX-License-Identifier: MIT
#pragma once

#include <glm/vec3.hpp>

namespace zelvo::render {

// The arithmetic of the shaders in C++, for tests and for what is computed once a frame instead of
// once a pixel. Sources stand beside the shaders' own copies (brdf.glsl, color.glsl).

/// A physically based surface in linear colour.
struct SurfaceModel {
    glm::vec3 baseColor{1};
    float metalness = 0;    ///< 0 to 1
    float roughness = 0.5f; ///< perceptual, kMinRoughness to 1
    float specular = 0.5f;  ///< 0.5: dielectrics reflect 4 % at normal incidence
};

/// Below it highlights would be smaller than a pixel of the drawn picture.
inline constexpr float kMinRoughness = 0.06f;

/// Light of irradiance 1 from L as it goes to V; all three unit vectors, the normal is N. Includes
/// the cosine; without what is gained by reflecting more than once.
[[nodiscard]] glm::vec3 reflectedLight(
    const SurfaceModel& surface, const glm::vec3& N, const glm::vec3& L, const glm::vec3& V);

/// The GGX distribution of microfacet normals (integrates to 1 over the projected hemisphere).
[[nodiscard]] float distributionGGX(float alpha, float NoH);
/// The fit of the height-correlated Smith visibility: masking and shadowing over 4 NoL NoV.
[[nodiscard]] float visibilityFit(float alpha, float NoL, float NoV);

/// How much a white mirror reflects at the first bounce, of light from everywhere.
[[nodiscard]] float singleBounceEnergy(float roughness, float NoV);

/// Scale and bias of f0 under even light from everywhere.
struct EnvironmentFit {
    float scale = 0;
    float bias = 0;
};

[[nodiscard]] EnvironmentFit environmentFit(float roughness, float NoV);

/// Linear colour of any brightness to 0 .. 1; keeps hues, and leaves what is below 0.76 as it is
/// but for 0.04 that a surface's own sheen adds.
[[nodiscard]] glm::vec3 toneMapped(const glm::vec3& color);

} // namespace zelvo::render
