// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/GraphicsState.h"
#include "platform/scene/SCNTechnique.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zelvo::render {

/// Draws the passes of a technique over a finished picture. Where a pass reads and writes the
/// frame, it goes to a second picture of the same size and the two change places.
class TechniquePasses {
public:
    /// A picture that can be read and drawn into.
    struct Surface {
        std::uint32_t texture = 0;
        std::uint32_t framebuffer = 0;
        Size size;
    };

    /// `time` in scene seconds: the same picture at the same time, live and in an export.
    void draw(
        const scene::SCNTechnique& technique,
        const Surface& frame,
        double time,
        GraphicsState& state);

private:
    struct Target {
        TextureHandle texture;
        FramebufferHandle framebuffer;
        Size size;

        [[nodiscard]] Surface surface() const { return {texture.name(), framebuffer.name(), size}; }
    };

    static void ensureSize(Target& target, Size wanted, GraphicsState& state);
    /// None if the function cannot be built, which is told once.
    [[nodiscard]] std::uint32_t program(const std::string& function);
    void ensureTools();

    Target spare;
    std::vector<Target> targets;
    std::map<std::string, ProgramHandle> programs;
    VertexArrayHandle noVertices;
    SamplerHandle smooth;
};

} // namespace zelvo::render
