// SPDX-License-Identifier: MIT
#pragma once

#include "export/FakeFrames.h"
#include "model/HeadlessViewClock.h"
#include "model/Model.h"
#include "platform/foundation/Random.h"
#include "shared/Signal.h"
#include "support/TemporaryFolder.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace zelvo::test {

/// The whole model on the virtual clock, with a view that is not shown and frames that are not
/// drawn.
class ModelTest : public testing::Test {
protected:
    ModelTest() {
        foundation::seedRandom(1);
        model.setSceneView(&view);
        model.movieWriter().options.renderSize = {64, 36};
        model.movieWriter().completedSignal.subscribe(
            listening,
            [this](const foundation::Result<movie::MovieOutcome>& made) { outcome = made; });
        world.runLoop.runFor(1); // the opening animation has ended
    }

    void runToTheEnd() {
        ASSERT_TRUE(world.runLoop.runUntil([this] { return !model.isPlaying(); }));
    }

    void exportMovie() {
        outcome.reset();
        ASSERT_TRUE(model.startMovie());
        const foundation::Timer waiting = world.runLoop.expectPosts();
        ASSERT_TRUE(world.runLoop.runUntil([this] { return outcome.has_value(); }));
        ASSERT_TRUE(*outcome) << outcome->error().message;
    }

    /// Calls back at every signal of the clock.
    void onTime(std::function<void(const ui::TimeState&)> callback) {
        ui::signals().timeSignal.subscribe(listening, std::move(callback));
    }

    TestWorld world;
    TemporaryFolder folder;
    const foundation::Folders folders = foundation::Folders::below(folder.path());
    text::FontRegistry addedFonts; ///< without the built-in ones
    content::FontManager fontManager{addedFonts, folders};
    stage::Nodes nodes{world.surroundings()};
    FakeRendering rendering;
    scene::HeadlessView view;
    model::Model model{
        {.runLoop = world.runLoop,
         .nodes = nodes,
         .folders = folders,
         .makeFrames = [this] { return std::make_unique<FakeFrames>(rendering); },
         .makeAudioOutput = {},
         .showAlert = {}}};
    model::HeadlessViewClock viewClock{view};
    std::optional<foundation::Result<movie::MovieOutcome>> outcome;
    foundation::Lifetime listening;
};

} // namespace zelvo::test
