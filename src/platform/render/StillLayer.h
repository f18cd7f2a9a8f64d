// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/RenderTarget.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// A kept picture, with its depth, of what has not changed for some frames: the background and the
/// still ones of the opaque items. Copying it costs a tenth of drawing a stage in software.
///
/// What an item looks like is told by a key; equal keys are equal pixels. It holds nothing that
/// moves, so that each of its items is the same in the frame it is copied into.
class StillLayer {
public:
    static constexpr std::uint64_t kMoving = 0; ///< the key of what is never the same

    enum class Step {
        without, ///< draw all items
        build,   ///< draw the items held into the layer, then go on as with `use`
        use      ///< copy the layer, draw the other items
    };

    /// What to do in this frame. `surroundings` is the key of all that every item depends on, such
    /// as the camera and the background.
    [[nodiscard]] Step
    plan(std::span<const std::uint64_t> keys, std::uint64_t surroundings, Size size);

    /// Whether the items with this key are in the layer that the plan uses.
    [[nodiscard]] bool holds(std::uint64_t key) const;

    /// To be drawn into, of the size that was planned with.
    [[nodiscard]] const RenderTarget& resized(GraphicsState& state);

    /// The other one is of the layer's size and is then bound.
    void copyTo(const RenderTarget& other, GraphicsState& state) const {
        target.copyTo(other, state);
    }

    void forget();

private:
    RenderTarget target{TargetFormat::rgba8, TargetFormat::depth32};
    Size size;
    std::uint64_t lastSurroundings = 0;
    int age = 0; ///< frames for which the same items have stood still
    // Sorted keys. Kept between frames for their memory too.
    std::vector<std::uint64_t> previous;
    std::vector<std::uint64_t> candidate;
    std::vector<std::uint64_t> held;
    std::vector<std::uint64_t> current;
    std::vector<std::uint64_t> still;
};

} // namespace zelvo::render
