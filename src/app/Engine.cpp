// SPDX-License-Identifier: MIT
#include "app/Engine.h"

#include "app/Stopwatch.h"
#include "export/RendererFrames.h"
#include "platform/foundation/Console.h"
#include "platform/foundation/Random.h"

#include <fmt/format.h>

namespace zelvo::app {

namespace {

/// Seconds until the opening fly-in, which every start of the program shows, has ended.
constexpr double kOpening = 0.5;

void sayAlert(const std::string& title, const std::string& message) {
    foundation::logLine(message.empty() ? title : fmt::format("{}: {}", title, message));
}

} // namespace

Engine::Engine(
    foundation::VirtualRunLoop& loop, const foundation::Folders& folders, std::uint64_t seed)
    : runLoop(loop)
    , defaults(folders.config / "defaults.json")
    , nodes(surroundings())
    , model_(
          {.runLoop = runLoop,
           .nodes = nodes,
           .folders = folders,
           .makeFrames = [] { return movie::makeRendererFrames(&stopwatchSeconds); },
           .makeAudioOutput = {},
           // No alerts: the result of an export contains its errors.
           .showAlert = {}})
    , viewClock(view) {
    foundation::seedRandom(seed);
    model_.setSceneView(&view);
    runLoop.runFor(kOpening);
}

node::Surroundings Engine::surroundings() {
    content::FontManager(fonts).registerBuiltIns(foundation::mainBundle());
    return {&fonts, &defaults, &runLoop, &sayAlert, node::DeviceIdiom::tablet};
}

} // namespace zelvo::app
