// SPDX-License-Identifier: MIT
#pragma once

#include "platform/render/Handles.h"
#include "platform/render/PixelRect.h"
#include "platform/render/Size.h"

#include <array>
#include <cstdint>
#include <optional>

namespace zelvo::render {

/// Depth is reversed everywhere: 1 at the near plane, 0 far away.
enum class DepthTest { off, nearer, nearerOrEqual, equal };
enum class DepthWrite { off, on };
enum class Culling { none, backFaces };
enum class Winding { counterClockwise, clockwise };
enum class Fill { faces, lines };
enum class ColorWrite { off, on };

/// How a fragment meets what stands in the target; colours are premultiplied by their alpha.
enum class Blend { off, over, add, subtract, multiply, screen };

struct RasterState {
    DepthTest depthTest = DepthTest::nearer;
    DepthWrite depthWrite = DepthWrite::on;
    Culling culling = Culling::backFaces;
    Winding winding = Winding::counterClockwise;
    Fill fill = Fill::faces;
    ColorWrite colorWrite = ColorWrite::on;
    Blend blend = Blend::off;

    friend bool operator==(const RasterState&, const RasterState&) = default;
};

/// The one place that sets OpenGL state. It remembers what it set, so that setting it again costs
/// nothing; after others have used the context, `forget` drops the memory.
///
/// Clip space has depth 0 to 1 and its y axis downwards in the picture: row 0 of every target is
/// the top one.
class GraphicsState {
public:
    static constexpr std::size_t kUnits = 24;

    void forget();

    /// Leaves the context in OpenGL's initial state, as far as this class has touched it. `forget`
    /// comes before the next use.
    void handBack();

    void bindFramebuffer(std::uint32_t name, Size size);
    void useProgram(std::uint32_t name);
    void bindVertexArray(std::uint32_t name);
    void bindTexture(std::uint32_t unit, std::uint32_t texture, std::uint32_t sampler);
    void
    bindUniforms(std::uint32_t binding, std::uint32_t buffer, std::size_t offset, std::size_t size);
    void set(const RasterState& state);
    /// Depth is drawn this much farther away (units and slope as OpenGL defines them); 0 turns it
    /// off.
    void setDepthOffset(float units, float slope);
    /// Nothing is drawn outside of the part; absent: everywhere.
    void setScissor(const std::optional<PixelRect>& part);
    void clearDepth();
    void clearColor(float red, float green, float blue);

    /// A texture, framebuffer or program was deleted: its name may come back for another.
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
