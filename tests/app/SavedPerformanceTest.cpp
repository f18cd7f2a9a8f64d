// SPDX-License-Identifier: MIT
// The movie of what a hand did, against the movie of the saved performance.
#include "app/Engine.h"
#include "app/Export.h"
#include "catalogue/Catalogue.h"
#include "document/EngineNames.h"
#include "document/PerformanceWriter.h"
#include "document/Performer.h"
#include "document/SetUp.h"
#include "document/StageReading.h"
#include "platform/foundation/Lifetime.h"
#include "platform/foundation/Random.h"
#include "shared/Signal.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zelvo::app {

namespace {

constexpr int kSceneWithParticles = 7;

using Pictures = std::map<int, std::vector<std::uint8_t>>;

struct World {
    explicit World(std::uint64_t seed)
        : engine(loop.runLoop(), foundation::Folders::below(folder.path()), seed) {}

    void press(const char* tab, const char* title) {
        const catalogue::Tab& row = *catalogue::tabNamed(tab);
        const auto buttons = row.buttons();
        catalogue::press(
            row,
            *std::ranges::find(buttons, title, &catalogue::Button::title),
            {engine.model().actionController(),
             engine.stage().content(),
             engine.model().animationFactor()},
            foundation::arc4random());
    }

    void play(std::multimap<double, std::function<void()>> deeds) {
        const foundation::Lifetime listening;
        model::Model& model = engine.model();
        ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
            while (model.isPlaying() && !deeds.empty() && deeds.begin()->first <= state.time)
                deeds.extract(deeds.begin()).mapped()();
        });
        model.start();
        (void)loop.runLoop().runUntil([&] { return !model.isPlaying(); });
    }

    [[nodiscard]] Pictures movie() {
        Pictures pictures;
        movie::MovieOptions options;
        options.renderSize = {192, 108};
        options.writesMovie = false;
        options.tap = movie::FrameTap{
            .wants = [](int frame) { return frame % 9 == 0; },
            .take = [&](int frame, const render::FrameView& picture) -> foundation::Result<void> {
                pictures[frame].assign(picture.bytes.begin(), picture.bytes.end());
                return {};
            },
            .count = 14};
        const auto made = exportMovie(engine, loop, options);
        EXPECT_TRUE(made) << made.error().message;
        return pictures;
    }

    StoppableLoop loop;
    test::TemporaryFolder folder;
    Engine engine;
};

} // namespace

TEST(SavedPerformance, has_the_same_frames_as_that_of_the_hand) {
    World hand(20);
    model::Model& model = hand.engine.model();
    model.setDuration(2);
    model.setScene(kSceneWithParticles);
    hand.engine.stage().textNode1->setText("HAND");
    hand.engine.stage().textNode1->setLayoutPosition({12.345F, 40.1F, -3});
    hand.engine.stage().textNode2->rotYNode->setRotation(
        {0, 1, 0, static_cast<float>(35 * double{3.14159274F} / 180)});
    hand.play(
        {{2.0, [&] { hand.press("IN3", "Implode In"); }},
         {2.5, [&] { hand.press("CAM", "Turbulence Cam"); }},
         {2.9, [&] { hand.press("FX2", "Drop"); }},
         {3.2, [&] { hand.press("TXT", "LettersExplosion"); }}});
    const std::string text = document::written(
        {document::styleOf(model), foundation::randomSeed(), document::cuesOf(model)});
    hand.play({}); // live replays draw other random numbers, which must not reach the movie
    const Pictures wanted = hand.movie();
    EXPECT_EQ(hand.movie(), wanted) << "a performance has one movie";

    World other(99);
    const auto read = document::readPerformance(text, document::engineNames());
    ASSERT_TRUE(read) << read.error().front().text;
    foundation::seedRandom(*read->seed);
    ASSERT_TRUE(document::setUp(*read, {}, other.engine.model()));
    document::perform(*read, other.engine.model());
    const Pictures pictures = other.movie();
    ASSERT_EQ(pictures.size(), wanted.size());
    for (const auto& [frame, picture] : wanted)
        EXPECT_TRUE(pictures.at(frame) == picture) << "frame " << frame;
}

} // namespace zelvo::app
