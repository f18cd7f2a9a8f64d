// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace zelvo::media {

/// The order of the four bytes of a pixel. The fourth is straight alpha; opaque movies ignore it.
enum class PixelFormat { bgra, rgba };

/// A picture with 8 bits a channel, rows without gaps, the top row first. A PixelBufferPool makes
/// it. It can be moved but not copied.
class PixelBuffer {
public:
    /// Empty, without memory.
    PixelBuffer() = default;

    struct Layout {
        int width = 0;
        int height = 0;
        std::ptrdiff_t bytesPerRow = 0;
        PixelFormat format = PixelFormat::bgra;
    };

    [[nodiscard]] bool isEmpty() const { return !memory_; }

    [[nodiscard]] int width() const { return layout_.width; }

    [[nodiscard]] int height() const { return layout_.height; }

    [[nodiscard]] std::ptrdiff_t bytesPerRow() const { return layout_.bytesPerRow; }

    [[nodiscard]] PixelFormat format() const { return layout_.format; }

    [[nodiscard]] std::uint8_t* row(int y) { return memory_.get() + y * layout_.bytesPerRow; }

    [[nodiscard]] const std::uint8_t* row(int y) const {
        return memory_.get() + y * layout_.bytesPerRow;
    }

private:
    friend class PixelBufferPool;

    using Memory = std::unique_ptr<std::uint8_t, std::function<void(std::uint8_t*)>>;

    PixelBuffer(Memory bytes, const Layout& shape)
        : memory_(std::move(bytes))
        , layout_(shape) {}

    Memory memory_;
    Layout layout_;
};

/// Pictures of one size and format. Memory of destroyed pictures is reused, so that writing a movie
/// needs no allocation for each frame. Pictures may be destroyed on any thread and may outlive the
/// pool.
class PixelBufferPool {
public:
    /// Sides from 1 to 16384.
    PixelBufferPool(int width, int height, PixelFormat format);

    /// A free picture, or a new one if all are in use. Content is undefined. Any thread.
    [[nodiscard]] PixelBuffer acquire();

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace zelvo::media
