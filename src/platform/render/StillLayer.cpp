// SPDX-License-Identifier: MIT
#include "platform/render/StillLayer.h"

#include <algorithm>
#include <iterator>

namespace zelvo::render {
namespace {

constexpr int kFirstPatience = 1;   ///< unchanged frames before the first layer is drawn
constexpr int kBetterPatience = 12; ///< unchanged frames before a layer with more items is drawn

} // namespace

StillLayer::Step StillLayer::plan(
    std::span<const std::uint64_t> keys, std::uint64_t surroundings, Size pictureSize) {
    if (surroundings != lastSurroundings || pictureSize != size)
        forget();
    lastSurroundings = surroundings;
    size = pictureSize;

    current.clear();
    std::ranges::copy_if(
        keys, std::back_inserter(current), [](std::uint64_t key) { return key != kMoving; });
    std::ranges::sort(current);
    still.clear();
    std::ranges::set_intersection(current, previous, std::back_inserter(still));
    age = still == candidate ? age + 1 : 0;
    candidate.swap(still);
    previous.swap(current);

    if (!std::ranges::includes(previous, held))
        held.clear();
    const int patience = held.empty() ? kFirstPatience : kBetterPatience;
    if (!candidate.empty() && candidate != held && age >= patience) {
        held = candidate;
        return Step::build;
    }
    return held.empty() ? Step::without : Step::use;
}

bool StillLayer::holds(std::uint64_t key) const {
    return key != kMoving && std::ranges::binary_search(held, key);
}

const RenderTarget& StillLayer::resized(GraphicsState& state, int samples) {
    target.resize(size, state, samples);
    return target;
}

void StillLayer::forget() {
    previous.clear();
    candidate.clear();
    held.clear();
    age = 0;
}

} // namespace zelvo::render
