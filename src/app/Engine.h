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

/// The program without a window: with a virtual clock, a view that draws nothing, and no sound
/// output. Its parts start in this order: settings, fonts, stage, model.
class Engine {
public:
    /// `seed` is for all random numbers: the same seed gives the same movie. The loop must outlive
    /// the engine.
    Engine(
        foundation::VirtualRunLoop& loop, const foundation::Folders& folders, std::uint64_t seed);
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    foundation::VirtualRunLoop& runLoop;

    [[nodiscard]] model::Model& model() { return model_; }

    [[nodiscard]] stage::Nodes& stage() { return nodes; }

private:
    [[nodiscard]] node::Surroundings surroundings();

    foundation::UserDefaults defaults;
    text::FontRegistry fonts;
    stage::Nodes nodes;
    scene::HeadlessView view;
    model::Model model_;
    model::HeadlessViewClock viewClock;
};

} // namespace zelvo::app
