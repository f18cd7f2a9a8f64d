// SPDX-License-Identifier: MIT
#include "actions/ControllerFixture.h"

namespace zelvo::actions {
namespace {

using scene::SCNAction;

class HomePoseTest : public test::ControllerTest {
protected:
    /// Moves every level that a performance uses, and the user's layout, away from home.
    void disturb() {
        stage.rootNode()->enumerateHierarchy([](scene::SCNNode& node) {
            node.runAction(SCNAction::moveBy({1, 2, 3}, 10));
        });
        for (const scene::SCNNodePtr& node : moved()) {
            node->position = glm::vec3(5, 6, 7);
            node->setEulerAngles({1, 2, 3});
            node->scale = glm::vec3(4);
            node->opacity = 0.5f;
        }
        nodes.textNode1->rotXNode->setEulerAngles({0.5f, 0, 0});
    }

    [[nodiscard]] std::vector<scene::SCNNodePtr> moved() const {
        std::vector<scene::SCNNodePtr> all = {
            nodes.cameraPinchNode,
            nodes.cameraSpecialPerspectiveNode,
            nodes.cameraSuperNode,
            nodes.cameraWiggle};
        const auto addLevels = [&all](const auto& node) {
            all.insert(
                all.end(),
                {node, node->contentNode, node->xAxisNode, node->yAxisNode, node->zAxisNode});
        };
        addLevels(nodes.mediaHolderNode);
        for (const node::NodePtr& node : nodes.content()) {
            addLevels(node);
            all.insert(all.end(), {node->wiggleNode, node->shyNode});
        }
        return all;
    }
};

TEST_F(HomePoseTest, BringsTheStageHomeAndLeavesTheLayout) {
    nodes.textNode1->setLayoutPosition({11, 12, 13});
    disturb();
    const auto letter = nodes.textNode1->letters()[2];
    letter->position = glm::vec3(900);
    letter->opacity = 0;
    nodes.cameraXHandle->setEulerAngles({1, 1, 1});

    controller.resetAll(CameraHandles::leave);
    beginActions();
    for (const scene::SCNNodePtr& node : moved()) {
        EXPECT_EQ(node->position.value(), glm::vec3(0));
        EXPECT_NEAR(std::abs(node->orientation().w), 1, 1e-6);
        EXPECT_EQ(node->scale.value(), glm::vec3(1));
        EXPECT_EQ(node->opacity.value(), 1);
    }
    EXPECT_EQ(letter->position.value(), *letter->originalPosition);
    EXPECT_EQ(letter->opacity.value(), 1);
    EXPECT_EQ(nodes.cameraNode->position.value(), glm::vec3(0, 0, 345));
    EXPECT_EQ(nodes.textNode1->layoutPosition(), glm::vec3(11, 12, 13));
    EXPECT_EQ(nodes.textNode1->rotXNode->eulerAngles().x, 0.5f);
    EXPECT_EQ(nodes.cameraXHandle->eulerAngles(), glm::vec3(1));

    controller.resetAll(CameraHandles::include);
    animateTo(1);
    EXPECT_NEAR(std::abs(nodes.cameraXHandle->orientation().w), 1, 1e-6);
    EXPECT_EQ(nodes.cameraYHandle->position.value(), glm::vec3(0, 1, 0));
    EXPECT_EQ(nodes.textNode2->position.value(), glm::vec3(0)) << "earlier actions have ended";
}

TEST_F(HomePoseTest, TakesTheGivenTime) {
    nodes.mediaNode->position = glm::vec3(8, 0, 0);
    controller.resetAll(CameraHandles::include, {.timing = {}, .duration = 2});
    beginActions();
    animateTo(0.5);
    EXPECT_NEAR(nodes.mediaNode->position.value().x, 6, 1e-3);
}

TEST_F(HomePoseTest, BeginsEachRunOnAnEmptyStage) {
    tick(0.001);
    beginActions();
    for (const node::NodePtr& node : nodes.content())
        EXPECT_EQ(node->position.value(), glm::vec3(0, 0, 2000));
}

TEST_F(HomePoseTest, SaysThatThereIsNothingToReset) {
    testing::internal::CaptureStderr();
    ActionController::resetNodes({});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "no nodes to reset\n");
}

} // namespace
} // namespace zelvo::actions
