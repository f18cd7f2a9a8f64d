// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <glm/vec3.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace zelvo::image {

/// The light from all directions: linear RGB, equirectangular (width = 2 * height), rows from
/// zenith to nadir. The middle column looks along -z, columns go to the right (+x is at three
/// quarters of the width).
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

/// Image-based light, filtered in advance so that the program starts quickly.
///
/// Diffuse: nine spherical-harmonics coefficients of the irradiance, convolved with the cosine lobe
/// and divided by pi. Evaluated at a normal, they give the reflection of a white diffuse surface
/// (Ramamoorthi and Hanrahan 2001, "An Efficient Representation for Irradiance Environment Maps").
/// They are in the order of harmonicsAt() and include its constants.
///
/// Specular: kLevels octahedral maps (Cigolle et al. 2014, "A Survey of Efficient Representations
/// for Independent Unit Vectors"). Level i is filtered with GGX for the perceptual roughness i /
/// (kLevels - 1) (Karis 2013, "Real Shading in Unreal Engine 4"). All levels have the side kSide,
/// with a border of one texel that repeats the fold, so that bilinear filtering has no seam. RGB as
/// IEEE 754 half floats, 3 per texel, rows from the top. The texture coordinates of a direction are
/// (octahedralFromDirection(direction) * 128 + 1) / kSide (Octahedral.h).
class LightProbe {
public:
    static constexpr int kLevels = 7;
    static constexpr int kSide = 130; ///< 128 and one border texel on each side

    std::array<glm::vec3, 9> irradiance{};
    std::array<std::vector<std::uint16_t>, kLevels> specular; ///< each kSide * kSide * 3

    /// The reflection of a white diffuse surface with this unit normal.
    [[nodiscard]] glm::vec3 diffuse(const glm::vec3& normal) const;

    /// Filters a picture. Takes about a second; for the baker and, with small pictures, for tests.
    [[nodiscard]] static LightProbe filtered(const Radiance& radiance, int samplesPerTexel);

    /// Errors: `notFound`, `malformed` (other version, wrong length).
    [[nodiscard]] static foundation::Result<LightProbe> load(const std::filesystem::path& file);
    [[nodiscard]] foundation::Result<void> save(const std::filesystem::path& file) const;
};

} // namespace zelvo::image
