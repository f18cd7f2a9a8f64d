// SPDX-License-Identifier: MIT
#pragma once

#include "content/FontManager.h"
#include "model/HeadlessViewClock.h"
#include "model/Model.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/scene/SCNSceneRenderer.h"
#include "platform/text/FontRegistry.h"
#include "stage/Nodes.h"

#include <cstdint>

namespace zelvo::app {

/// The whole system on the virtual clock, with a view that shows nothing and sound that nobody
/// hears. Starts up in the program's order: settings, fonts, stage, model.
class Engine {
public:
    /// `seed` starts the random draws: the same seed, the same movie. The loop outlives the engine.
    Engine(
        foundation::VirtualRunLoop& loop, const foundation::Folders& folders, std::uint64_t seed);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    foundation::VirtualRunLoop& runLoop;

    [[nodiscard]] core::Model& model() { return model_; }

    [[nodiscard]] core::Nodes& stage() { return nodes; }

private:
    [[nodiscard]] core::Surroundings surroundings();

    foundation::UserDefaults defaults;
    text::FontRegistry fonts;
    core::Nodes nodes;
    scene::HeadlessView view;
    core::Model model_;
    core::HeadlessViewClock viewClock;
};

} // namespace zelvo::app
