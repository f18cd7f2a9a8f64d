// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <glm/vec3.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace zelvo::image {

/// A picture of the light around: linear RGB, equirectangular (width = 2 * height), rows from
/// zenith to nadir, the column at the middle looking along -z, columns growing to the right (+x at
/// three quarters of the width).
struct Radiance {
    int width = 0;
    int height = 0;
    std::vector<glm::vec3> pixels;

    [[nodiscard]] glm::vec3
    sample(const glm::vec3& direction) const; ///< bilinear; direction of any length
};

/// The first nine spherical harmonics at a unit vector, without their constants: 1, y, z, x, xy,
/// yz, 3z2-1, zx, x2-y2.
[[nodiscard]] std::array<float, 9> harmonicsAt(const glm::vec3& n);

/// Image-based light ready for drawing, so that no filtering is left for the program's start.
///
/// Diffuse: nine spherical-harmonics coefficients of irradiance, already convolved with the cosine
/// lobe and divided by pi, so that evaluating them at a normal gives what a white diffuse surface
/// reflects (Ramamoorthi and Hanrahan 2001, "An Efficient Representation for Irradiance Environment
/// Maps"), in the order of harmonicsAt(), whose constants are already multiplied in.
///
/// Specular: kLevels octahedral maps (Cigolle et al. 2014, "A Survey of Efficient Representations
/// for Independent Unit Vectors"), level i prefiltered with GGX for perceptual roughness i /
/// (kLevels - 1) (Karis 2013, "Real Shading in Unreal Engine 4"). All levels have the side kSide
/// with a border of one texel that repeats the fold, so that bilinear filtering has no seam.
/// Half-float RGB as IEEE 754 binary16 bits, 3 a texel, rows from the top. A direction is looked up
/// at texture coordinates (octahedralFromDirection(direction) * 128 + 1) / kSide (Octahedral.h).
class LightProbe {
public:
    static constexpr int kLevels = 7;
    static constexpr int kSide = 130; ///< 128 and a border texel on each side

    std::array<glm::vec3, 9> irradiance{};
    std::array<std::vector<std::uint16_t>, kLevels> specular; ///< each kSide * kSide * 3

    /// What a white diffuse surface with this unit normal reflects.
    [[nodiscard]] glm::vec3 diffuse(const glm::vec3& normal) const;

    /// Filters a picture. Takes about a second; meant for the baker and, with a small picture, for
    /// tests.
    [[nodiscard]] static LightProbe filtered(const Radiance& radiance, int samplesPerTexel);

    /// Errors: notFound, malformed (another version, a wrong length).
    [[nodiscard]] static foundation::Result<LightProbe> load(const std::filesystem::path& file);
    [[nodiscard]] foundation::Result<void> save(const std::filesystem::path& file) const;
};

} // namespace zelvo::image
