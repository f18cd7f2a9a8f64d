// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/reading/StoredOrientation.h"

#include <cstdint>
#include <optional>

namespace zelvo::image {

/// What the markers between a JPEG's data say (ITU-T T.81, annex B), found without decoding it.
struct JPEGMarkers {
    bool isWhole = false; ///< the marker of its end is there
    bool isProgressive = false;
    int scans = 0;
    std::int64_t pixels = 0;
};

/// Reads a file from its beginning to the picture's end. Absent if it is no JPEG.
[[nodiscard]] std::optional<JPEGMarkers> jpegMarkersOf(const FileReader& file);

} // namespace zelvo::image
