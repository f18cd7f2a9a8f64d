// SPDX-License-Identifier: MIT
#include "export/RendererFrames.h"

#include <utility>

namespace zelvo::movie {

namespace {

class RendererFrames final : public FrameSource {
public:
    explicit RendererFrames(std::unique_ptr<render::SCNRenderer> made)
        : offscreen(std::move(made)) {
        offscreen->jitteringEnabled = false; // a frame must depend only on its time
    }

    scene::SCNSceneRenderer& renderer() override { return *offscreen; }

    void begin(const render::FrameRequest& request) override { offscreen->begin(request); }

    render::FrameView finish() override { return offscreen->finish(); }

    [[nodiscard]] int framesInFlight() const override { return offscreen->framesInFlight(); }

    [[nodiscard]] render::FrameTimes times() const override { return offscreen->times(); }

    void resetTimes() override { offscreen->resetTimes(); }

private:
    std::unique_ptr<render::SCNRenderer> offscreen;
};

} // namespace

foundation::Result<std::unique_ptr<FrameSource>> makeRendererFrames(double (*stopwatch)()) {
    auto made = render::SCNRenderer::make();
    if (!made)
        return tl::unexpected(made.error());
    if (stopwatch != nullptr)
        (*made)->setStopwatch(stopwatch);
    return std::make_unique<RendererFrames>(std::move(*made));
}

} // namespace zelvo::movie
