// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/image/LightProbe.h"
#include "platform/image/Octahedral.h"

#include <glm/common.hpp>
#include <glm/gtc/packing.hpp>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace zelvo::image {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr int kSourceSide = 256; ///< side of the sharpest octahedral copy
constexpr int kMinSide = 4;
constexpr int kIrradianceSide = 64; ///< side of the copy used for the irradiance
constexpr int kSubsamples = 4;      ///< per side of each texel of the sharpest copy
constexpr float kBrightest = 65504; ///< the largest half float

/// A square octahedral map with a border of one texel, which repeats the texels across the fold.
class OctahedralMap {
public:
    explicit OctahedralMap(int side)
        : side_(side)
        , texels(static_cast<std::size_t>(side + 2) * static_cast<std::size_t>(side + 2)) {}

    [[nodiscard]] int side() const { return side_; }

    /// Columns and rows go from -1 to side, including the border.
    [[nodiscard]] glm::vec3& at(int column, int row) { return texels[index(column, row)]; }

    [[nodiscard]] const glm::vec3& at(int column, int row) const {
        return texels[index(column, row)];
    }

    /// The coordinates of a texel's middle.
    [[nodiscard]] glm::vec2 middle(int column, int row) const {
        return (glm::vec2(column, row) + 0.5f) / static_cast<float>(side_);
    }

    [[nodiscard]] glm::vec3 sample(const glm::vec2& coordinates) const {
        const glm::vec2 place = coordinates * static_cast<float>(side_) + 0.5f;
        const glm::vec2 corner = glm::min(glm::floor(place), glm::vec2(static_cast<float>(side_)));
        const glm::vec2 part = place - corner;
        const int column = static_cast<int>(corner.x) - 1;
        const int row = static_cast<int>(corner.y) - 1;
        const glm::vec3 upper = glm::mix(at(column, row), at(column + 1, row), part.x);
        const glm::vec3 lower = glm::mix(at(column, row + 1), at(column + 1, row + 1), part.x);
        return glm::mix(upper, lower, part.y);
    }

    void fillBorder() {
        const int last = side_ - 1;
        for (int i = 0; i < side_; ++i) {
            at(i, -1) = at(last - i, 0);
            at(i, side_) = at(last - i, last);
            at(-1, i) = at(0, last - i);
            at(side_, i) = at(last, last - i);
        }
        at(-1, -1) = at(last, last);
        at(side_, side_) = at(0, 0);
        at(-1, side_) = at(last, 0);
        at(side_, -1) = at(0, last);
    }

private:
    [[nodiscard]] std::size_t index(int column, int row) const {
        return static_cast<std::size_t>(row + 1) * static_cast<std::size_t>(side_ + 2) +
               static_cast<std::size_t>(column + 1);
    }

    int side_;
    std::vector<glm::vec3> texels;
};

/// The mean of the picture over one texel of the sharpest copy.
glm::vec3 unfoldedTexel(const Radiance& radiance, int column, int row) {
    constexpr int kCount = kSubsamples * kSubsamples;
    constexpr float kStep = 1.0f / (kSourceSide * kSubsamples);
    const glm::vec2 first = glm::vec2(column, row) / static_cast<float>(kSourceSide);
    glm::vec3 sum{0};
    for (int i = 0; i < kCount; ++i) {
        const glm::vec2 offset = glm::vec2(i % kSubsamples, i / kSubsamples) + 0.5f;
        sum += radiance.sample(octahedronPoint(first + offset * kStep));
    }
    return sum / static_cast<float>(kCount);
}

OctahedralMap unfolded(const Radiance& radiance) {
    OctahedralMap map(kSourceSide);
    for (int row = 0; row < kSourceSide; ++row) {
        for (int column = 0; column < kSourceSide; ++column) {
            map.at(column, row) = unfoldedTexel(radiance, column, row);
        }
    }
    map.fillBorder();
    return map;
}

OctahedralMap halved(const OctahedralMap& large) {
    OctahedralMap map(large.side() / 2);
    for (int row = 0; row < map.side(); ++row) {
        for (int column = 0; column < map.side(); ++column) {
            const int x = column * 2;
            const int y = row * 2;
            map.at(column, row) = (large.at(x, y) + large.at(x + 1, y) + large.at(x, y + 1) +
                                   large.at(x + 1, y + 1)) *
                                  0.25f;
        }
    }
    map.fillBorder();
    return map;
}

/// Copies of the picture, each half as wide as the one before.
class Chain {
public:
    explicit Chain(const Radiance& radiance) {
        maps.push_back(unfolded(radiance));
        while (maps.back().side() > kMinSide)
            maps.push_back(halved(maps.back()));
    }

    [[nodiscard]] const OctahedralMap& ofSide(int side) const {
        return *std::ranges::find(maps, side, &OctahedralMap::side);
    }

    [[nodiscard]] glm::vec3 sample(const glm::vec3& direction, float level) const {
        const float bounded = std::clamp(level, 0.0f, static_cast<float>(maps.size() - 1));
        const auto sharp = static_cast<std::size_t>(bounded);
        const auto soft = std::min(sharp + 1, maps.size() - 1);
        const glm::vec2 coordinates = octahedralFromDirection(direction);
        return glm::mix(
            maps[sharp].sample(coordinates),
            maps[soft].sample(coordinates),
            bounded - static_cast<float>(sharp));
    }

private:
    std::vector<OctahedralMap> maps;
};

/// A light direction in the frame of the normal (z), its weight, and the copy to read.
struct Sample {
    glm::vec3 direction;
    float weight;
    float level;
};

/// The second coordinate of the Hammersley points: the bits of i, mirrored at the binary point.
float radicalInverse(std::uint32_t i) {
    std::uint32_t bits = 0;
    for (unsigned bit = 0; bit < 32; ++bit)
        bits |= ((i >> bit) & 1U) << (31U - bit);
    return static_cast<float>(bits) * 0x1p-32f;
}

/// Random directions by the GGX distribution, for a view along the normal (Karis 2013). Each reads
/// the copy whose texels match its share of the sphere (Colbert and Krivanek 2007, "GPU-Based
/// Importance Sampling").
std::vector<Sample> ggxSamples(float roughness, int count) {
    const float alpha = roughness * roughness;
    const float alpha2 = alpha * alpha;
    constexpr float kTexelAngle = 4 * kPi / (kSourceSide * kSourceSide);
    std::vector<Sample> samples;
    for (int i = 0; i < count; ++i) {
        const float first = (static_cast<float>(i) + 0.5f) / static_cast<float>(count);
        const float azimuth = 2 * kPi * radicalInverse(static_cast<std::uint32_t>(i));
        const float cos2 = (1 - first) / (1 + (alpha2 - 1) * first);
        const float cosine = std::sqrt(cos2);
        const float sine = std::sqrt(std::max(0.0f, 1 - cos2));
        const glm::vec3 half{sine * std::cos(azimuth), sine * std::sin(azimuth), cosine};
        const glm::vec3 light = half * (2 * cosine) - glm::vec3(0, 0, 1);
        if (light.z <= 0)
            continue;

        const float spread = cos2 * (alpha2 - 1) + 1;
        // D / 4, because view and normal are equal.
        const float density = alpha2 / (kPi * spread * spread) / 4;
        const float angle = 1 / (static_cast<float>(count) * density);
        samples.push_back({light, light.z, 0.5f * std::log2(angle / kTexelAngle) + 1});
    }
    return samples;
}

glm::vec3 gather(const Chain& chain, std::span<const Sample> samples, const glm::vec3& normal) {
    const glm::vec3 helper = std::abs(normal.y) < 0.99f ? glm::vec3(0, 1, 0) : glm::vec3(1, 0, 0);
    const glm::vec3 tangent = glm::normalize(glm::cross(helper, normal));
    const glm::vec3 bitangent = glm::cross(normal, tangent);
    glm::vec3 sum{0};
    float weights = 0;
    for (const Sample& sample : samples) {
        const glm::vec3& d = sample.direction;
        const glm::vec3 direction = tangent * d.x + bitangent * d.y + normal * d.z;
        sum += chain.sample(direction, sample.level) * sample.weight;
        weights += sample.weight;
    }
    return sum / weights;
}

OctahedralMap filteredFor(const Chain& chain, float roughness, int samplesPerTexel) {
    constexpr int kInner = LightProbe::kSide - 2;
    if (roughness <= 0)
        return chain.ofSide(kInner);
    const auto samples = ggxSamples(roughness, samplesPerTexel);
    OctahedralMap map(kInner);
    for (int row = 0; row < kInner; ++row) {
        for (int column = 0; column < kInner; ++column) {
            const glm::vec3 normal = directionFromOctahedral(map.middle(column, row));
            map.at(column, row) = gather(chain, samples, normal);
        }
    }
    map.fillBorder();
    return map;
}

std::vector<std::uint16_t> halfFloats(const OctahedralMap& map) {
    std::vector<std::uint16_t> values;
    values.reserve(static_cast<std::size_t>(LightProbe::kSide) * LightProbe::kSide * 3);
    for (int row = -1; row <= map.side(); ++row) {
        for (int column = -1; column <= map.side(); ++column) {
            const glm::vec3 colour = glm::clamp(map.at(column, row), 0.0f, kBrightest);
            for (int i = 0; i < 3; ++i)
                values.push_back(glm::packHalf1x16(colour[i]));
        }
    }
    return values;
}

std::array<glm::vec3, 9> irradianceOf(const OctahedralMap& map) {
    // Each coefficient is multiplied by its basis function twice: when gathered and when evaluated.
    // So the constants are squared, times the weight of the cosine lobe in this band divided by pi:
    // 1, 2/3, 1/4.
    constexpr float k0 = 1 / (4 * kPi);
    constexpr float k1 = 3 / (4 * kPi) * (2.0f / 3);
    constexpr float k2 = 15 / (4 * kPi) * 0.25f;
    constexpr std::array<float, 9> kScale{k0, k1, k1, k1, k2, k2, k2 / 12, k2, k2 / 4};

    std::array<glm::vec3, 9> sums{};
    float sphere = 0;
    for (int row = 0; row < map.side(); ++row) {
        for (int column = 0; column < map.side(); ++column) {
            const glm::vec3 point = octahedronPoint(map.middle(column, row));
            const float length = glm::length(point);
            const glm::vec3 d = point / length;
            const float angle = 1 / (length * length * length); // proportional to the solid angle
            const glm::vec3 light = map.at(column, row) * angle;
            sphere += angle;
            const std::array<float, 9> basis = harmonicsAt(d);
            for (std::size_t i = 0; i < sums.size(); ++i)
                sums.at(i) += light * basis.at(i);
        }
    }
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums.at(i) *= kScale.at(i) * 4 * kPi / sphere;
    return sums;
}

} // namespace

LightProbe LightProbe::filtered(const Radiance& radiance, int samplesPerTexel) {
    CHECK(
        radiance.width > 0 && radiance.height > 0 && samplesPerTexel > 0,
        "a light probe of {} x {} with {} samples",
        radiance.width,
        radiance.height,
        samplesPerTexel);
    const Chain chain(radiance);
    LightProbe probe;
    probe.irradiance = irradianceOf(chain.ofSide(kIrradianceSide));
    for (int level = 0; level < kLevels; ++level) {
        const float roughness = static_cast<float>(level) / (kLevels - 1);
        probe.specular.at(static_cast<std::size_t>(level)) =
            halfFloats(filteredFor(chain, roughness, samplesPerTexel));
    }
    return probe;
}

} // namespace zelvo::image
