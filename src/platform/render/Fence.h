// SPDX-License-Identifier: MIT
#pragma once

#include <epoxy/gl.h>

#include <utility>

namespace zelvo::render {

/// Waits for the GPU to reach a point in its command stream. Include it in source files only.
class Fence {
public:
    Fence() = default;
    Fence(const Fence&) = delete;
    Fence& operator=(const Fence&) = delete;

    ~Fence() { drop(); }

    /// Marks the point after all commands so far.
    void set() {
        drop();
        sync = glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0);
    }

    /// Waits until the point is reached. Returns at once if `set` was never called.
    void await() {
        constexpr GLuint64 kOneSecond = 1'000'000'000;
        while (sync != nullptr && glClientWaitSync(sync, GL_SYNC_FLUSH_COMMANDS_BIT, kOneSecond) ==
                                      GL_TIMEOUT_EXPIRED) {
        }
        drop();
    }

private:
    void drop() {
        if (GLsync old = std::exchange(sync, nullptr))
            glDeleteSync(old);
    }

    GLsync sync = nullptr;
};

} // namespace zelvo::render
