// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Extrusion.h"
#include "platform/text/LineLayout.h"

#include <memory>
#include <string>

namespace zelvo::scene {

/// Returns the skeleton of a string's outline. Computing it takes longer than building a solid from
/// it, and texts repeat letters: so the last kSkeletonsKept are kept. Main thread only.
[[nodiscard]] std::shared_ptr<const geometry::OutlineSkeleton>
skeletonOf(const std::string& string, const text::TextAttributes& attributes, double flatness);

inline constexpr std::size_t kSkeletonsKept = 512;

} // namespace zelvo::scene
