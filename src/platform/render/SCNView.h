// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/Size.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::render {

/// Which row of a foreign framebuffer holds the top of the picture: OpenGL's own order has it last.
enum class RowOrder { bottomFirst, topFirst };

/// Where a view draws: a colour attachment of somebody else's. Other attachments are left alone.
struct ViewTarget {
    std::uint32_t framebuffer = 0;
    Size size; ///< pixels; the picture fills it
    RowOrder rows = RowOrder::bottomFirst;
};

/// How much work a view puts into a picture.
struct ViewQuality {
    /// Drawn size over the target's size, 1 to 2; the scaling down takes the place of
    /// antialiasing. 1 leaves edges with steps.
    double oversampling = 1.5;
};

/// The on-screen view's drawing: the same passes as SCNRenderer's, into a framebuffer of a context
/// that a window brings. That context is current on this thread when the view is made, whenever it
/// draws, and when it ends. The scene is read while it is drawn: it must not change meanwhile on
/// another thread.
///
/// Nothing is assumed of the context's state before a draw, and OpenGL's initial state is left
/// behind (with the target bound), beyond what a toolkit's own reset would mend: clip control,
/// samplers, winding, blend equation.
class SCNView final : public scene::SCNSceneRenderer {
public:
    /// Error: unavailable, where the context has no OpenGL 4.5.
    [[nodiscard]] static foundation::Result<std::unique_ptr<SCNView>> make();
    ~SCNView() override;

    ViewQuality quality;

    /// Draws the scene as it stands, as after `update`.
    void draw(const ViewTarget& target);

    /// Of the picture that `draw` would make now of a target so many times as wide as high: equal
    /// ones, one after the other, are equal pictures, which need not be drawn again. Empty: the
    /// picture is never the same, as with particles or a technique.
    [[nodiscard]] std::optional<std::uint64_t> pictureKey(double aspect);

    [[nodiscard]] std::string deviceName() const;

private:
    SCNView();
    struct State;
    std::unique_ptr<State> state;
};

} // namespace zelvo::render
