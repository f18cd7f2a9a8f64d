// SPDX-License-Identifier: MIT
// What the pointer is over: two texts of a hundred letters, and an object of 200,000 triangles. The
// first call after a change of shapes builds their trees of boxes; it is measured apart.
#include "content/FontManager.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/text/FontRegistry.h"
#include "ui/layouter/NodePicker.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace {

using namespace zelvo;

constexpr int kSegments = 448; ///< a sphere has as many triangles as their square
constexpr int kLetters = 100;
constexpr int kSteps = 24; ///< places across and down the view
constexpr glm::vec2 kView{1280, 720};

struct LoadedStage {
    LoadedStage() {
        content::FontManager(fonts).registerBuiltIns(foundation::mainBundle());
        nodes.cameraNode->camera = std::make_shared<scene::SCNCamera>();
        std::string text;
        while (text.size() < kLetters)
            text += "TITLE HERE";
        nodes.textNode1->setText(text);
        nodes.textNode2->setText(text);
        setObject();
    }

    void setObject() {
        auto ball = std::make_shared<scene::SCNSphere>(100);
        ball->setSegmentCount(kSegments);
        auto node = std::make_shared<scene::SCNNode>();
        node->geometry = std::move(ball);
        (void)node->geometry->mesh(); // only the search is measured
        nodes.mediaNode->setCustomNode(std::move(node));
    }

    text::FontRegistry fonts;
    foundation::UserDefaults defaults;
    foundation::VirtualRunLoop loop;
    stage::Nodes nodes{node::Surroundings{&fonts, &defaults, &loop, {}, node::DeviceIdiom::tablet}};
};

LoadedStage& loadedStage() {
    static LoadedStage stage;
    return stage;
}

ui::StagePlace placeOf(int step) {
    const glm::vec2 share(step % kSteps, step / kSteps % kSteps);
    return {(share + 0.5f) / static_cast<float>(kSteps) * kView, kView};
}

void pickAllOverTheView(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    const stage::Nodes& nodes = loadedStage().nodes;
    for (int step = 0; step < kSteps * kSteps; ++step)
        benchmark::DoNotOptimize(ui::nodeAt(nodes, placeOf(step), nullptr)); // builds the trees
    Clock::duration longest{};
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        const auto began = Clock::now();
        benchmark::DoNotOptimize(ui::nodeAt(nodes, placeOf(step++), nullptr));
        longest = std::max(longest, Clock::now() - began);
    }
    state.counters["longest, ms"] = std::chrono::duration<double, std::milli>(longest).count();
}

void pickAfterTheObjectChanged(benchmark::State& state) {
    LoadedStage& stage = loadedStage();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        stage.setObject();
        state.ResumeTiming();
        benchmark::DoNotOptimize(ui::nodeAt(stage.nodes, {kView / 2.0f, kView}, nullptr));
    }
}

BENCHMARK(pickAllOverTheView)->Unit(benchmark::kMillisecond);
BENCHMARK(pickAfterTheObjectChanged)->Unit(benchmark::kMillisecond);

} // namespace
