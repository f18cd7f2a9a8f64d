// SPDX-License-Identifier: MIT
#include "stage/Nodes.h"

#include "platform/image/Image.h"
#include "platform/scene/SCNScene.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

namespace zelvo::stage {
namespace {

using look::XMATClasses;

class NodesTest : public testing::Test {
protected:
    void install(scene::SCNScene& stage) const {
        for (const scene::SCNNodePtr& holder : nodes.holders())
            stage.rootNode()->addChildNode(holder);
    }

    test::TestWorld world;
    Nodes nodes{world.surroundings()};
};

TEST_F(NodesTest, PutsTheCameraInItsRigInFrontOfTheStage) {
    EXPECT_EQ(nodes.fxHolderNode->parent(), nodes.cameraNode.get());
    EXPECT_TRUE(nodes.fxHolderNode->isBillboard);
    scene::SCNScene stage;
    install(stage);
    EXPECT_EQ(glm::vec3(nodes.cameraNode->worldTransform()[3]), glm::vec3(0, 1, 345));

    // clang-format off
    const std::vector<scene::SCNNodePtr> rig{
        stage.rootNode(), nodes.cameraJittery, nodes.cameraWiggle, nodes.cameraYHandle, nodes.cameraXHandle,
        nodes.cameraSuperNode, nodes.cameraPinchNode, nodes.cameraSpecialPerspectiveNode, nodes.cameraNode};
    // clang-format on
    for (std::size_t i = 1; i < rig.size(); ++i)
        EXPECT_EQ(rig[i]->parent(), rig[i - 1].get()) << i;
}

TEST_F(NodesTest, HoldsTheContentInItsOrder) {
    const std::vector<scene::SCNNodePtr> content = {
        nodes.imageNode, nodes.mediaNode, nodes.textNode1, nodes.textNode2};
    EXPECT_EQ(nodes.mediaHolderNode->contentNode->childNodes(), content);
    EXPECT_EQ(nodes.textNode2->positionNode->scale.value(), glm::vec3(0.76f));
    EXPECT_EQ(nodes.textNode2->layoutPosition(), glm::vec3(0, -36, 0));
}

TEST_F(NodesTest, OpensInTheDefaultStyle) {
    for (const auto& text : {nodes.textNode1, nodes.textNode2}) {
        EXPECT_EQ(text->fontName(), "Audiowide-Regular");
        ASSERT_FALSE(text->letters().empty());
        const scene::SCNGeometry& letter = *text->letters().front()->geometry;
        EXPECT_EQ(letter.materials.size(), 5U) << "the chamfer shows the band";
        EXPECT_FLOAT_EQ(letter.boundingBox().max.z, 22);
        EXPECT_EQ(
            letter.materials[2]->diffuse.colorOr(image::Color::white(1)), image::Color::white(0));
    }
    EXPECT_TRUE(nodes.imageNode->contentNode->isHidden);
    EXPECT_NE(nodes.imageNode->image(), nullptr) << "a placeholder for the first showing";
    EXPECT_EQ(nodes.mediaNode->currentMaterialName(), XMATClasses::plain);
    EXPECT_EQ(nodes.mediaNode->currentShape()->node->geometry, nullptr);
}

TEST_F(NodesTest, MovesToTheNextSceneWithAllItsActions) {
    scene::SCNScene first;
    scene::SCNScene second;
    install(first);
    first.applyAnimations(0);
    nodes.textNode1->runAction(scene::SCNAction::moveTo({100, 0, 0}, 1));
    first.applyAnimations(0.1);
    first.applyAnimations(0.5);
    const float under = nodes.textNode1->position.value().x;
    ASSERT_GT(under, 0);

    install(second);
    EXPECT_TRUE(first.rootNode()->childNodes().empty());
    for (const scene::SCNNodePtr& holder : nodes.holders()) {
        EXPECT_EQ(holder->parent(), second.rootNode().get());
    }
    second.applyAnimations(7);
    second.applyAnimations(7.2);
    EXPECT_GT(nodes.textNode1->position.value().x, under);
    second.applyAnimations(9);
    EXPECT_FLOAT_EQ(nodes.textNode1->position.value().x, 100);
}

TEST(SharedNodesDeathTest, AreOneForTheProcess) {
    EXPECT_DEATH(static_cast<void>(Nodes::shared()), "before it was made");
    static test::TestWorld world; // must outlive the shared stage
    Nodes& made = Nodes::makeShared(world.surroundings());
    EXPECT_EQ(&Nodes::shared(), &made);
    EXPECT_EQ(&Nodes::shared(), &Nodes::shared());
}

} // namespace
} // namespace zelvo::stage
