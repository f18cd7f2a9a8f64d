// SPDX-License-Identifier: MIT
// The cost of moving the colour slider: a hundred colours in a row, from the first call until the
// last colour is on the stage. A tint that is replaced before it starts is skipped, so the wait at
// the end is for two tints at most. The interface waits only for the calls.
#include "environments/SceneManager.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/RunLoop.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <string>

namespace {

using namespace zelvo;

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

void hundredColors(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const auto index = static_cast<int>(state.range(0));
    state.SetLabel(
        std::string(environments::SceneManager::sceneNames.at(static_cast<std::size_t>(index))));
    foundation::WallRunLoop loop;
    Clock::duration longest{};
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const environments::SNEPtr environment = environments::SceneManager::sceneData(index, loop);
        CHECK(environment != nullptr, "no environment {}", index);
        state.ResumeTiming();
        for (int i = 0; i < kColors; ++i) {
            const auto began = Clock::now();
            environment->setBackground(sliderAt(i));
            longest = std::max(longest, Clock::now() - began);
        }
        loop.runUntil([&] { return showsLast(environment->scene->background); });
    }
    state.counters["longest call, ms"] = std::chrono::duration<double, std::milli>(longest).count();
}

/// A drag with a colour for each frame: how many of them were seen?
void drag(benchmark::State& state) {
    constexpr double kFrame = 1.0 / 60;
    const auto index = static_cast<int>(state.range(0));
    state.SetLabel(
        std::string(environments::SceneManager::sceneNames.at(static_cast<std::size_t>(index))));
    foundation::WallRunLoop loop;
    const environments::SNEPtr environment = environments::SceneManager::sceneData(index, loop);
    int seen = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < kColors; ++i) {
            const auto before = pictureOf(environment->scene->background);
            environment->setBackground(sliderAt(i));
            bool isOver = false;
            loop.asyncAfter(kFrame, [&] { isOver = true; });
            loop.runUntil([&] { return isOver; });
            seen += pictureOf(environment->scene->background) != before ? 1 : 0;
        }
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

int main(int argc, char** argv) {
    const QCoreApplication process(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
