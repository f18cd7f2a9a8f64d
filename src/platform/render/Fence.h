// SPDX-License-Identifier: MIT
#pragma once

#include <epoxy/gl.h>

#include <utility>

namespace zelvo::render {

/// A moment in the graphics side's work that can be waited for. Included by sources only.
class Fence {
public:
    Fence() = default;
    Fence(const Fence&) = delete;
    Fence& operator=(const Fence&) = delete;

    ~Fence() { drop(); }

    /// The moment is when all that was called so far is done.
    void set() {
        drop();
        sync = glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0);
    }

    /// Returns at once if it was never set.
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
