// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::render {

/// How finely a picture is drawn.
struct DrawQuality {
    /// Drawn size over the size of the picture, 1 to 4. It makes edges, patterns and highlights
    /// smooth. The cost grows with its square.
    double oversampling = 1;
    /// Places in a drawn pixel where edges are looked up: 1 or 4. It makes edges smooth. Light is
    /// worked out once for a pixel, so 4 cost less than an oversampling of 2.
    int samples = 4;

    friend bool operator==(const DrawQuality&, const DrawQuality&) = default;
};

} // namespace zelvo::render
