// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Handles.h"
#include "platform/render/PixelRect.h"
#include "platform/render/Size.h"

#include <glm/vec3.hpp>

#include <array>
#include <cstdint>
#include <optional>

namespace zelvo::render {

/// Depth is reversed everywhere: 1 at the near plane, 0 at the far plane.
enum class DepthTest { off, nearer, nearerOrEqual, equal };
enum class DepthWrite { off, on };
enum class Culling { none, backFaces };
enum class Winding { counterClockwise, clockwise };
enum class Fill { faces, lines };
enum class ColorWrite { off, on };

/// How a new colour is mixed with the target's. Colours are premultiplied by their alpha.
enum class Blend { off, over, add, subtract, multiply, screen, greatest };
/// Which kind of colour is blended; see `color.glsl`. It decides what happens to the target's alpha.
enum class Colors { shown, ofScene };

struct RasterState {
    DepthTest depthTest = DepthTest::nearer;
    DepthWrite depthWrite = DepthWrite::on;
    Culling culling = Culling::backFaces;
    Winding winding = Winding::counterClockwise;
    Fill fill = Fill::faces;
    ColorWrite colorWrite = ColorWrite::on;
    Blend blend = Blend::off;
    Colors colors = Colors::shown;

    friend bool operator==(const RasterState&, const RasterState&) = default;
};

/// The only place that sets OpenGL state. It remembers the current state and skips calls that would
/// not change it. If other code used the context, call `forget`.
///
/// Clip space has depth 0 to 1 and its y axis points down: row 0 of every target is the top row.
class GraphicsState {
public:
    static constexpr std::size_t kUnits = 24;

    void forget();

    /// Restores OpenGL's initial state, where this class changed it. Call `forget` before the next
    /// use.
    void handBack();

    void bindFramebuffer(std::uint32_t name, Size size);
    void useProgram(std::uint32_t name);
    void bindVertexArray(std::uint32_t name);
    void bindTexture(std::uint32_t unit, std::uint32_t texture, std::uint32_t sampler);
    void
    bindUniforms(std::uint32_t binding, std::uint32_t buffer, std::size_t offset, std::size_t size);
    void set(const RasterState& state);
    /// Limits drawing to a part of the target; nothing = the whole target.
    void setScissor(const std::optional<PixelRect>& part);
    void clearDepth();
    /// A linear colour that is shown as it is.
    void clearColor(const glm::vec3& color);
    /// Colour and alpha to 0, and the depth.
    void clear();

    /// Call it after a texture, framebuffer or program was deleted, as OpenGL may reuse its name.
    void forgetBindings();

private:
    struct Texture {
        std::uint32_t texture = 0;
        std::uint32_t sampler = 0;
    };

    std::optional<std::uint32_t> framebuffer;
    Size viewport;
    std::optional<std::uint32_t> program;
    std::optional<std::uint32_t> vertexArray;
    std::array<std::optional<Texture>, kUnits> textures;
    std::optional<RasterState> raster;
};

} // namespace zelvo::render
