// SPDX-License-Identifier: MIT
// A press from the button to the frames of a movie.
#include "catalogue/Catalogue.h"
#include "media/MediaFixture.h"
#include "model/ModelFixture.h"

#include <algorithm>
#include <map>
#include <vector>

namespace zelvo::model {
namespace {

class PerformanceTest : public test::ModelTest {
protected:
    void press(std::string_view tab, std::string_view title) {
        const auto buttons = catalogue::tabNamed(tab)->buttons();
        std::ranges::find(buttons, title, &catalogue::Button::title)
            ->beganFunc({model.actionController(), affected, model.animationFactor()});
    }

    /// A press at a time of the movie.
    struct Cue {
        double at;
        const char* tab;
        const char* title;
    };

    void perform(const std::vector<Cue>& cues) {
        const foundation::Lifetime acting;
        std::size_t next = 0;
        ui::signals().timeSignal.subscribe(acting, [&](const ui::TimeState& state) {
            while (model.isPlaying() && next < cues.size() && cues[next].at <= state.time - 2) {
                press(cues[next].tab, cues[next].title);
                ++next;
            }
        });
        model.start();
        runToTheEnd();
    }

    /// The places of the first text and of one of its letters in every frame of a run, by frame
    /// number.
    using Track = std::map<int, std::pair<glm::vec3, glm::vec3>>;

    class Watcher final : public scene::SCNSceneRendererDelegate {
    public:
        explicit Watcher(PerformanceTest& watched)
            : test(watched) {}

        void rendererUpdateAtTime(scene::SCNSceneRenderer&, double) override {}

        void rendererDidApplyAnimationsAtTime(scene::SCNSceneRenderer& from, double time) override {
            test.model.rendererDidApplyAnimationsAtTime(from, time);
            const auto& text = *test.nodes.textNode1;
            track[static_cast<int>(std::lround(time * 60))] = {
                text.position.value(), text.letters()[3]->position.value()};
        }

        void rendererWillRenderScene(scene::SCNSceneRenderer&, scene::SCNScene&, double) override {}

        void rendererDidRenderScene(scene::SCNSceneRenderer&, scene::SCNScene&, double) override {}

        Track track;

    private:
        PerformanceTest& test;
    };

    std::vector<node::NodePtr> affected = nodes.content();

    Track liveTrack() {
        Watcher watcher(*this);
        view.delegate = &watcher;
        model.start();
        runToTheEnd();
        view.delegate = &model;
        return watcher.track;
    }

    /// Exports, and records from the moment that the movie's renderer shows the scene.
    Track exportTrack() {
        Watcher watcher(*this);
        outcome.reset();
        EXPECT_TRUE(model.startMovie());
        world.runLoop.runFor(0.05);
        model.movieWriter().renderer()->delegate = &watcher;
        const foundation::Timer waiting = world.runLoop.expectPosts();
        EXPECT_TRUE(world.runLoop.runUntil([this] { return outcome.has_value(); }));
        return watcher.track;
    }
};

TEST_F(PerformanceTest, RecordsAPressAndReplaysItInEveryRun) {
    affected = {nodes.textNode1};
    perform({{0.5, "IN1", "Left In"}});
    const auto& records = model.actionController().recordedActions();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0]->title, "Left In (TX1)");
    EXPECT_NEAR(records[0]->time, 2.5, 0.017);

    const Track first = liveTrack();
    EXPECT_EQ(first.at(-60).first, glm::vec3(0, 0, 2000)) << "parked until it enters";
    EXPECT_EQ(first.at(25).first, glm::vec3(0, 0, 2000));
    EXPECT_EQ(first.at(33).first.x < -100, true);
    EXPECT_EQ(first.at(90).first, glm::vec3(0));
    EXPECT_EQ(liveTrack(), first) << "two runs are alike";
    EXPECT_EQ(records.size(), 1U);
}

TEST_F(PerformanceTest, ExportsWhatTheLiveRunShows) {
    model.setDuration(3);
    affected = {nodes.textNode1, nodes.mediaNode};
    // clang-format off
    perform({
        {-0.5, "IN3", "Stepped Left In"},
        {1.0,  "FLY", "Pass Right Left"},
        {2.0,  "IN2", "Flip In"        }
    });
    // clang-format on
    Track live = liveTrack();
    const Track exported = exportTrack();
    ASSERT_TRUE(outcome->has_value());
    std::erase_if(live, [&](const auto& frame) { return !exported.contains(frame.first); });
    EXPECT_GT(live.size(), 290U);
    int different = 0;
    for (const auto& [frame, seen] : live) {
        const auto& [place, letter] = exported.at(frame);
        if (glm::distance(seen.first, place) > 0.01f || glm::distance(seen.second, letter) > 0.01f)
            ++different;
    }
    EXPECT_EQ(different, 0);
}

TEST_F(PerformanceTest, ExportsEveryFrameOnce) {
    exportMovie();
    ASSERT_EQ(rendering.drawn.size(), 481U);
    EXPECT_EQ(rendering.drawn.front(), 0) << "exactly, whatever the count-in's rounding";
    EXPECT_TRUE(std::ranges::is_sorted(rendering.drawn));
    EXPECT_EQ(media::decodeMovie(model.movieURL(), 9, 9).frameTimes.size(), 478U);
    EXPECT_EQ(model.time(), 0);
    EXPECT_FALSE(model.isBlocking());
    world.runLoop.drain();
    EXPECT_EQ(model.currentRenderer(), &view) << "the scene is back on the screen";
}

TEST_F(PerformanceTest, CountsDelaysByFramesDuringAnExport) {
    std::vector<std::size_t> framesAtCall;
    model.movieWriter().progressSignal.subscribe(listening, [&](const movie::MovieProgress& state) {
        if (state.framesDone == 10)
            world.runLoop.asyncAfter(0.1, [&] { framesAtCall.push_back(rendering.drawn.size()); });
    });
    exportMovie();
    // The tenth frame is delivered when the thirteenth starts; a tenth of a second is six frames.
    ASSERT_EQ(framesAtCall.size(), 1U);
    EXPECT_NEAR(static_cast<double>(framesAtCall[0]), 12 + 6, 1);
}

TEST_F(PerformanceTest, GoesHomeWhenARunIsStopped) {
    nodes.particleAndParticleLightHolder->addChildNode(std::make_shared<scene::SCNNode>());
    model.start();
    world.runLoop.runFor(2.2);
    press("IN1", "Left In");
    world.runLoop.runFor(0.2);
    EXPECT_LT(nodes.textNode1->position.value().x, -10);
    model.toggle();
    view.update(world.runLoop.now());
    for (const node::NodePtr& node : affected) {
        EXPECT_EQ(node->position.value(), glm::vec3(0));
        EXPECT_EQ(node->opacity.value(), 1);
    }
    EXPECT_TRUE(nodes.particleAndParticleLightHolder->childNodes().empty());
}

TEST_F(PerformanceTest, LeavesNothingOfARunBehind) {
    const auto onCamera = nodes.cameraNode->childNodes();
    const auto onHolder = nodes.mediaHolderNode->childNodes();
    const auto expectBare = [&] {
        world.runLoop.runFor(0.05);
        view.update(world.runLoop.now());
        EXPECT_EQ(view.technique, nullptr);
        EXPECT_TRUE(model.actionController().techniques.currentTechniques().empty());
        EXPECT_EQ(nodes.cameraNode->childNodes(), onCamera);
        EXPECT_EQ(nodes.mediaHolderNode->childNodes(), onHolder);
        EXPECT_EQ(nodes.textNode1->position.value(), glm::vec3(0)) << "released with the last tick";
    };
    // clang-format off
    perform({
        {6,   "FX1", "Invert" }, // still held when the run ends
        {7.8, "FX3", "Beacon" }, // still running
        {7.9, "FX3", "Wosher" },
        {8,   "IN1", "Left In"}
    });
    // clang-format on
    ASSERT_EQ(model.actionController().recordedActions().size(), 4U);
    expectBare();
    model.start();
    runToTheEnd();
    expectBare();
    exportMovie();
    EXPECT_EQ(model.movieWriter().renderer()->technique, nullptr);
    expectBare();
}

TEST_F(PerformanceTest, ShowsTheSameParticlesInEveryRun) {
    // keeps the nodes alive, as a burst that is about to end does
    std::vector<scene::SCNNodePtr> held;
    const auto particlesOfARun = [&] {
        std::vector<glm::vec3> places;
        model.start();
        world.runLoop.runFor(2.5);
        held = nodes.particleAndParticleLightHolder->childNodes();
        for (const auto& burst : held) {
            for (const auto& emitter : burst->emitters()) {
                for (const scene::Particle& particle : emitter->live())
                    places.push_back(particle.position);
            }
        }
        return places;
    };
    perform({{0, "FX2", "Hit 2"}, {0.1, "FX2", "Hit 2"}});
    const auto first = particlesOfARun();
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(particlesOfARun(), first);
}

TEST_F(PerformanceTest, StopsAnExportFromOutside) {
    ASSERT_TRUE(model.startMovie());
    world.runLoop.runFor(4);
    model.cancelMovie();
    ASSERT_TRUE(outcome.has_value());
    EXPECT_EQ(outcome->error().cause, foundation::Cause::cancelled);
    EXPECT_FALSE(model.isPlaying());
    const std::size_t drawn = rendering.drawn.size();
    world.runLoop.runFor(2);
    EXPECT_EQ(rendering.drawn.size(), drawn) << "no tick comes after it";
    EXPECT_EQ(model.currentRenderer(), &view);
}

} // namespace
} // namespace zelvo::model
