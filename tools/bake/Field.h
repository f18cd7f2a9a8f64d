// SPDX-License-Identifier: MIT
#pragma once

#include <glm/common.hpp>
#include <glm/vec2.hpp>

#include <cstddef>
#include <vector>

namespace zelvo::bake {

/// One number a place on a tile that repeats in both directions; rows run from the top. Recipes
/// work in coordinates of 0 to 1 over the tile, so that they give the same picture at any size.
struct Field {
    int width = 0;
    int height = 0;
    std::vector<float> values;

    Field(int columns, int rows)
        : width(columns)
        , height(rows)
        , values(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

    /// The values of a function of the coordinates, taken at the middle of each place.
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

    /// A place; coordinates outside come in again on the other side.
    [[nodiscard]] float& at(int x, int y) { return values[index(x, y)]; }

    [[nodiscard]] float at(int x, int y) const { return values[index(x, y)]; }

    /// Each value through a function.
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

/// Two fields of one size, value by value through a function of both.
template <class Function>
[[nodiscard]] Field combined(const Field& a, const Field& b, Function function) {
    Field result = a;
    for (std::size_t i = 0; i < result.values.size(); ++i) {
        result.values[i] = function(a.values[i], b.values[i]);
    }
    return result;
}

/// Stretched so that the smallest value is 0 and the largest 1.
[[nodiscard]] Field normalised(const Field& field);

/// Softened with a bell of about this radius (share of the tile's width).
[[nodiscard]] Field blurred(const Field& field, float radius);

/// How open each place of a relief lies: 1 on the heights, towards 0 in hollows up to `radius`
/// wide.
[[nodiscard]] Field openness(const Field& relief, float radius, float strength);

} // namespace zelvo::bake
