// SPDX-License-Identifier: MIT
#include "platform/media/PixelBuffer.h"

#include "platform/foundation/Check.h"

#include <mutex>
#include <utility>
#include <vector>

namespace zelvo::media {
namespace {

constexpr int kMaxSide = 16384;
constexpr int kBytesPerPixel = 4;

using Bytes = std::unique_ptr<std::uint8_t[]>; // NOLINT(modernize-avoid-c-arrays): left
                                               // uninitialised on purpose

PixelBuffer::Layout tightLayout(int width, int height, PixelFormat format) {
    CHECK(
        width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide,
        "no picture of {} x {}",
        width,
        height);
    return {width, height, static_cast<std::ptrdiff_t>(width) * kBytesPerPixel, format};
}

Bytes makeBytes(const PixelBuffer::Layout& layout) {
    return Bytes(new std::uint8_t[static_cast<std::size_t>(layout.bytesPerRow * layout.height)]);
}

} // namespace

struct PixelBufferPool::State {
    PixelBuffer::Layout layout;
    std::mutex mutex;        // guards free
    std::vector<Bytes> free; // memory of destroyed pictures
};

PixelBufferPool::PixelBufferPool(int width, int height, PixelFormat format)
    : state(std::make_shared<State>()) {
    state->layout = tightLayout(width, height, format);
}

PixelBuffer PixelBufferPool::acquire() {
    Bytes bytes;
    {
        const std::lock_guard lock(state->mutex);
        if (!state->free.empty()) {
            bytes = std::move(state->free.back());
            state->free.pop_back();
        }
    }
    if (!bytes)
        bytes = makeBytes(state->layout);
    const auto giveBack = [pool = state](std::uint8_t* memory) {
        const std::lock_guard lock(pool->mutex);
        pool->free.emplace_back(memory);
    };
    return {PixelBuffer::Memory(bytes.release(), giveBack), state->layout};
}

} // namespace zelvo::media
