// SPDX-License-Identifier: MIT
#include "media/MediaFixture.h"
#include "model/DistanceFade.h"
#include "model/ModelFixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <vector>

namespace zelvo::model {
namespace {

using testing::ElementsAre;

class ClockTest : public test::ModelTest {};

TEST_F(ClockTest, CountsTheRunAndKeepsItsEnd) {
    std::vector<bool> playing;
    ui::signals().isPlayingSignal.subscribe(
        listening, [&](bool plays) { playing.push_back(plays); });
    int countIn = 0, performing = 0;
    onTime([&](const ui::TimeState& state) {
        if (state.time == 0)
            return; // the reset
        ++(state.isCountIn ? countIn : performing);
        EXPECT_NEAR(state.wholeFraction, state.time / 10, 1e-12);
        EXPECT_NEAR(
            state.runFraction, state.isCountIn ? state.time / 2 : (state.time - 2) / 8, 1e-9);
    });
    model.start();
    const double begin = world.runLoop.now();
    runToTheEnd();
    // 120 steps of slightly more than 1/60 s end just after the count-in's 2 s.
    EXPECT_EQ(countIn, 119);
    EXPECT_EQ(countIn + performing, 601);
    EXPECT_NEAR(world.runLoop.now() - begin, 601.0 / 60, 1e-6);
    EXPECT_NEAR(model.time(), 601.0 / 60, 1e-6) << "the readout stays at the end";
    EXPECT_THAT(playing, ElementsAre(false, true, false));
    EXPECT_TRUE(model.isBlocking());
    world.runLoop.runFor(0.99);
    EXPECT_TRUE(model.isBlocking());
    world.runLoop.runFor(0.02);
    EXPECT_FALSE(model.isBlocking());
}

TEST_F(ClockTest, StartsAnewFromEveryState) {
    model.start();
    runToTheEnd();
    model.start(); // while blocking
    EXPECT_FALSE(model.isBlocking());
    world.runLoop.runFor(1.5);
    EXPECT_NEAR(model.time(), 1.5, 0.02);
    model.start(); // in the middle
    EXPECT_EQ(model.time(), 0);
    model.toggle();
    EXPECT_FALSE(model.isPlaying());
    EXPECT_EQ(model.time(), 0);
    world.runLoop.runFor(1);
    EXPECT_EQ(model.time(), 0);
    model.toggle();
    EXPECT_TRUE(model.isPlaying());
}

TEST_F(ClockTest, LimitsTheDuration) {
    for (const auto& [asked, got] : {std::pair(0.0, 2.0), {1.5, 2.0}, {31.0, 31.0}}) {
        model.setDuration(asked);
        EXPECT_EQ(model.duration(), got);
    }
}

TEST_F(ClockTest, FadesWhatIsFarAway) {
    struct Row {
        glm::vec3 place;
        float opacity;
    };

    // clang-format off
    constexpr auto kRows = std::to_array<Row>({
        {{0, 0, 300},   1               },
        {{0, -475, 0},  0.5f            },
        {{0, 0, 650},   0               },
        {{0, 0, 2000},  0               },
        {{300, 400, 0}, 1 - 200.0f / 350},
    });
    // clang-format on
    view.update(1);
    view.update(2); // the opening animation has ended
    for (const Row& row : kRows) {
        nodes.imageNode->position = nodes.mediaHolderNode->position = row.place;
        view.update(3);
        EXPECT_NEAR(nodes.imageNode->opacity.value(), row.opacity, 1e-6);
        EXPECT_NEAR(nodes.mediaHolderNode->opacity.value(), row.opacity, 1e-6);
    }
    EXPECT_EQ(nodes.textNode1->opacity.value(), 1);
}

TEST_F(ClockTest, MovesTheStageFromSceneToScene) {
    const scene::SCNScenePtr before = model.sceneData()->scene;
    EXPECT_EQ(model.currentSceneIndex(), 2);
    const image::Color red = image::Color::hex(0xFF0000);
    model.setCurrentBackgroundColor(red);
    model.setScene(0);
    EXPECT_EQ(model.sceneData()->backgroundColor(), red);
    world.runLoop.drain();
    EXPECT_EQ(view.scene(), model.sceneData()->scene);
    for (const scene::SCNNodePtr& holder : nodes.holders())
        EXPECT_EQ(holder->parent(), model.sceneData()->scene->rootNode().get());
    for (const scene::SCNNodePtr& child : before->rootNode()->childNodes())
        EXPECT_NE(child, nodes.mediaHolderNode);
    EXPECT_NE(nodes.cameraNode->camera, nullptr);

    // Another view is set while a movie is made.
    scene::HeadlessView other;
    ASSERT_TRUE(model.startMovie());
    world.runLoop.drain();
    model.setSceneView(&other);
    world.runLoop.drain();
    EXPECT_EQ(view.delegate, nullptr);
    EXPECT_EQ(other.delegate, &model);
    EXPECT_EQ(model.currentRenderer(), model.movieWriter().renderer());
    EXPECT_EQ(model.movieWriter().renderer()->delegate, &model) << "far nodes fade in movies, too";
    EXPECT_EQ(other.scene(), nullptr) << "only one renderer has the scene";
    model.cancelMovie();
    world.runLoop.drain();
    EXPECT_EQ(other.scene(), model.sceneData()->scene);
    model.setSceneView(&view);
    EXPECT_EQ(other.scene(), nullptr) << "it is replaced";
    world.runLoop.drain();
    EXPECT_EQ(view.scene(), model.sceneData()->scene);
}

TEST_F(ClockTest, StartsTheMusicOnTheSameSampleLiveAndInTheMovie) {
    constexpr double kCue = 4; // seconds of silence before the song's first sound
    media::writeWav(folder.path() / "song.wav", 48'000, 20, [](double t) {
        return t < kCue ? 0 : media::sine(1000, 0.5)(t);
    });
    model.setDuration(5);
    audio::AudioPlayer& player = model.audioPlayer();
    player.loadSong(folder.path() / "song.wav", "Song");
    EXPECT_EQ(player.audioEnd, 5) << "trimmed to the movie";
    player.fadeState = audio::FadeState::noFade;

    struct Row {
        double preRoll, in;
        int firstFrame;
    };

    for (const auto& [preRoll, in, firstFrame] :
         {Row{0, 2, 0}, Row{0, 2.507, 0}, Row{1, 2, 60}, Row{1.0085, 1.993, 61}}) {
        SCOPED_TRACE(preRoll);
        player.audioPreRoll = preRoll;
        player.audioIn = in;
        std::optional<int> first;
        double heard = 0; // the first sound, in seconds of the movie
        const foundation::Lifetime once;
        ui::signals().timeSignal.subscribe(once, [&](const ui::TimeState& state) {
            if (first || !player.isPlaying)
                return;
            // A tick sends its signal before its step, with the time of the next tick.
            const int frame = static_cast<int>(std::lround((state.time - 2) * 60)) - 1;
            first = frame - 1;
            heard = frame / 60.0 + kCue - player.avAudioPlayer->currentTime();
        });
        model.start();
        runToTheEnd();
        EXPECT_FALSE(player.isPlaying);
        EXPECT_EQ(first, firstFrame);
        exportMovie();
        const media::DecodedMovie movie = media::decodeMovie(model.movieURL(), 9, 9);
        const auto loud = std::ranges::find_if(movie.left, [](double v) { return v > 0.1; });
        EXPECT_NEAR(heard, static_cast<double>(loud - movie.left.begin()) / 48'000, 0.001);
    }
    for (const audio::FadeState fade : {audio::FadeState::fadeIn, audio::FadeState::fadeOut}) {
        player.fadeState = fade;
        EXPECT_EQ(model.music()->fadesIn, fade == audio::FadeState::fadeIn);
        EXPECT_EQ(model.music()->fadesOut, fade == audio::FadeState::fadeOut);
    }
}

TEST_F(ClockTest, CountsTheFramesOfALongMovieOneByOne) {
    model.setDuration(12 * 60);
    model.movieWriter().options.writesMovie = false;
    std::vector<int> frames;
    model.movieWriter().options.tap = movie::FrameTap{
        .wants = [](int frame) { return frame >= 0; },
        .take = [&](int frame, const render::FrameView&) -> foundation::Result<void> {
            frames.push_back(frame);
            return {};
        }};
    exportMovie();
    ASSERT_EQ(frames.size(), 12U * 60 * 60 + 1);
    for (std::size_t n = 0; n < frames.size(); ++n) {
        const double time = static_cast<double>(n) / 60;
        ASSERT_EQ(frames[n], n);
        ASSERT_GE(rendering.drawn[n], time);
        ASSERT_NEAR(rendering.drawn[n], time, 1e-9);
        ASSERT_EQ(shared::FrameClock::frameSeenAt(time), n);
        ASSERT_EQ(shared::FrameClock::frameReaching(time), n);
        ASSERT_EQ(shared::FrameClock::nearestFrame(rendering.drawn[n]), n);
    }
}

} // namespace
} // namespace zelvo::model
