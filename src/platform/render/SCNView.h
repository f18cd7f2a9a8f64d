// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/render/DrawQuality.h"
#include "platform/render/Size.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zelvo::render {

/// Which row of the target framebuffer holds the top of the picture. OpenGL's default is the last
/// one.
enum class RowOrder { bottomFirst, topFirst };

/// The caller's framebuffer to draw into. Only its first colour attachment is changed.
struct ViewTarget {
    std::uint32_t framebuffer = 0;
    Size size; ///< in pixels; the picture fills it
    RowOrder rows = RowOrder::bottomFirst;
};

/// Draws the view on screen: the same passes as SCNRenderer, into a framebuffer of the window's
/// OpenGL context. This context must be current when the view is made, drawn and destroyed. The
/// scene must not change on another thread while it is drawn.
///
/// `draw` expects no particular OpenGL state. It leaves OpenGL's initial state behind (with the
/// target bound), including what a toolkit's own reset does not restore: clip control, samplers,
/// winding, blend equation.
class SCNView final : public scene::SCNSceneRenderer {
public:
    /// Error: `unavailable` if the context has no OpenGL 4.5.
    [[nodiscard]] static foundation::Result<std::unique_ptr<SCNView>> make();
    ~SCNView() override;

    /// An oversampling above 2 counts as 2.
    DrawQuality quality;

    /// Draws the scene in its current state. Call `update` before.
    void draw(const ViewTarget& target);

    /// A hash of the picture that `draw` would make now; if it equals the last one, there is no
    /// need to draw. `aspect` is width over height. Nothing if the picture depends on time, as with
    /// particles or a technique.
    [[nodiscard]] std::optional<std::uint64_t> pictureKey(double aspect);

    [[nodiscard]] std::string deviceName() const;

private:
    SCNView();
    struct State;
    std::unique_ptr<State> state;
};

} // namespace zelvo::render
