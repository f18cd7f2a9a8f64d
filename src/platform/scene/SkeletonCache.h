// SPDX-License-Identifier: MIT
#pragma once

#include "platform/geometry/Extrusion.h"
#include "platform/text/LineLayout.h"

#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace zelvo::scene {

/// Returns the skeleton of a string's outline. Computing it takes longer than building a solid from
/// it, and texts repeat letters: so the last kSkeletonsKept are kept. Main thread only.
[[nodiscard]] std::shared_ptr<const geometry::OutlineSkeleton>
skeletonOf(const std::string& string, const text::TextAttributes& attributes, double flatness);

inline constexpr std::size_t kSkeletonsKept = 512;

/// The fonts are held, so that no other font can get such an address.
using SkeletonKey =
    std::tuple<text::FontPtr, std::vector<text::FontPtr>, std::string, double, double, double>;

/// A skeleton that is not in the cache, and what it is computed from.
class MissingSkeleton {
public:
    MissingSkeleton(SkeletonKey of, geometry::BezierPath from);

    /// Computes it with all that a chamfer needs. Any thread.
    void compute();
    /// Puts it into the cache; nothing if it was not computed. Main thread.
    void keep() const;

private:
    SkeletonKey key;
    geometry::BezierPath outline;
    std::shared_ptr<const geometry::OutlineSkeleton> skeleton;
};

/// Those that skeletonOf would have to compute for these strings. Main thread.
[[nodiscard]] std::vector<MissingSkeleton> missingSkeletons(
    const std::vector<std::string>& strings,
    const text::TextAttributes& attributes,
    double flatness);

} // namespace zelvo::scene
