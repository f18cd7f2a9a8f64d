// SPDX-License-Identifier: MIT
#include "document/Performer.h"

#include "app/Engine.h"
#include "document/EngineNames.h"
#include "document/SetUp.h"
#include "media/MediaFixture.h"
#include "platform/foundation/Lifetime.h"
#include "shared/FrameClock.h"
#include "shared/Signal.h"
#include "support/TemporaryFolder.h"

#include <glm/gtc/constants.hpp>
#include <glm/trigonometric.hpp>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

namespace zelvo::document {

namespace {

class PerformerTest : public testing::Test {
protected:
    /// Performs, and calls `look` in every frame of a run.
    void perform(const std::string& members, const std::function<void(int frame)>& look) {
        const auto read = readPerformance("{\"duration\": 3, " + members + "}", engineNames());
        ASSERT_TRUE(read) << read.error().front().text;
        const auto ready = setUp(*read, folder.path(), engine.model());
        ASSERT_TRUE(ready) << ready.error().text;
        const foundation::Lifetime listening;
        ui::signals().timeSignal.subscribe(listening, [&](const ui::TimeState& state) {
            look(shared::FrameClock::nearestFrame(state.time - state.startCounter) - 1);
        });
        document::perform(*read, engine.model());
        engine.model().start();
        (void)loop.runUntil([&] { return !engine.model().isPlaying(); });
    }

    foundation::VirtualRunLoop loop;
    test::TemporaryFolder folder;
    app::Engine engine{loop, foundation::Folders::below(folder.path()), 1};
    stage::Nodes& stage = engine.stage();
};

TEST_F(PerformerTest, PlaysAtTheSpeedOfThePerformanceUnlessAPressHasItsOwn) {
    std::map<int, float> yaw, turned, zoom;
    perform(
        R"("speed": "fastest", "cues": [
            {"at": 0, "pan": [[0, 0], [-50, 0], [-50, 0]], "for": 0.8},
            {"at": 1, "tab": "ROT", "press": "Rotate Y 180", "speed": "slowest"},
            {"at": 1.1, "pan": [[0, 0], [-50, 0], [-50, 0]], "for": 0.8},
            {"at": 2, "tab": "CAM", "hold": "Zoom Cam", "for": 0.5, "speed": "slowest"}])",
        [&](int frame) {
            zoom[frame] = stage.cameraSpecialPerspectiveNode->position.value().z;
            yaw[frame] = stage.cameraYHandle->eulerAngles().y;
            turned[frame] = stage.mediaHolderNode->yAxisNode->eulerAngles().y;
        });
    // The camera is home 0.8 times 0.2125 seconds after the release.
    for (const int liftOff : {48, 114}) {
        EXPECT_GT(yaw[liftOff], 1.4f);
        EXPECT_GT(yaw[liftOff + 6], 0.01f);
        EXPECT_NEAR(yaw[liftOff + 13], 0, 1e-4);
    }
    EXPECT_GT(turned[175], 2.9f);
    EXPECT_LT(turned[120], 1.0f) << "the half turn takes 2.55 seconds";
    EXPECT_NEAR(zoom[148], -105, 1);
    EXPECT_NEAR(zoom[165], 0, 1) << "a release takes the speed of the performance";
}

TEST_F(PerformerTest, LetsGoOfTheNodesThatItHolds) {
    std::map<int, std::pair<float, float>> away;
    perform(
        R"("cues": [
            {"at": 0, "tab": "FX1", "hold": "Hide", "for": 1.5, "nodes": ["TX1"]},
            {"at": 0.5, "tab": "FX1", "hold": "Hide", "for": 0.5, "nodes": ["OBJ", "TX2"]}])",
        [&](int frame) {
            away[frame] = {
                stage.textNode1->shyNode->position.value().x,
                stage.textNode2->shyNode->position.value().x};
        });
    const std::pair<float, float> none{0, 0}, first{10000, 0}, both{10000, 10000};
    EXPECT_EQ(away[20], first);
    EXPECT_EQ(away[50], both);
    EXPECT_EQ(away[80], first);
    EXPECT_EQ(away[110], none);
}

TEST_F(PerformerTest, PinchesCentresUndoesAndRedoesInTheOrderOfTheCues) {
    std::map<int, float> depth;
    perform(
        R"("cues": [
            {"at": 0, "pinch": [1, 1], "for": 0.1},
            {"at": 1, "tab": "IN1", "press": "Left In", "nodes": ["OBJ"]},
            {"at": 1, "undo": true},
            {"at": 1.1, "tab": "IN1", "press": "Right In", "nodes": ["OBJ"]},
            {"at": 1.1, "undo": true},
            {"at": 1.2, "redo": true},
            {"at": 2, "doubleTap": true},
            {"at": 2, "undo": true}])",
        [&](int frame) { depth[frame] = stage.cameraPinchNode->position.value().z; });
    EXPECT_LT(depth[5], -5);
    EXPECT_NEAR(depth[59], 0, 1e-3) << "it springs back after the release";
    const actions::MyUndoManager& undone = engine.model().actionController().undoManager;
    EXPECT_EQ(undone.undoTitle(), "Right In (OBJ)") << "a new press empties what can be redone";
    EXPECT_EQ(undone.redoTitle(), "Center");
}

TEST_F(PerformerTest, LetsGoBeforeACueOfTheSameMoment) {
    perform(
        R"("cues": [
            {"at": 0, "tab": "FX1", "hold": "Hide", "for": 0.5},
            {"at": 0.5, "undo": true}])",
        [](int) {});
    EXPECT_TRUE(engine.model().actionController().recordedActions().empty());
}

TEST_F(PerformerTest, StylesTheNodesAndTakesTheStretchOfTheSong) {
    media::writeWav(folder.path() / "song.wav", 8000, 6, media::sine(440, 0.5));
    perform(
        R"("nodes": {
               "TX1": {"rotation": [10, 20, 30]},
               "IMG": {"flipV": true, "quarterTurns": 1}},
           "audio": {"file": "song.wav", "in": 1, "end": 3.5, "preRoll": 0.5, "fade": "fadeOut"},
           "cues": [])",
        [](int) {});
    EXPECT_NEAR(stage.textNode1->rotXNode->eulerAngles().x, glm::radians(10.0), 1e-5);
    EXPECT_NEAR(stage.textNode1->rotYNode->eulerAngles().y, glm::radians(20.0), 1e-5);
    EXPECT_NEAR(stage.textNode1->rotZNode->eulerAngles().z, glm::radians(30.0), 1e-5);
    EXPECT_TRUE(stage.imageNode->vFlipped && !stage.imageNode->hFlipped);
    EXPECT_TRUE(stage.imageNode->isVisible) << "a changed picture is shown";
    const float turn = stage.imageNode->orientationRotationNode->eulerAngles().z;
    EXPECT_NEAR(turn, -glm::half_pi<float>(), 1e-5) << "clockwise";
    const audio::AudioPlayer& player = engine.model().audioPlayer();
    EXPECT_EQ(player.audioIn, 1);
    EXPECT_EQ(player.audioEnd, 3.5);
    EXPECT_EQ(player.audioPreRoll, 0.5);
    EXPECT_EQ(player.fadeState, audio::FadeState::fadeOut);
}

TEST_F(PerformerTest, MakesATextThatIsTooWideSmallerUntilItFits) {
    const auto widthOf = [&](const std::string& text) {
        perform(
            R"("nodes": {"TX1": {"scale": 1.5, "maxWidth": 400, "text": ")" + text +
                R"("}}, "cues": [])",
            [](int) {});
        const auto box = stage.textNode1->contentNode->boundingBox();
        return (box.max.x - box.min.x) * stage.textNode1->scale2D;
    };
    EXPECT_LT(widthOf("IT"), 200);
    EXPECT_EQ(stage.textNode1->scale2D, 1.5F);
    EXPECT_NEAR(widthOf("WWWW"), 400, 0.5); // too wide only because of its scale
    EXPECT_GT(stage.textNode1->scale2D, 1);
    EXPECT_NEAR(widthOf("WWWWWWWWWWWW"), 400, 0.5);
    EXPECT_LT(stage.textNode1->scale2D, 0.5F);
    EXPECT_LT(widthOf("IT"), 200);
    EXPECT_EQ(stage.textNode1->scale2D, 1.5F);
    (void)widthOf("");
    EXPECT_EQ(stage.textNode1->scale2D, 1.5F);
}

} // namespace

} // namespace zelvo::document
