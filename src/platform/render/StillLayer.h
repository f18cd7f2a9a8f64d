// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/RenderTarget.h"

#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::render {

/// Keeps a picture, with depth, of what has not changed for some frames: the background, opaque items
/// and translucent ones behind all that changes. With software drawing, copying it costs a tenth of
/// drawing a whole stage.
///
/// Items are compared by keys: equal keys mean equal pixels. An item that changes is never in the
/// layer.
class StillLayer {
public:
    static constexpr std::uint64_t kMoving = 0; ///< the key of an item that is never the same

    enum class Step {
        without, ///< draw all items
        build,   ///< draw the held items into the layer, then go on as with `use`
        use      ///< copy the layer, then draw the other items
    };

    /// Decides what to do in this frame. `surroundings` is a key of all that affects every item,
    /// such as the camera and the background.
    [[nodiscard]] Step
    plan(std::span<const std::uint64_t> keys, std::uint64_t surroundings, Size size);

    /// Whether items with this key are in the layer.
    [[nodiscard]] bool holds(std::uint64_t key) const;

    /// The layer to draw into, in the planned size.
    [[nodiscard]] const RenderTarget& resized(GraphicsState& state, int samples);

    /// Copies the layer to a target of the same size and binds that target.
    void copyTo(const RenderTarget& other, GraphicsState& state) const {
        target.copyTo(other, state);
    }

    void copyTo(
        const RenderTarget& other, GraphicsState& state, std::span<const PixelRect> parts) const {
        target.copyTo(other, state, parts);
    }

    void forget();

private:
    RenderTarget target{TargetFormat::half, TargetFormat::depth32};
    Size size;
    std::uint64_t lastSurroundings = 0;
    int age = 0; ///< number of frames in which the same items have not changed
    // Sorted keys. Kept between frames to reuse their memory, too.
    std::vector<std::uint64_t> previous;
    std::vector<std::uint64_t> candidate;
    std::vector<std::uint64_t> held;
    std::vector<std::uint64_t> current;
    std::vector<std::uint64_t> still;
};

} // namespace zelvo::render
