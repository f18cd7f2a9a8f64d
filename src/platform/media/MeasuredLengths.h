// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>

namespace zelvo::media {

/// The length of a sound file in seconds. `measure` reads all of the file, which takes a second or two
/// for many hours; so the last few results are kept and given again, until the file changes. Any
/// thread.
[[nodiscard]] double
measuredLength(const std::filesystem::path& file, const std::function<double()>& measure);

} // namespace zelvo::media
