// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <memory>
#include <string>

namespace zelvo::render {

/// What the current context's driver is and can do.
struct DeviceInfo {
    std::string name;
    bool isSoftware = false;   ///< draws on the CPU: fetches and passes are dear, transfers cheap
    float maxAnisotropy = 1;   ///< 1: none
    int uniformAlignment = 16; ///< bytes, of ranges of a uniform buffer
};

/// Of the context that is current on this thread.
[[nodiscard]] DeviceInfo readDeviceInfo();

/// An OpenGL 4.5 core context without a window system. A graphics card is preferred (EGL's device
/// platform); without one, or with ZELVO_SOFTWARE=1 in the environment, Mesa draws on the CPU (its
/// surfaceless platform).
class HeadlessContext {
public:
    /// Makes it and makes it current on this thread. Error: unavailable, with what was tried.
    [[nodiscard]] static foundation::Result<std::unique_ptr<HeadlessContext>> make();
    ~HeadlessContext();
    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;

    void makeCurrent() const;

private:
    struct Names;
    explicit HeadlessContext(std::unique_ptr<Names> made);
    std::unique_ptr<Names> names;
};

} // namespace zelvo::render
