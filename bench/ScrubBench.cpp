// SPDX-License-Identifier: MIT
// A click on the time line: the stage at a moment near the end of 20 seconds with 60 acts, all of which
// are replayed from the beginning.
#include "app/Engine.h"
#include "catalogue/Catalogue.h"
#include "document/Performer.h"
#include "platform/foundation/TemporaryFolder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace zelvo;

constexpr double kDuration = 20; ///< seconds
constexpr std::size_t kActs = 60;

/// One button after the other, from all tabs; a held one for half a second.
document::Performance performance() {
    document::Performance made;
    std::size_t number = 0;
    while (made.cues.size() < kActs) {
        for (const catalogue::Tab& tab : catalogue::tabs()) {
            const auto buttons = tab.buttons();
            const catalogue::Button& button = buttons[number % buttons.size()];
            document::Press press;
            press.tab = tab.shortTitle;
            press.title = button.title;
            press.isHeld = button.isHold();
            if (press.isHeld)
                press.held = 0.5;
            if (made.cues.size() < kActs)
                made.cues.push_back(
                    {kDuration * static_cast<double>(made.cues.size()) / kActs, press});
        }
        ++number;
    }
    return made;
}

/// The program, with the performance.
struct Stage {
    Stage() {
        engine.model().setDuration(kDuration);
        document::perform(performance(), engine.model());
        loop.runFor(1);
    }

    foundation::VirtualRunLoop loop;
    const foundation::Result<foundation::TemporaryFolder> folder =
        foundation::TemporaryFolder::make(std::filesystem::temp_directory_path());
    app::Engine engine{loop, foundation::Folders::below(folder->path()), 1};
};

void seek(benchmark::State& state) {
    Stage stage;
    app::Engine& engine = stage.engine;
    for ([[maybe_unused]] auto _ : state) {
        engine.model().seek(0);
        engine.model().seek(kDuration - 0.1);
    }
    state.counters["records"] =
        static_cast<double>(engine.model().actionController().recordedActions().size());
    std::size_t particles = 0;
    engine.model().seek(0);
    constexpr int kLooks = 200;
    for (int look = 0; look < kLooks; ++look) {
        engine.model().seek(kDuration * look / kLooks);
        for (const auto& node : engine.stage().particleAndParticleLightHolder->childNodes()) {
            for (const auto& emitter : node->emitters())
                particles += emitter->live().size();
        }
    }
    state.counters["particles"] = static_cast<double>(particles) / kLooks;
}

BENCHMARK(seek)->Unit(benchmark::kMillisecond);

/// The next frame while the hand drags forward.
void seekOn(benchmark::State& state) {
    Stage stage;
    double at = 0;
    for ([[maybe_unused]] auto _ : state) {
        at = at < kDuration ? at + shared::FrameClock::kStep : 0;
        stage.engine.model().seek(at);
    }
}

BENCHMARK(seekOn)->Unit(benchmark::kMicrosecond)->Iterations(1100);

} // namespace
