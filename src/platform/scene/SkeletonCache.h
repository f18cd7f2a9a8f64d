// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Extrusion.h"
#include "platform/text/LineLayout.h"

#include <memory>
#include <string>

namespace zelvo::scene {

/// The skeleton of a string's outline. The latest kSkeletonsKept of them are kept, as finding one
/// out costs more than building a solid from it and texts are made of few different letters. Main
/// thread only.
[[nodiscard]] std::shared_ptr<const geometry::OutlineSkeleton>
skeletonOf(const std::string& string, const text::TextAttributes& attributes, double flatness);

inline constexpr std::size_t kSkeletonsKept = 512;

} // namespace zelvo::scene
