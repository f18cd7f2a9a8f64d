// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>

namespace zelvo::render {

enum class HandleKind { buffer, texture, sampler, framebuffer, vertexArray, program };

/// Deletes an OpenGL object. Its context, or one that shares with it, must be current.
void deleteHandle(HandleKind kind, std::uint32_t name);

/// Owns one OpenGL object. Move only. Name 0 = no object.
template <HandleKind kind> class Handle {
public:
    Handle() = default;

    explicit Handle(std::uint32_t name)
        : name_(name) {}

    Handle(Handle&& other) noexcept
        : name_(std::exchange(other.name_, 0)) {}

    Handle& operator=(Handle&& other) noexcept {
        std::swap(name_, other.name_);
        return *this;
    }

    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    ~Handle() {
        if (name_ != 0)
            deleteHandle(kind, name_);
    }

    [[nodiscard]] std::uint32_t name() const { return name_; }

    [[nodiscard]] explicit operator bool() const { return name_ != 0; }

private:
    std::uint32_t name_ = 0;
};

using BufferHandle = Handle<HandleKind::buffer>;
using TextureHandle = Handle<HandleKind::texture>;
using SamplerHandle = Handle<HandleKind::sampler>;
using FramebufferHandle = Handle<HandleKind::framebuffer>;
using VertexArrayHandle = Handle<HandleKind::vertexArray>;
using ProgramHandle = Handle<HandleKind::program>;

} // namespace zelvo::render
