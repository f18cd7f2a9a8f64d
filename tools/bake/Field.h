// SPDX-License-Identifier: MIT
#pragma once

#include <glm/common.hpp>
#include <glm/vec2.hpp>

#include <cstddef>
#include <vector>

namespace zelvo::bake {

/// One number for each pixel of a tile that repeats in both directions. Rows start at the top.
/// Recipes use coordinates from 0 to 1 over the tile, so that they give the same picture at any
/// size.
struct Field {
    int width = 0;
    int height = 0;
    std::vector<float> values;

    Field(int columns, int rows)
        : width(columns)
        , height(rows)
        , values(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

    /// Samples a function of the coordinates at the middle of each pixel.
    template <class Function>
    [[nodiscard]] static Field of(int columns, int rows, Function function) {
        Field field(columns, rows);
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x)
                field.at(x, y) = function(field.middle(x, y));
        }
        return field;
    }

    [[nodiscard]] glm::vec2 middle(int x, int y) const {
        return (glm::vec2(x, y) + 0.5f) / glm::vec2(width, height);
    }

    /// One value; coordinates wrap around.
    [[nodiscard]] float& at(int x, int y) { return values[index(x, y)]; }

    [[nodiscard]] float at(int x, int y) const { return values[index(x, y)]; }

    /// Applies a function to each value.
    template <class Function> [[nodiscard]] Field mapped(Function function) const {
        Field result = *this;
        for (float& value : result.values)
            value = function(value);
        return result;
    }

private:
    [[nodiscard]] std::size_t index(int x, int y) const {
        const int column = ((x % width) + width) % width;
        const int row = ((y % height) + height) % height;
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(column);
    }
};

/// Applies a function to the values of two fields of the same size.
template <class Function>
[[nodiscard]] Field combined(const Field& a, const Field& b, Function function) {
    Field result = a;
    for (std::size_t i = 0; i < result.values.size(); ++i) {
        result.values[i] = function(a.values[i], b.values[i]);
    }
    return result;
}

/// Scaled so that the smallest value is 0 and the largest is 1.
[[nodiscard]] Field normalised(const Field& field);

/// Gaussian blur with about this radius (share of the tile's width).
[[nodiscard]] Field blurred(const Field& field, float radius);

/// How exposed each point of a relief is: 1 on heights, towards 0 in hollows up to `radius` wide.
[[nodiscard]] Field openness(const Field& relief, float radius, float strength);

} // namespace zelvo::bake
