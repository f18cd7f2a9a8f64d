// SPDX-License-Identifier: MIT
// What a finger on the colour slider costs: a hundred colours in a row, from the first call until
// the last one is on the stage. A tint that is overtaken before it began is left out, so that the
// wait at the end is that of two tints at most and not of a hundred; the calls alone are what the
// interface waits for.
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

/// Red came with the last colour alone. Where a cube is shown its first face tells.
[[nodiscard]] bool showsLast(const scene::SCNMaterialProperty& background) {
    const auto* const faces = std::get_if<scene::CubeImages>(&background.contents);
    const image::ImagePtr picture = faces != nullptr ? faces->front() : background.image();
    return picture != nullptr && picture->pixels.at(0) > 0 && picture->pixels.at(2) == 0;
}

void hundredColors(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const auto index = static_cast<int>(state.range(0));
    state.SetLabel(std::string(look::SceneManager::sceneNames.at(static_cast<std::size_t>(index))));
    foundation::WallRunLoop loop;
    Clock::duration longest{};
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const look::SNEPtr environment = look::SceneManager::sceneData(index, loop);
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

// Shiny, Spherical, Backlight, SpaceBox: those whose background is painted.
BENCHMARK(hundredColors)
    ->Arg(2)
    ->Arg(3)
    ->Arg(5)
    ->Arg(7)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication process(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
