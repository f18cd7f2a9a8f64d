// SPDX-License-Identifier: MIT
#pragma once

#include "export/FrameSource.h"

#include <cmath>
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

namespace zelvo::test {

/// What a fake renderer was asked to do.
struct FakeRendering {
    std::vector<double> drawn; ///< times of the frames, in this order
    int mostInFlight = 0;
    std::function<void()> onDraw;      ///< called for each frame; may be empty
    std::vector<std::uint8_t> picture; ///< of all frames; empty: grey ones
    double drawMs = 0;                 ///< for each frame
};

/// Frames without a graphics card. Each is one grey, which increases by 2 in each frame and then
/// starts again at 16.
class FakeFrames final : public movie::FrameSource {
public:
    explicit FakeFrames(FakeRendering& log)
        : rendering(log) {}

    static int greyOf(double time) {
        return 16 + 2 * static_cast<int>(std::lround(time * 60) % 100);
    }

    scene::SCNSceneRenderer& renderer() override { return view; }

    void begin(const render::FrameRequest& request) override {
        view.update(request.time);
        rendering.drawn.push_back(request.time);
        if (rendering.onDraw)
            rendering.onDraw();
        begun.push_back(request);
        rendering.mostInFlight = std::max(rendering.mostInFlight, framesInFlight());
    }

    render::FrameView finish() override {
        const render::FrameRequest request = begun.front();
        begun.pop_front();
        const auto [width, height] = request.outputSize;
        pixels.assign(
            4 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
            static_cast<std::uint8_t>(greyOf(request.time)));
        return {request.outputSize, rendering.picture.empty() ? pixels : rendering.picture};
    }

    [[nodiscard]] int framesInFlight() const override { return static_cast<int>(begun.size()); }

    [[nodiscard]] render::FrameTimes times() const override {
        const auto count = static_cast<double>(rendering.drawn.size());
        return {.drawMs = rendering.drawMs * count};
    }

    void resetTimes() override {}

private:
    FakeRendering& rendering;
    scene::HeadlessView view;
    std::deque<render::FrameRequest> begun;
    std::vector<std::uint8_t> pixels;
};

} // namespace zelvo::test
