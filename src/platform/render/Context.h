// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <memory>
#include <string>

namespace zelvo::render {

/// What the driver of a context can do.
struct DeviceInfo {
    std::string name;
    /// draws on the CPU: passes and texture reads are slow, transfers are fast
    bool isSoftware = false;
    float maxAnisotropy = 1;   ///< 1 = none
    int uniformAlignment = 16; ///< bytes; for offsets into a uniform buffer
};

/// Reads it from the context that is current on this thread.
[[nodiscard]] DeviceInfo readDeviceInfo();

/// An OpenGL 4.5 core context without a window. It prefers a graphics card (EGL's device platform).
/// Without one, or with ZELVO_SOFTWARE=1 in the environment, Mesa draws on the CPU (surfaceless
/// platform).
class HeadlessContext {
public:
    /// The new context is current on this thread. Error: `unavailable`, with a list of what was
    /// tried.
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
