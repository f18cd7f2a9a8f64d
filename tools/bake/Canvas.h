// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"

#include <span>

namespace zelvo::bake {

/// How a stroke's height falls off from its middle to its edge.
enum class Profile {
    flat,  ///< full height with an edge as soft as `softness`
    round, ///< a half circle
    sharp, ///< falling straight from the middle
};

struct Brush {
    float width = 0.01f; ///< of the whole stroke, share of the tile's width
    float height = 1;
    float softness = 0.002f; ///< of the edge of a flat stroke
    Profile profile = Profile::round;
};

/// Draws shapes on a field; where shapes meet, the higher one stands. Shapes may leave the tile,
/// they come in again on the other side. Coordinates of 0 to 1 over the tile; a square tile is
/// assumed.
class Canvas {
public:
    explicit Canvas(int side)
        : field_(side, side) {}

    void line(const glm::vec2& from, const glm::vec2& to, const Brush& brush);
    void polyline(std::span<const glm::vec2> points, const Brush& brush);
    void disc(const glm::vec2& middle, const Brush& brush);
    /// A rectangle of the given half sides; the brush's width is the radius of its corners.
    void box(const glm::vec2& middle, const glm::vec2& half, const Brush& brush);

    [[nodiscard]] const Field& field() const { return field_; }

private:
    /// Applies a distance function to the places between two corners; brush and distance give the
    /// height.
    template <class Distance>
    void apply(const glm::vec2& low, const glm::vec2& high, const Brush& brush, Distance distance);

    Field field_;
};

} // namespace zelvo::bake
