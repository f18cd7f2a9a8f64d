// SPDX-License-Identifier: MIT
// The cost of a tick of the clock with a long performance: the model looks at every record, the
// scene advances by a frame.
#include "content/FontManager.h"
#include "model/HeadlessViewClock.h"
#include "model/Model.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/scene/SCNAction.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

using namespace zelvo;

constexpr int kRecords = 500;
constexpr int kActions = 100;
constexpr double kForever = 1e9; ///< seconds; nothing ends during the measurement

void tick(benchmark::State& state) {
    foundation::VirtualRunLoop loop;
    foundation::UserDefaults defaults;
    text::FontRegistry fonts;
    content::FontManager(fonts).registerBuiltIns(foundation::mainBundle());
    stage::Nodes nodes(node::Surroundings{&fonts, &defaults, &loop, {}, node::DeviceIdiom::tablet});
    scene::HeadlessView view;
    model::Model model(
        {.runLoop = loop,
         .nodes = nodes,
         .folders = foundation::Folders::below(std::filesystem::temp_directory_path()),
         .makeFrames = {},
         .makeAudioOutput = {},
         .showAlert = {}});
    const model::HeadlessViewClock viewClock(view);
    model.setSceneView(&view);
    model.setDuration(kForever);
    model.start();
    loop.runFor(1);
    for (int i = 0; i < kRecords; ++i) {
        auto& controller = model.actionController();
        controller.addAction(
            [] {}, controller.newIdentifier(), "record", actions::RegisterUndo::yes);
    }
    loop.runFor(2);
    for (int i = 0; i < kActions; ++i) {
        const auto letter = nodes.textNode1->letters()[static_cast<std::size_t>(i % 5)];
        letter->runAction(scene::SCNAction::moveBy({1, 2, 3}, kForever));
    }
    for ([[maybe_unused]] auto _ : state)
        model.runTimedCode();
}

BENCHMARK(tick)->Unit(benchmark::kMicrosecond);

} // namespace
