// SPDX-License-Identifier: MIT

#include "platform/geometry/Extrusion.h"
#include "platform/geometry/SVGPath.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLongest = 2000; // solids of longer outlines take too long
    const std::string text(data, data + std::min(size, kLongest));
    const auto path = zelvo::geometry::bezierPath(text);
    zelvo::geometry::ExtrusionOptions options;
    options.depth = 6;
    options.chamferRadius = 10;
    options.flatness = 1;
    (void)zelvo::geometry::extrude(path, options);
    return 0;
}
