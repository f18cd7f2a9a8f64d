// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ActionController.h"
#include "platform/foundation/Random.h"
#include "platform/scene/SCNScene.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace zelvo::test {

/// An action controller with a stage. The test is its owner: it sets the clock and the speed.
class ControllerTest : public testing::Test, public actions::ActionControllerOwner {
protected:
    ControllerTest() {
        foundation::seedRandom(1);
        for (const scene::SCNNodePtr& holder : nodes.holders())
            stage.rootNode()->addChildNode(holder);
    }

    // --- ActionControllerOwner
    [[nodiscard]] double time() const override { return clock; }

    [[nodiscard]] bool isPlaying() const override { return plays; }

    [[nodiscard]] double animationFactor() const override { return factor; }

    void stopAndReset() override { ++stops; }

    [[nodiscard]] foundation::SerialQueue& serialQueue() override { return *queue; }

    [[nodiscard]] foundation::RunLoop& runLoop() override { return world.runLoop; }

    // --- for the tests
    void add(
        const std::string& title, int identifier, std::function<void()> body = [] {}) {
        controller.addAction(std::move(body), identifier, title, actions::RegisterUndo::yes);
        world.runLoop.drain();
    }

    void tick(double t) {
        controller.run(t);
        world.runLoop.drain();
    }

    /// Animates the stage to a scene time, frame by frame.
    void animateTo(double seconds) {
        while (sceneTime + kFrame < seconds) {
            sceneTime += kFrame;
            stage.applyAnimations(sceneTime);
        }
        sceneTime = seconds;
        stage.applyAnimations(sceneTime);
    }

    /// The frame in which new actions begin.
    void beginActions() { stage.applyAnimations(sceneTime); }

    [[nodiscard]] std::vector<std::string> recordedTitles() const {
        std::vector<std::string> titles;
        for (const actions::XACPtr& xac : controller.recordedActions())
            titles.push_back(xac->title);
        return titles;
    }

    static constexpr double kFrame = 1.0 / 60;

    TestWorld world;
    stage::Nodes nodes{world.surroundings()};
    scene::SCNScene stage;
    double sceneTime = 0;
    double clock = 0;
    bool plays = false;
    double factor = 0.85;
    int stops = 0;
    std::unique_ptr<foundation::SerialQueue> queue = world.runLoop.makeSerialQueue("actions");
    actions::ActionController controller{*this, nodes};
};

} // namespace zelvo::test
