// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/reading/StoredOrientation.h"

#include <cstdint>
#include <optional>

namespace zelvo::image {

/// What the markers of a JPEG tell (ITU-T T.81, annex B), found without decoding.
struct JPEGMarkers {
    bool isWhole = false; ///< the end marker is there
    bool isProgressive = false;
    int scans = 0;
    std::int64_t pixels = 0;
};

/// Reads a file up to the end of the picture. Nothing if it is not a JPEG.
[[nodiscard]] std::optional<JPEGMarkers> jpegMarkersOf(const FileReader& file);

} // namespace zelvo::image
