// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::render {

struct Size {
    int width = 0; ///< pixels
    int height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

} // namespace zelvo::render
