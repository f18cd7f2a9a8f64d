// SPDX-License-Identifier: MIT
#include "Field.h"

#include <algorithm>
#include <cmath>

namespace zelvo::bake {

namespace {

/// A running mean along the rows, with the result transposed. Applied twice, it covers columns,
/// too.
Field meanTransposed(const Field& field, int reach) {
    Field result(field.height, field.width);
    const auto count = static_cast<float>(2 * reach + 1);
    for (int y = 0; y < field.height; ++y) {
        float sum = 0;
        for (int x = -reach; x <= reach; ++x)
            sum += field.at(x, y);
        for (int x = 0; x < field.width; ++x) {
            result.at(y, x) = sum / count;
            sum += field.at(x + reach + 1, y) - field.at(x - reach, y);
        }
    }
    return result;
}

} // namespace

Field normalised(const Field& field) {
    const auto [low, high] = std::ranges::minmax(field.values);
    const float range = std::max(high - low, 1e-9f);
    return field.mapped([low = low, range](float value) { return (value - low) / range; });
}

Field blurred(const Field& field, float radius) {
    // Three running means approximate a Gaussian (central limit theorem).
    const float reachWanted = radius * static_cast<float>(field.width) / std::sqrt(3.0f);
    const int reach =
        std::clamp(static_cast<int>(std::lround(reachWanted)), 0, field.width / 2 - 1);
    if (reach == 0)
        return field;
    Field result = field;
    for (int pass = 0; pass < 3; ++pass) {
        result = meanTransposed(meanTransposed(result, reach), reach);
    }
    return result;
}

Field openness(const Field& relief, float radius, float strength) {
    const Field around = blurred(relief, radius);
    return combined(relief, around, [strength](float here, float mean) {
        return std::clamp(1 - strength * std::max(0.0f, mean - here), 0.0f, 1.0f);
    });
}

} // namespace zelvo::bake
