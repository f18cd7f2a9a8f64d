// SPDX-License-Identifier: MIT
// The cost of moving the colour slider: a hundred colours in a row, from the first call until the
// last colour is on the stage. A tint that is replaced before it starts is skipped, so the wait at
// the end is for two tints at most. The interface waits only for the calls.
#include "environments/SceneManager.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/RunLoop.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace {

using namespace zelvo;
using Clock = std::chrono::steady_clock;

constexpr int kColors = 100;
constexpr image::Color kLast{1, 0, 0, 1};

[[nodiscard]] image::Color sliderAt(int step) {
    return step == kColors - 1 ? kLast : image::Color{0, static_cast<float>(step) / kColors, 1, 1};
}

/// Of a cube, the first face.
[[nodiscard]] image::ImagePtr pictureOf(const scene::SCNMaterialProperty& background) {
    const auto* const faces = std::get_if<scene::CubeImages>(&background.contents);
    return faces != nullptr ? faces->front() : background.image();
}

/// Red is only in the last colour.
[[nodiscard]] bool showsLast(const scene::SCNMaterialProperty& background) {
    const image::ImagePtr picture = pictureOf(background);
    return picture != nullptr && picture->pixels.at(0) > 0 && picture->pixels.at(2) == 0;
}

[[nodiscard]] int indexOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

/// The environment of this run, with its name as the label.
[[nodiscard]] environments::SNEPtr
makeEnvironment(benchmark::State& state, foundation::RunLoop& loop) {
    const auto& names = environments::SceneManager::sceneNames;
    state.SetLabel(std::string(names.at(static_cast<std::size_t>(indexOf(state)))));
    environments::SNEPtr made = environments::SceneManager::sceneData(indexOf(state), loop);
    CHECK(made != nullptr, "no environment {}", indexOf(state));
    return made;
}

/// Returns the time of the longest call.
Clock::duration setAllColors(environments::SNE& environment) {
    Clock::duration longest{};
    for (int i = 0; i < kColors; ++i) {
        const auto began = Clock::now();
        environment.setBackground(sliderAt(i));
        longest = std::max(longest, Clock::now() - began);
    }
    return longest;
}

void hundredColors(benchmark::State& state) {
    foundation::WallRunLoop loop;
    Clock::duration longest{};
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const environments::SNEPtr environment = makeEnvironment(state, loop);
        state.ResumeTiming();
        longest = std::max(longest, setAllColors(*environment));
        loop.runUntil([&] { return showsLast(environment->scene->background); });
    }
    state.counters["longest call, ms"] = std::chrono::duration<double, std::milli>(longest).count();
}

/// Sets a colour and waits for a frame; whether another picture is there then.
bool isSeen(environments::SNE& environment, const image::Color& color, foundation::RunLoop& loop) {
    constexpr double kFrame = 1.0 / 60;
    const auto before = pictureOf(environment.scene->background);
    environment.setBackground(color);
    bool isOver = false;
    loop.asyncAfter(kFrame, [&] { isOver = true; });
    loop.runUntil([&] { return isOver; });
    return pictureOf(environment.scene->background) != before;
}

/// A drag with a colour for each frame: how many of them were seen?
void drag(benchmark::State& state) {
    foundation::WallRunLoop loop;
    const environments::SNEPtr environment = makeEnvironment(state, loop);
    int seen = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < kColors; ++i)
            seen += isSeen(*environment, sliderAt(i), loop) ? 1 : 0;
    }
    state.counters["seen, of 100"] = seen;
}

// Shiny, Spherical, Backlight, SpaceBox: those with a painted background.
BENCHMARK(hundredColors)
    ->Arg(2)
    ->Arg(3)
    ->Arg(5)
    ->Arg(7)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(drag)->Arg(2)->Arg(3)->Arg(5)->Arg(7)->Iterations(1)->UseRealTime();

} // namespace
