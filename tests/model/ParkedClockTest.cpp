// SPDX-License-Identifier: MIT
// The clock parked at a moment, and runs that begin there.
#include "catalogue/Catalogue.h"
#include "media/MediaFixture.h"
#include "model/ModelFixture.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace zelvo::model {
namespace {

class ParkedClockTest : public test::ModelTest {
protected:
    void press(std::string_view tab, std::string_view title) {
        const catalogue::Tab& row = *catalogue::tabNamed(tab);
        const auto buttons = row.buttons();
        catalogue::press(
            row,
            *std::ranges::find(buttons, title, &catalogue::Button::title),
            {model.actionController(), model.affectedNodes(), model.animationFactor()},
            5);
    }

    void recordAt(double time, std::string_view tab, std::string_view title) {
        model.actionController().recordAt(time + 2, [&] { press(tab, title); });
    }

    [[nodiscard]] double readout() const { return shown.time - shown.startCounter; }

    [[nodiscard]] std::size_t recorded() const {
        return model.actionController().recordedActions().size();
    }

    [[nodiscard]] glm::vec3 place() const { return nodes.textNode1->position.value(); }

    void SetUp() override {
        onTime([this](const ui::TimeState& state) { shown = state; });
        recordAt(1, "IN1", "Left In");
    }

    ui::TimeState shown;
};

constexpr double kFrame = 0.017;

TEST_F(ParkedClockTest, ShowsAMomentAndStaysThere) {
    model.seek(3);
    EXPECT_NEAR(readout(), 3, 1e-4);
    EXPECT_EQ(place(), glm::vec3(0)) << "it has come in";
    model.seek(1.2);
    const glm::vec3 onItsWay = place();
    EXPECT_LT(onItsWay.x, -10);
    world.runLoop.runFor(2);
    EXPECT_EQ(place(), onItsWay);
    EXPECT_NEAR(readout(), 1.2, 0.01);
    EXPECT_EQ(recorded(), 1U);
    model.seek(0.5);
    EXPECT_EQ(place().z, 2000) << "not yet there";
    model.seek(1.2);
    EXPECT_EQ(place(), onItsWay);
    model.seek(99);
    EXPECT_NEAR(readout(), 8, kFrame) << "not behind the end";
    model.stop(Reset::toStart);
    EXPECT_EQ(place(), glm::vec3(0));
    EXPECT_FALSE(model.isParked());
    EXPECT_FALSE(model.playhead());
    model.start();
    world.runLoop.runFor(3.2);
    EXPECT_LT(place().x, -10) << "a run replays what was replayed silently";
}

TEST_F(ParkedClockTest, RecordsFromTwoSecondsBeforeAndComesBack) {
    recordAt(3.5, "FX2", "Hit 2"); // its light goes some time later
    model.seek(4);
    std::optional<double> begin;
    bool wasThere = false;
    const foundation::Lifetime once;
    ui::signals().timeSignal.subscribe(once, [&](const ui::TimeState& state) {
        if (model.isPlaying() && !begin)
            begin = state.time - state.startCounter;
        wasThere = wasThere || !nodes.particleAndParticleLightHolder->childNodes().empty();
    });
    model.toggle();
    world.runLoop.runFor(0.5);
    EXPECT_NEAR(*begin, 2, 2 * kFrame);
    EXPECT_EQ(place(), glm::vec3(0)) << "what came before is replayed";
    press("IN1", "Right In");
    world.runLoop.runFor(4.8);
    EXPECT_TRUE(wasThere);
    EXPECT_TRUE(nodes.particleAndParticleLightHolder->childNodes().empty());
    ASSERT_EQ(recorded(), 3U);
    EXPECT_NEAR(model.actionController().recordedActions().back()->time - 2, 2.5, 3 * kFrame);
    model.toggle();
    EXPECT_TRUE(model.isParked());
    EXPECT_NEAR(readout(), 4, kFrame);

    model.seek(1);
    begin.reset();
    model.toggle();
    world.runLoop.runFor(0.1);
    EXPECT_NEAR(*begin, -1, 2 * kFrame) << "within the count-in";
    runToTheEnd();
    EXPECT_FALSE(model.isParked());
    EXPECT_NEAR(readout(), 8, 2 * kFrame) << "as after any run";
    begin.reset();
    model.toggle();
    world.runLoop.runFor(0.1);
    EXPECT_NEAR(*begin, -2, 2 * kFrame);
}

TEST_F(ParkedClockTest, LosesNothingBetweenTheReplayAndTheRun) {
    recordAt(1.98, "FX2", "Hit 2"); // due in the last frame that is replayed
    model.seek(4);
    model.toggle();
    world.runLoop.runFor(0.1);
    EXPECT_FALSE(nodes.particleAndParticleLightHolder->childNodes().empty());
    world.runLoop.runFor(5);
    EXPECT_TRUE(nodes.particleAndParticleLightHolder->childNodes().empty());
}

TEST_F(ParkedClockTest, PlaysWithoutRecording) {
    model.togglePlaying();
    EXPECT_TRUE(model.isPlaying());
    world.runLoop.runFor(0.5);
    EXPECT_NEAR(readout(), 0.5, 2 * kFrame) << "without the count-in";
    press("IN1", "Right In");
    world.runLoop.runFor(0.05);
    EXPECT_GT(place().x, 10) << "it is shown";
    EXPECT_EQ(recorded(), 1U);
    world.runLoop.runFor(0.45);
    model.togglePlaying();
    EXPECT_TRUE(model.isParked());
    const double paused = readout();
    EXPECT_NEAR(paused, 1, 3 * kFrame);
    model.togglePlaying();
    world.runLoop.runFor(0.1);
    EXPECT_NEAR(readout(), paused + 0.1, 2 * kFrame);
    model.toggle(); // the record key
    EXPECT_TRUE(model.isParked());
    model.toggle();
    press("IN1", "Up In");
    world.runLoop.runFor(0.1);
    EXPECT_EQ(recorded(), 2U);
}

TEST_F(ParkedClockTest, GoesHomeForAPressButKeepsItsPlace) {
    model.seek(3);
    press("IN1", "Up In");
    world.runLoop.runFor(0.05);
    EXPECT_FALSE(model.isParked());
    EXPECT_EQ(recorded(), 1U);
    EXPECT_NEAR(*model.playhead(), 3, kFrame);
    model.toggle();
    world.runLoop.runFor(0.1);
    EXPECT_NEAR(readout(), 1.1, 3 * kFrame);
}

TEST_F(ParkedClockTest, ShowsWhatAnEditChanges) {
    model.seek(3);
    EXPECT_EQ(place(), glm::vec3(0));
    model.actionController().edit("Delete", {});
    world.runLoop.drain();
    EXPECT_EQ(place().z, 2000);
    model.actionController().undo();
    world.runLoop.drain();
    EXPECT_EQ(place(), glm::vec3(0));
    EXPECT_TRUE(model.isParked());
}

TEST_F(ParkedClockTest, JoinsTheMusicInItsMiddle) {
    media::writeWav(folder.path() / "song.wav", 48'000, 20, media::sine(1000, 0.5));
    audio::AudioPlayer& player = model.audioPlayer();
    player.loadSong(folder.path() / "song.wav", "Song");
    player.audioIn = 5;
    player.audioPreRoll = 0.5;
    player.audioEnd = 10;
    model.seek(4);
    EXPECT_FALSE(player.isPlaying);
    model.toggle();
    world.runLoop.runFor(0.5);
    ASSERT_TRUE(player.isPlaying);
    EXPECT_NEAR(player.avAudioPlayer->currentTime(), 7.0, 3 * kFrame);
    model.toggle();
    EXPECT_FALSE(player.isPlaying);
    model.seek(7.9);
    model.toggle();
    world.runLoop.runFor(0.1);
    EXPECT_FALSE(player.isPlaying) << "it has ended before";
}

} // namespace
} // namespace zelvo::model
