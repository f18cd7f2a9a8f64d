// SPDX-License-Identifier: MIT
#pragma once

#include "export/MovieOptions.h"

#include <filesystem>
#include <string>

namespace zelvo::app {

/// The file name of a frame in framesTap's folder: frame_00000.png, frame_00001.png …
[[nodiscard]] std::string frameName(int frame);

/// Writes the movie's first `count` frames into the folder.
[[nodiscard]] movie::FrameTap framesTap(const std::filesystem::path& folder, int count);

/// Writes only this frame (negative in the count-in).
[[nodiscard]] movie::FrameTap pictureTap(const std::filesystem::path& file, int frame);

} // namespace zelvo::app
