// SPDX-License-Identifier: MIT
#include "Noise.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zelvo::bake {

namespace {

/// A well mixed number for a cell (final step of MurmurHash3).
std::uint32_t mixed(std::uint32_t value) {
    value ^= value >> 16U;
    value *= 0x85EBCA6BU;
    value ^= value >> 13U;
    value *= 0xC2B2AE35U;
    return value ^ (value >> 16U);
}

std::uint32_t cellHash(const glm::ivec2& cell, int cells, std::uint32_t seed) {
    const auto x = static_cast<std::uint32_t>(((cell.x % cells) + cells) % cells);
    const auto y = static_cast<std::uint32_t>(((cell.y % cells) + cells) % cells);
    return mixed(x + mixed(y + mixed(seed * 0x9E3779B9U + 1U)));
}

float unitOf(std::uint32_t hash) {
    return static_cast<float>(hash >> 8U) * 0x1p-24f;
}

float corner(const glm::ivec2& cell, const glm::vec2& offset, int cells, std::uint32_t seed) {
    const float angle = unitOf(cellHash(cell, cells, seed)) * 2 * std::numbers::pi_v<float>;
    return std::cos(angle) * offset.x + std::sin(angle) * offset.y;
}

} // namespace

float Dice::unit() {
    state += 0x9E3779B97F4A7C15ULL;
    std::uint64_t z = state;
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
    return static_cast<float>((z ^ (z >> 31U)) >> 40U) * 0x1p-24f;
}

float gradientNoise(const glm::vec2& place, int cells, std::uint32_t seed) {
    const glm::vec2 p = place * static_cast<float>(cells);
    const glm::vec2 low = glm::floor(p);
    const glm::vec2 part = p - low;
    const glm::ivec2 cell(low);
    const glm::vec2 fade = part * part * part * (part * (part * 6.0f - 15.0f) + 10.0f);
    const float a = corner(cell, part, cells, seed);
    const float b = corner(cell + glm::ivec2(1, 0), part - glm::vec2(1, 0), cells, seed);
    const float c = corner(cell + glm::ivec2(0, 1), part - glm::vec2(0, 1), cells, seed);
    const float d = corner(cell + glm::ivec2(1, 1), part - glm::vec2(1, 1), cells, seed);
    return glm::mix(glm::mix(a, b, fade.x), glm::mix(c, d, fade.x), fade.y) *
           std::numbers::sqrt2_v<float>;
}

float fractal(const glm::vec2& place, const Octaves& sum) {
    float total = 0, weight = 1, weights = 0;
    int cells = sum.cells;
    for (int i = 0; i < sum.count; ++i) {
        total += weight * gradientNoise(place, cells, sum.seed + static_cast<std::uint32_t>(i));
        weights += weight;
        weight *= sum.gain;
        cells *= 2;
    }
    return total / weights;
}

glm::vec2 warped(const glm::vec2& place, float reach, const Octaves& sum) {
    constexpr std::uint32_t kOther = 1000;
    const Octaves other = octaves(sum.cells, sum.count, sum.gain, sum.seed + kOther);
    return place + reach * glm::vec2(fractal(place, sum), fractal(place, other));
}

float ridged(const glm::vec2& place, const Octaves& sum) {
    float total = 0, weight = 1, weights = 0;
    int cells = sum.cells;
    for (int i = 0; i < sum.count; ++i) {
        const float noise = gradientNoise(place, cells, sum.seed + static_cast<std::uint32_t>(i));
        const float crest = 1 - std::min(1.0f, std::abs(noise));
        total += weight * crest * crest;
        weights += weight;
        weight *= sum.gain;
        cells *= 2;
    }
    return total / weights;
}

Scatter scattered(const glm::vec2& place, int cells, std::uint32_t seed) {
    const glm::vec2 p = place * static_cast<float>(cells);
    const glm::ivec2 home(glm::floor(p));
    std::array<glm::vec2, 9> points{};
    Scatter result{9, 9, 9, 0};
    glm::vec2 owner{0};
    for (int i = 0; i < 9; ++i) {
        const glm::ivec2 cell = home + glm::ivec2(i % 3 - 1, i / 3 - 1);
        const std::uint32_t hash = cellHash(cell, cells, seed);
        const glm::vec2 point = glm::vec2(cell) + glm::vec2(unitOf(hash), unitOf(mixed(hash + 1)));
        points.at(static_cast<std::size_t>(i)) = point;
        const float distance = glm::distance(p, point);
        if (distance < result.nearest) {
            result = {distance, result.nearest, 9, unitOf(mixed(hash + 2))};
            owner = point;
        } else if (distance < result.second) {
            result.second = distance;
        }
    }
    for (const glm::vec2& point : points) {
        const glm::vec2 apart = point - owner;
        const float length = glm::length(apart);
        if (length < 1e-4f)
            continue;
        const float border = glm::dot((point + owner) * 0.5f - p, apart / length);
        result.border = std::min(result.border, border);
    }
    return result;
}

} // namespace zelvo::bake
