// SPDX-License-Identifier: MIT
// What a hand records in a live run, against the document made of it.
#include "document/EngineNames.h"
#include "document/PerformanceWriter.h"
#include "document/Performer.h"
#include "document/RecordingWorld.h"
#include "document/SetUp.h"
#include "document/StageReading.h"
#include "media/MediaFixture.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace zelvo::document {

namespace {

using actions::GestureState;
using test::World;

[[nodiscard]] std::string saved(World& world) {
    Performance document{styleOf(world.model()), foundation::randomSeed(), cuesOf(world.model())};
    return written(document);
}

/// Opens the text in another program, after which that must save the same.
void reopen(const std::string& text, World& other) {
    const auto read = readPerformance(text, engineNames());
    ASSERT_TRUE(read) << read.error().front().text << '\n' << text;
    const auto ready = setUp(*read, {}, other.model());
    ASSERT_TRUE(ready) << ready.error().text;
    foundation::seedRandom(*read->seed);
    perform(*read, other.model());
    EXPECT_EQ(saved(other), text);
}

} // namespace

TEST(Recording, of_two_runs_is_the_same_after_saving_and_opening) {
    World world;
    model::Model& model = world.model();
    const auto& stage = world.stage();
    world.play(
        {{0.0, [&] { world.begin("IN1", "Left In"); }},
         {1.25,
          [&] {
              world.fingers().pan(GestureState::began, {10, 20});
          }},
         {1.30,
          [&] {
              world.fingers().pan(GestureState::changed, {13.5, 21});
          }},
         {1.31,
          [&] {
              world.fingers().pan(GestureState::changed, {14.7F, 22});
          }},
         {1.50, [&] { model.animationRatio = model::AnimationRatio::superFast; }},
         {1.60,
          [&] {
              world.fingers().pan(GestureState::cancelled, {14.7F, 22});
          }},
         {3.00, [&] { world.begin("CAM", "Quake Cam"); }},
         {4.00,
          [&] {
              world.begin("FX1", "Hide", {stage.textNode2, stage.textNode1});
          }},
         {5.00, [&] { world.end({stage.mediaNode}); }}});
    model.animationRatio = model::AnimationRatio::slow;
    world.play(
        {{1.0, [&] { world.fingers().pinch(GestureState::began, 0.3F); }},
         {1.1, [&] { world.fingers().pinch(GestureState::cancelled, 0.4F); }},
         {2.5, [&] { world.fingers().doubleTap(); }},
         {2.6, [&] { world.begin("CAM", "Zoom Cam"); }}}); // held to the end
    World other(77);
    reopen(saved(world), other);
    EXPECT_EQ(other.records(), world.records());
    for (const Cue& cue : cuesOf(other.model())) {
        if (const auto* const pan = std::get_if<Pan>(&cue.act)) {
            EXPECT_EQ(pan->releaseSpeed, "Faster");
        }
        const auto* const press = std::get_if<Press>(&cue.act);
        if (press == nullptr || press->title != "Hide")
            continue;
        EXPECT_EQ(press->nodes, (std::vector<std::string>{"TX2", "TX1"}));
        EXPECT_EQ(press->releaseNodes, std::vector<std::string>{"OBJ"});
        EXPECT_EQ(press->releaseSpeed, "Faster");
        EXPECT_EQ(press->speed, "Faster");
    }
}

TEST(Recording, shows_what_was_deleted_undone_and_redone) {
    World world;
    actions::ActionController& controller = world.model().actionController();
    world.play(
        {{1.0, [&] { world.begin("IN1", "Left In"); }},
         {1.5, [&] { world.begin("FX1", "Blur"); }},
         {2.0, [&] { world.end(); }},
         {2.5,
          [&] {
              world.fingers().pan(GestureState::began, {1, 1});
          }},
         {2.6,
          [&] {
              world.fingers().pan(GestureState::changed, {9, 1});
          }},
         {2.7,
          [&] {
              world.fingers().pan(GestureState::ended, {9, 1});
          }},
         {3.0, [&] { world.begin("IN1", "Right In"); }},
         {4.0, [&] { world.fingers().doubleTap(); }}});
    controller.undo();
    controller.undo(); // Right In
    controller.undo(); // the pan
    controller.redo(); // of which only the first touch comes back
    controller.undo();
    controller.undo(); // Blur
    controller.redo(); // without its release
    controller.redo();
    World other;
    reopen(saved(world), other);
    EXPECT_EQ(other.records(), world.records());
    EXPECT_EQ(cuesOf(other.model()).size(), 3U);
    const auto cues = cuesOf(world.model());
    EXPECT_TRUE(std::get<Press>(cues.at(1).act).isHeld);
    EXPECT_FALSE(std::get<Press>(cues.at(1).act).held);
    EXPECT_EQ(std::get<Pan>(cues.at(2).act).points.size(), 1U);
}

TEST(Recording, goes_on_with_fingers_that_were_down_before_the_run) {
    World world;
    world.fingers().pan(GestureState::began, {100, 100});
    world.fingers().pinch(GestureState::began, 0.2F);
    world.loop.runFor(0.1);
    world.play(
        {{1.0,
          [&] {
              world.fingers().pan(GestureState::changed, {140, 90});
          }},
         {1.2,
          [&] {
              world.fingers().pan(GestureState::ended, {140, 90});
          }},
         {2.0, [&] { world.fingers().pinch(GestureState::changed, 0.5F); }},
         {2.2, [&] { world.fingers().pinch(GestureState::ended, 0); }}});
    World other;
    reopen(saved(world), other);
    EXPECT_EQ(other.records(), world.records());
    const auto turnsIn = [](World& shown) {
        std::map<int, float> turns;
        const foundation::Lifetime listening;
        ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
            turns[static_cast<int>(state.time * 60)] = shown.stage().cameraYHandle->eulerAngles().y;
        });
        shown.play({});
        return turns;
    };
    const auto turned = turnsIn(world);
    EXPECT_EQ(turnsIn(other), turned);
    EXPECT_NE(turned.at(75), 0);
}

TEST(Recording, of_a_press_that_was_moved_to_a_beat_comes_in_the_same_frame) {
    World world;
    world.model().actionController().snapTime = [](double) { return 2.505; };
    world.play({{2.4, [&] { world.fingers().doubleTap(); }}, {2.6, [&] {
                                                                  world.begin("IN1", "Left In");
                                                              }}});
    const auto cues = cuesOf(world.model());
    ASSERT_EQ(cues.size(), 2U);
    EXPECT_NEAR(cues.at(1).at, 0.5167, 1e-4) << "the first frame that has reached the beat";
}

TEST(Style, of_a_stage_is_read_and_set_again_whole) {
    World world;
    media::writeWav(world.folder.path() / "song.wav", 8000, 6, media::sine(440, 0.5));
    const auto read = readPerformance(
        R"({"duration": 3.5, "speed": "fast", "scene": "Ancient", "background": "#123456",
            "nodes": {
              "TX1": {"text": "ÄÖ", "font": "Bungee-Regular", "material": "Iron", "depth": 7.3,
                      "frontColor": "#0A0B0C", "bandColor": "#FEDCBA", "bevel": 0.7,
                      "profile": "linear", "fill": "inner", "position": [1.25, -30.1, 900],
                      "scale": 0.8, "maxWidth": 60, "rotation": [35, -115, 90], "visible": false},
              "IMG": {"mask": "Mask 3", "flipV": true, "quarterTurns": 3},
              "OBJ": {"shape": "Heart", "material": "Rock", "color": "#E6B219"}},
            "audio": {"file": "song.wav", "title": "Song", "in": 1, "end": 3.5, "preRoll": 0.5, "fade": "fadeOut"},
            "cues": []})",
        engineNames());
    ASSERT_TRUE(read) << read.error().front().text;
    const Style untouched = styleOf(world.model());
    const auto ready = setUp(*read, world.folder.path(), world.model());
    ASSERT_TRUE(ready) << ready.error().text;
    const Style whole = styleOf(world.model());
    const Style wanted = completed(resolved(*read, world.folder.path()), untouched);
    EXPECT_EQ(written({whole, {}, {}}), written({wanted, {}, {}}));

    content::TextNode& text = *world.stage().textNode1;
    const auto width = [&] {
        const geometry::Box box = text.contentNode->boundingBox();
        return (box.max.x - box.min.x) * text.positionNode->scale.value().x;
    };
    EXPECT_NEAR(width(), 60, 0.2);
    text.setText("MUCH LONGER");
    EXPECT_NEAR(width(), 60, 0.2) << "while a hand types";
    text.setText("I");
    EXPECT_LT(width(), 59);
    EXPECT_EQ(text.scale2D, 0.8F);
    text.setText("ÄÖ");
    EXPECT_EQ(styleOf(world.model()), whole);

    World other;
    EXPECT_TRUE(applyStyle(whole, readMedia(whole), other.model()).empty());
    EXPECT_EQ(styleOf(other.model()), whole);
    EXPECT_TRUE(applyStyle(untouched, readMedia(untouched), other.model()).empty());
    EXPECT_EQ(styleOf(other.model()), untouched) << "and back";
    text.scale2D = 0.5F; // by the user, who knows what is wide enough
    text.applyScale();
    text.setText("MUCH LONGER");
    EXPECT_EQ(text.scale2D, 0.5F);
    EXPECT_FALSE(styleOf(world.model()).nodes.at("TX1").maxWidth);
}

TEST(Style, keeps_the_names_of_what_is_missing_and_says_so) {
    World world;
    const auto read = readPerformance(
        R"({"nodes": {"TX1": {"font": "Nobody Sans"}, "IMG": {"image": "gone.png"},
                      "OBJ": {"object": "gone.obj"}},
            "audio": {"file": "gone.mp3", "title": "Gone", "in": 2, "end": 9.5, "fade": "fadeIn"}, "cues": []})",
        engineNames());
    ASSERT_TRUE(read);
    const Style style = completed(resolved(*read, world.folder.path()), styleOf(world.model()));
    const auto missing = applyStyle(style, readMedia(style), world.model());
    ASSERT_EQ(missing.size(), 4U);
    EXPECT_EQ(missing.front().text, "unknown font \"Nobody Sans\"");
    for (const auto& problem : missing)
        EXPECT_NE(
            problem.text.find(&problem == missing.data() ? "Nobody" : "gone."), std::string::npos)
            << problem.text;
    EXPECT_EQ(written({styleOf(world.model()), {}, {}}), written({style, {}, {}}));
}

} // namespace zelvo::document
