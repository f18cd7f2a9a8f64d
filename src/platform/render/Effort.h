// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/DrawQuality.h"

namespace zelvo::render {

/// What is spent on soft parts of a picture. These are numbers in uniforms and sizes of pictures,
/// so no shader is built when the detail changes.
struct Effort {
    // shadows
    int casterLookups;
    int edgeLookups;
    unsigned maxShadowMap; ///< texels on each side
    double shadeScale; ///< size of the picture of shadows on what stands still, over the drawn one
    // mirror images
    double mirrorScale; ///< over the drawn size
    int mirrorLookups;
    // dark places on floors
    int contactSearchLookups;
    int contactLookups;
    int closeContactLookups;
};

// clang-format off
inline constexpr Effort kFullEffort  {4, 8, 1024, 1.0 / 2,  1.0 / 3, 16,  8, 24, 12};
inline constexpr Effort kLittleEffort{2, 3,  512, 1.0 / 3,  1.0 / 5,  8,  4,  8,  4};

// clang-format on

[[nodiscard]] constexpr const Effort& effortOf(Detail detail) {
    return detail == Detail::full ? kFullEffort : kLittleEffort;
}

} // namespace zelvo::render
