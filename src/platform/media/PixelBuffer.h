// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace zelvo::media {

/// The order of the four bytes of a pixel in memory. The fourth is not looked at by the movie
/// writer.
enum class PixelFormat { bgra, rgba };

/// One picture of 8 bits a channel. Owns its memory, or stands for memory of somebody else and says
/// when it is done with it. Cheap to move, never copied.
///
/// Row 0 is the top one. A picture that lies bottom-up in memory (as graphics cards read back) is
/// given by the address of its last row and a negative bytesPerRow.
class PixelBuffer {
public:
    /// An empty buffer, without memory.
    PixelBuffer() = default;

    struct Layout {
        int width = 0;
        int height = 0;
        std::ptrdiff_t bytesPerRow = 0; ///< at least 4 x width, or negative
        PixelFormat format = PixelFormat::bgra;
    };

    /// Own memory, its content undefined, rows without gaps. Sizes from 1 to 16384.
    [[nodiscard]] static PixelBuffer allocate(int width, int height, PixelFormat format);

    /// Somebody else's memory, `topRow` being the address of row 0. `release` is called once, on
    /// whichever thread drops the buffer.
    [[nodiscard]] static PixelBuffer
    view(std::uint8_t* topRow, const Layout& layout, std::function<void()> release);

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

/// Pictures of one size and format whose memory comes back here when they are dropped, on any
/// thread; so a movie is written without an allocation a frame. The pictures may outlive the pool.
class PixelBufferPool {
public:
    PixelBufferPool(int width, int height, PixelFormat format);

    /// A free picture, or a new one if all are in use. Its content is undefined. Any thread.
    [[nodiscard]] PixelBuffer acquire();

private:
    struct State;
    std::shared_ptr<State> state;
};

} // namespace zelvo::media
