// SPDX-License-Identifier: MIT
#pragma once

#include "Field.h"

#include <span>

namespace zelvo::bake {

/// How the height of a stroke decreases from its middle to its edge.
enum class Profile {
    flat,  ///< full height; the edge is as soft as `softness`
    round, ///< a half circle
    sharp, ///< decreases linearly from the middle
};

struct Brush {
    float width = 0.01f; ///< of the whole stroke, as a share of the tile's width
    float height = 1;
    float softness = 0.002f; ///< of a flat stroke's edge
    Profile profile = Profile::round;
};

/// Draws shapes on a field. Where shapes overlap, the higher one is kept. Shapes that leave the
/// tile come in on the other side. Coordinates are 0 to 1 over the tile, which should be square.
class Canvas {
public:
    explicit Canvas(int side)
        : field_(side, side) {}

    void line(const glm::vec2& from, const glm::vec2& to, const Brush& brush);
    void polyline(std::span<const glm::vec2> points, const Brush& brush);
    void disc(const glm::vec2& middle, const Brush& brush);
    /// A rectangle with the given half sides. The brush's width is the radius of its corners.
    void box(const glm::vec2& middle, const glm::vec2& half, const Brush& brush);

    [[nodiscard]] const Field& field() const { return field_; }

private:
    /// Applies a distance function between two corners. Brush and distance give the height.
    template <class Distance>
    void apply(const glm::vec2& low, const glm::vec2& high, const Brush& brush, Distance distance);

    Field field_;
};

} // namespace zelvo::bake
