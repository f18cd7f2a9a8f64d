// SPDX-License-Identifier: MIT
#include "platform/render/Handles.h"

#include <epoxy/gl.h>

namespace zelvo::render {

void deleteHandle(HandleKind kind, std::uint32_t name) {
    switch (kind) {
    case HandleKind::buffer:
        glDeleteBuffers(1, &name);
        break;
    case HandleKind::texture:
        glDeleteTextures(1, &name);
        break;
    case HandleKind::sampler:
        glDeleteSamplers(1, &name);
        break;
    case HandleKind::framebuffer:
        glDeleteFramebuffers(1, &name);
        break;
    case HandleKind::vertexArray:
        glDeleteVertexArrays(1, &name);
        break;
    case HandleKind::program:
        glDeleteProgram(name);
        break;
    }
}

} // namespace zelvo::render
