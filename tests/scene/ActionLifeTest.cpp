// SPDX-License-Identifier: MIT
#include "SceneSupport.h"
#include "platform/scene/SCNSceneRenderer.h"

#include <string>

namespace zelvo::scene {
namespace {

SCNActionPtr moveToX(float x, double duration) {
    return SCNAction::moveTo({x, 0, 0}, duration);
}

TEST(ActionLife, BeginsWithTheFrameAfterItWasAddedAtElapsedZero) {
    Stage stage;
    stage.apply({0, 1});
    stage.node->position = glm::vec3(10, 0, 0);
    stage.node->runAction(moveToX(20, 1));
    stage.node->position = glm::vec3(0); // the starting value is read when the action begins
    stage.apply({1.5});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 0);
    stage.apply({2});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 10);
}

TEST(ActionLife, WhatBlocksAndCompletionsAddBeginsWithTheNextFrame) {
    // The second node is later in the tree, so the block runs first.
    Stage stage;
    const auto later = std::make_shared<SCNNode>();
    stage.scene.rootNode()->addChildNode(later);
    const auto addBoth = [&](SCNNode& node) {
        node.runAction(moveToX(5, 0));
        later->runAction(moveToX(5, 0));
    };
    stage.node->runAction(SCNAction::run(addBoth), [&] { later->runAction(moveToX(7, 0)); });
    stage.apply({0});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 0);
    EXPECT_FLOAT_EQ(later->position.value().x, 0);
    stage.apply({0.01});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 5);
    EXPECT_FLOAT_EQ(later->position.value().x, 7);
    EXPECT_FALSE(stage.node->hasActions());
}

TEST(ActionLife, CompletionsComeAfterTheEvaluationInTreeOrder) {
    Stage stage;
    const auto child = std::make_shared<SCNNode>();
    stage.node->addChildNode(child);
    std::string calls;
    child->runAction(SCNAction::run([&](SCNNode&) { calls += "b"; }), [&] { calls += "3"; });
    stage.node->runAction(SCNAction::wait(0), [&] { calls += "1"; });
    stage.node->runAction(SCNAction::wait(0), [&] { calls += "2"; });
    stage.node->runAction(SCNAction::wait(9), [&] { calls += "never"; });
    stage.apply({0});
    EXPECT_EQ(calls, "b123");
}

TEST(ActionLife, AKeyCancelsWhatRanUnderItAndNothingElse) {
    Stage stage;
    std::string calls;
    stage.node->runAction(moveToX(100, 1), "move", [&] { calls += "first"; });
    stage.node->runAction(SCNAction::fadeOut(1), "fade");
    stage.apply({0, 0.5});
    stage.node->runAction(moveToX(0, 1), "move", [&] { calls += "second"; });
    stage.apply({0.5});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 50);
    stage.node->removeActionForKey("fade");
    stage.apply({2});
    EXPECT_FLOAT_EQ(stage.node->opacity, 0.5f);
    EXPECT_EQ(calls, "second");
}

/// Runs an action whose block removes all actions from the node: nothing must happen after that.
void expectNothingAfterCancelling(const SCNActionPtr& action) {
    Stage stage;
    bool completed = false;
    stage.node->runAction(SCNAction::wait(9));
    stage.node->runAction(action, [&] { completed = true; });
    stage.node->runAction(moveToX(77, 0));
    stage.apply({0, 1});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 0);
    EXPECT_FALSE(completed);
    EXPECT_FALSE(stage.node->hasActions());
}

TEST(ActionLife, ABlockMayCancelItsOwnActionInTheMiddle) {
    const auto cancel = SCNAction::run([](SCNNode& node) {
        node.removeAllActions();
        EXPECT_FALSE(node.hasActions());
    });
    expectNothingAfterCancelling(SCNAction::sequence({cancel, moveToX(99, 0)}));
    expectNothingAfterCancelling(SCNAction::group({cancel, moveToX(99, 0)}));
}

TEST(ActionLife, ABlockIsCalledOnceEvenIfTimeRunsBackOverIt) {
    Stage stage;
    int calls = 0;
    stage.node->runAction(SCNAction::sequence(
        {SCNAction::wait(1), SCNAction::run([&](SCNNode&) { ++calls; }), SCNAction::wait(1)},
        [](float t) { return t < 0.5f ? 2 * t : 2 - 2 * t; }));
    for (int frame = 0; frame <= 20; ++frame) {
        stage.scene.applyAnimations(frame / 10.0);
    }
    EXPECT_EQ(calls, 1);
}

TEST(ActionLife, TheTreeMayChangeDuringAnEvaluation) {
    Stage stage;
    auto doomed = std::make_shared<SCNNode>();
    const std::weak_ptr<SCNNode> watched = doomed;
    stage.scene.rootNode()->addChildNode(doomed);
    doomed->runAction(SCNAction::wait(5));
    doomed.reset();
    stage.node->runAction(SCNAction::run([&](SCNNode& node) {
        for (int i = 0; i < 100; ++i) {
            const auto added = std::make_shared<SCNNode>();
            added->runAction(moveToX(1, 0));
            node.addChildNode(added);
        }
        watched.lock()->removeFromParentNode();
        node.removeFromParentNode();
    }));
    stage.apply({0});
    EXPECT_TRUE(watched.expired());
    EXPECT_TRUE(stage.scene.rootNode()->childNodes().empty());
    stage.apply({1});
    // nodes outside the tree are not animated
    EXPECT_TRUE(stage.node->childNodes().front()->hasActions());
}

TEST(ActionLife, TimeThatGoesBackCountsAsNone) {
    Stage stage;
    stage.node->runAction(moveToX(100, 1));
    stage.apply({10, 10.5, 3});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 50);
    EXPECT_DOUBLE_EQ(stage.scene.time(), 3);
    stage.apply({3.25});
    EXPECT_FLOAT_EQ(stage.node->position.value().x, 75);
}

struct RecordingDelegate final : SCNSceneRendererDelegate {
    std::string calls;
    SCNScenePtr replacement;

    void rendererUpdateAtTime(SCNSceneRenderer& renderer, double) override {
        calls += "update ";
        if (replacement)
            renderer.setScene(replacement);
    }

    void rendererDidApplyAnimationsAtTime(SCNSceneRenderer&, double) override { calls += "did "; }

    void rendererWillRenderScene(SCNSceneRenderer&, SCNScene&, double) override {}

    void rendererDidRenderScene(SCNSceneRenderer&, SCNScene&, double) override {}
};

TEST(SceneRenderer, AnimatesBetweenItsTwoCalls) {
    HeadlessView view;
    RecordingDelegate delegate;
    view.delegate = &delegate;
    view.update(0);
    view.setScene(std::make_shared<SCNScene>());
    delegate.replacement = std::make_shared<SCNScene>();
    delegate.replacement->rootNode()->runAction(
        SCNAction::run([&](SCNNode&) { delegate.calls += "action "; }));
    view.update(2.5);
    EXPECT_EQ(delegate.calls, "update did update action did ");
    EXPECT_DOUBLE_EQ(delegate.replacement->time(), 2.5);
}

} // namespace
} // namespace zelvo::scene
