// SPDX-License-Identifier: MIT
#include "Lightning.h"

#include "Noise.h"
#include "Surface.h"

#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zelvo::bake {

namespace {

constexpr float kGlowReach = 0.16f; ///< beyond this, a line changes nothing

/// Places are -1 to 1, y up.
struct Line {
    glm::vec2 from;
    glm::vec2 to;
    float width; ///< half of the core's
    float light;
};

class Growth {
public:
    explicit Growth(std::uint32_t seed)
        : random(seed) {}

    /// A broken line: each half is broken again, half as far (Fournier, Fussell and Carpenter 1982,
    /// "Computer Rendering of Stochastic Models").
    void
    grow(const glm::vec2& from, const glm::vec2& to, float width, float light, int branchings) {
        std::vector<glm::vec2> points{from, to};
        const float length = glm::length(to - from);
        float reach = 0.16f * length;
        while (reach > 0.006f) {
            std::vector<glm::vec2> finer;
            for (std::size_t i = 0; i + 1 < points.size(); ++i) {
                const glm::vec2 way = points[i + 1] - points[i];
                const glm::vec2 side = glm::vec2(-way.y, way.x) / std::max(glm::length(way), 1e-4f);
                finer.push_back(points[i]);
                finer.push_back(
                    points[i] + way * random.between(0.4f, 0.6f) +
                    side * random.between(-reach, reach));
            }
            finer.push_back(points.back());
            points = std::move(finer);
            reach *= 0.54f;
        }
        const auto count = static_cast<float>(points.size());
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            const float left = 1 - 0.75f * static_cast<float>(i) / count;
            lines.push_back({points[i], points[i + 1], width * left, light * left});
        }
        if (branchings > 0)
            branch(points, length, width, light, branchings);
    }

    std::vector<Line> lines;

private:
    void branch(
        const std::vector<glm::vec2>& points,
        float length,
        float width,
        float light,
        int branchings) {
        const auto last = static_cast<float>(points.size() - 1);
        for (int i = 0; i < 2 + branchings; ++i) {
            const auto at = static_cast<std::size_t>(last * random.between(0.12f, 0.8f));
            const glm::vec2 way = glm::normalize(points.back() - points.front());
            const float turn =
                glm::radians(random.between(18, 48)) * (random.between(-1, 1) < 0 ? -1.0f : 1.0f);
            const glm::vec2 turned{
                way.x * std::cos(turn) - way.y * std::sin(turn),
                way.x * std::sin(turn) + way.y * std::cos(turn)};
            grow(
                points[at],
                points[at] + turned * length * random.between(0.2f, 0.42f),
                width * 0.6f,
                light * 0.75f,
                branchings - 1);
        }
    }

    Dice random;
};

/// Values of a picture's pixels, drawn over by the brightest.
class Plate {
public:
    Plate(int wide, int high)
        : width(wide)
        , height(high)
        , values(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high)) {}

    void draw(const Line& line) {
        const glm::vec2 least = pixelOf(glm::min(line.from, line.to) - kGlowReach);
        const glm::vec2 most = pixelOf(glm::max(line.from, line.to) + kGlowReach);
        const int left = std::max(0, static_cast<int>(least.x));
        const int right = std::min(width - 1, static_cast<int>(most.x));
        const int top = std::max(0, static_cast<int>(most.y));
        const int bottom = std::min(height - 1, static_cast<int>(least.y));
        for (int y = top; y <= bottom; ++y) {
            for (int x = left; x <= right; ++x) {
                float& value = values[indexOf(x, y)];
                value = std::max(value, lightAt(line, placeOf(x, y)));
            }
        }
    }

    [[nodiscard]] float at(const glm::vec2& share) const {
        return values[indexOf(
            std::clamp(static_cast<int>(share.x * static_cast<float>(width)), 0, width - 1),
            std::clamp(static_cast<int>(share.y * static_cast<float>(height)), 0, height - 1))];
    }

private:
    [[nodiscard]] std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x);
    }

    [[nodiscard]] glm::vec2 pixelOf(const glm::vec2& place) const {
        return {
            (place.x + 1) / 2 * static_cast<float>(width),
            (1 - place.y) / 2 * static_cast<float>(height)};
    }

    [[nodiscard]] glm::vec2 placeOf(int x, int y) const {
        return {
            (static_cast<float>(x) + 0.5f) / static_cast<float>(width) * 2 - 1,
            1 - (static_cast<float>(y) + 0.5f) / static_cast<float>(height) * 2};
    }

    [[nodiscard]] float lightAt(const Line& line, const glm::vec2& place) const {
        const glm::vec2 way = line.to - line.from;
        const float share =
            glm::clamp(glm::dot(place - line.from, way) / glm::dot(way, way), 0.0f, 1.0f);
        const float off = glm::length(place - line.from - way * share);
        if (off > kGlowReach)
            return 0;
        const float pixel = 2 / static_cast<float>(width);
        const float core = 1 - glm::smoothstep(line.width, line.width + 1.5f * pixel, off);
        const float glow = 0.42f * std::exp(-off / 0.016f) + 0.16f * std::exp(-off / 0.05f);
        const float edge = 1 - glm::smoothstep(0.5f * kGlowReach, kGlowReach, off);
        return line.light * std::max(core, glow * edge);
    }

    int width;
    int height;
    std::vector<float> values;
};

} // namespace

Baked lightningPicture(int width, int height, std::uint32_t seed) {
    Growth growth(seed);
    growth.grow({0, 0.94f}, {0, -0.94f}, 0.0065f, 1, 2);
    Plate plate(width, height);
    for (const Line& line : growth.lines) {
        plate.draw(line);
    }
    return {
        picture(
            width,
            height,
            [&plate](const glm::vec2& share) {
                const glm::vec2 p = glm::abs(share * 2.0f - 1.0f);
                const float inside = 1 - glm::smoothstep(0.85f, 1.0f, std::max(p.x, p.y));
                return glm::vec4(1, 1, 1, std::clamp(plate.at(share) * inside, 0.0f, 1.0f));
            }),
        {}};
}

} // namespace zelvo::bake
