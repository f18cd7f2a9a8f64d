// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::image {

/// The size of a picture in pixels.
struct Extent {
    int width = 0;
    int height = 0;
};

} // namespace zelvo::image
