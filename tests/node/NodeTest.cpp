// SPDX-License-Identifier: MIT
#include "node/Node.h"

#include "node/LightNodes.h"
#include "platform/scene/SCNScene.h"
#include "shared/Signal.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace zelvo::node {
namespace {

using image::Color;

class NodeTest : public testing::Test {
protected:
    /// Sets a plane of that size as the content.
    void fill(double width, double height, const glm::vec3& middle = glm::vec3(0)) const {
        const auto child = std::make_shared<DefaultSCNNode>();
        child->geometry = std::make_shared<scene::SCNPlane>(width, height);
        child->position = middle;
        node->contentNode->addChildNode(child);
    }

    test::TestWorld world;
    NodePtr node = Node::make({0, 32, 0}, 0.76f, world.surroundings());
};

TEST_F(NodeTest, NestsOneLevelForEachConcern) {
    // clang-format off
    const std::vector<scene::SCNNodePtr> chain{
        node, node->positionNode, node->orientationRotationNode, node->wiggleNode, node->shyNode,
        node->rotXNode, node->rotYNode, node->rotZNode,
        node->xAxisNode, node->yAxisNode, node->zAxisNode, node->contentNode};
    // clang-format on
    for (std::size_t i = 1; i < chain.size(); ++i)
        EXPECT_EQ(chain[i]->parent(), chain[i - 1].get()) << i;
    EXPECT_EQ(node->zAxisNode->childNodes().front(), node->outlineNode) << "before the content";
    node->enumerateHierarchy([](const scene::SCNNode& level) { EXPECT_FALSE(level.castsShadow); });
}

TEST_F(NodeTest, FramesItsContent) {
    struct Row {
        const char* what;
        glm::vec3 size;
        glm::vec3 middle;
        double width;
        double height;
    };

    for (const Row& row :
         {Row{"small", {10, 20, 0}, {0, 0, 0}, 100, 100},
          {"just below the least size", {91.5f, 92.5f, 0}, {0, 0, 0}, 100, 100.5},
          {"wide, off the middle", {300, 40, 0}, {25, 0, 0}, 308, 100}}) {
        node = Node::make({0, 0, 0}, 1, world.surroundings());
        fill(row.size.x, row.size.y, row.middle);
        node->contentNode->position = glm::vec3(1, 2, 3);
        node->updateOutline();
        EXPECT_DOUBLE_EQ(node->bgPlane->width(), row.width) << row.what;
        EXPECT_DOUBLE_EQ(node->bgPlane->height(), row.height) << row.what;
        EXPECT_EQ(node->outlineNode->position.value(), glm::vec3(1, 2, 4));
        EXPECT_FLOAT_EQ(
            node->leftPlaneNode->position.value().x, static_cast<float>(-row.width / 2));
        EXPECT_FLOAT_EQ(
            node->bottomPlaneNode->position.value().y, static_cast<float>(-row.height / 2));
    }
}

TEST_F(NodeTest, KeepsItsFrameEquallyThickUnderAScale) {
    struct Row {
        DeviceIdiom idiom;
        glm::vec3 scale;
        double thickX;
        double thickY;
    };

    for (const Row& row :
         {Row{DeviceIdiom::tablet, {1, 1, 1}, 1.5, 1.5},
          {DeviceIdiom::phone, {1, 1, 1}, 2.6, 2.6},
          {DeviceIdiom::tablet, {-0.5f, 3, 1}, 3, 0.5}}) {
        Surroundings surroundings = world.surroundings();
        surroundings.idiom = row.idiom;
        node = Node::make({0, 0, 0}, 1, surroundings);
        node->scale = row.scale;
        node->updateOutline();
        EXPECT_DOUBLE_EQ(node->leftPlane->width(), row.thickX);
        EXPECT_DOUBLE_EQ(node->topPlane->height(), row.thickY);
        EXPECT_DOUBLE_EQ(node->topPlane->width(), 100 + row.thickX)
            << "the bars overlap at the corners";
        EXPECT_DOUBLE_EQ(node->leftPlane->height(), 100 + row.thickY);
    }
}

TEST_F(NodeTest, ShowsItsFrameWhileContentStaysHidden) {
    fill(300, 300);
    node->isVisible = false;
    node->updateVisibility();
    node->showOutline(Outline::highlighted);
    EXPECT_TRUE(node->contentNode->isHidden);
    EXPECT_DOUBLE_EQ(node->bgPlane->width(), 308) << "a hidden content has a size";
    EXPECT_FALSE(node->outlineNode->isHidden);
    EXPECT_EQ(node->topPlane->materials[0]->emission.colorOr({}), Color::hex(0x245CF0));
    node->showOutline(Outline::plain);
    EXPECT_EQ(node->leftPlane->materials[0]->emission.colorOr({}), Color::white(0.4f));

    scene::SCNScene scene;
    scene.rootNode()->addChildNode(node);
    scene.applyAnimations(0);
    node->showOutline(Outline::hidden, Transition::animated);
    scene.applyAnimations(0.05);
    scene.applyAnimations(0.15);
    EXPECT_FALSE(node->outlineNode->isHidden);
    EXPECT_LT(node->outlineNode->opacity.presented(), 1);
    scene.applyAnimations(0.3);
    EXPECT_TRUE(node->outlineNode->isHidden);
    node->showOutline(Outline::plain);
    EXPECT_TRUE(node->topPlaneNode->isHidden) << "its corners alone";
    node->showOutline(Outline::hidden, Transition::animated);
    scene.applyAnimations(0.35);
    node->showOutline(Outline::highlighted); // before the fade has ended
    scene.applyAnimations(1);
    EXPECT_FALSE(node->outlineNode->isHidden);
    EXPECT_EQ(node->outlineNode->opacity.presented(), 1);
    EXPECT_FALSE(node->topPlaneNode->isHidden);
    node->showOutline(Outline::hidden);
    EXPECT_TRUE(node->outlineNode->isHidden) << "at once";
}

TEST_F(NodeTest, ShowsItsNameBesideItsFrameOrInATallOne) {
    node = Node::make({0, 0, 0}, 1, world.surroundings());
    node->nameOutline("Name", NamePlace::above);
    const scene::SCNNode* label = nullptr;
    node->outlineNode->enumerateHierarchy([&label](const scene::SCNNode& part) {
        if (std::dynamic_pointer_cast<scene::SCNText>(part.geometry))
            label = part.parent();
    });
    ASSERT_NE(label, nullptr);

    struct Row {
        double height; ///< of the frame
        NamePlace place;
        float low, high; ///< limits of the name, from the frame's middle
    };

    for (const Row& row :
         {Row{100, NamePlace::above, 50, 80},
          {100, NamePlace::below, -80, -50},
          {300, NamePlace::above, 120, 150},
          {300, NamePlace::below, 120, 150}}) {
        fill(300, row.height - 8);
        node->nameOutline("Name", row.place);
        node->showOutline(Outline::pointed);
        EXPECT_FALSE(label->isHidden);
        const float low = label->position.value().y;
        EXPECT_GT(low, row.low) << row.height;
        EXPECT_LT(low + label->boundingBox().max.y, row.high) << row.height;
    }
    node->nameOutline("", NamePlace::above);
    node->showOutline(Outline::pointed);
    EXPECT_TRUE(label->isHidden) << "no plate without a name";
}

TEST_F(NodeTest, TellsWhereARayMeetsItsFrame) {
    fill(392, 192); // a frame of 400 to 200, one unit before the content
    node->updateOutline();
    scene::SCNScene scene;
    scene.rootNode()->addChildNode(node);
    const glm::vec3 middle(node->outlineNode->worldTransform()[3]);
    const float size = node->positionNode->scale.value().x;
    const auto distanceAt = [&](float x, float y) {
        const glm::vec3 place = middle + size * glm::vec3(x, y, 0);
        return node->frameDistance({place + glm::vec3(0, 0, 50), {0, 0, -2}});
    };
    EXPECT_NEAR(distanceAt(199, -99).value_or(0), 25, 1e-3) << "in lengths of the direction";
    EXPECT_FALSE(distanceAt(201, 0));
    EXPECT_FALSE(distanceAt(0, -101));
    EXPECT_FALSE(node->frameDistance({middle + glm::vec3(0, 0, 50), {0, 0, 1}})) << "behind";
    EXPECT_FALSE(node->frameDistance({middle + glm::vec3(0, 0, 50), {1, 0, 0}})) << "along it";
    EXPECT_NEAR(node->frameArea(), 400 * 200 * size * size, 1);
}

TEST_F(NodeTest, SaysItsSizeInWholePercent) {
    std::string said;
    const foundation::Lifetime listener;
    ui::signals().messageSignal.subscribe(
        listener, [&said](const std::string& message) { said = message; });

    using Row = std::pair<float, const char*>;

    // clang-format off
    const auto rows = std::to_array<Row>({
        {0.76f,  "Size 76 %" }, // computed in doubles, it would be 75
        {0.999f, "Size 99 %" },
        {2.5f,   "Size 250 %"},
    });
    // clang-format on
    for (const auto& [scale, message] : rows) {
        node->scale2D = scale;
        node->applyScale();
        EXPECT_EQ(said, message);
        EXPECT_EQ(node->positionNode->scale.value(), glm::vec3(scale));
    }
}

TEST_F(NodeTest, ResetsTheLayoutAndNothingElse) {
    scene::SCNScene scene;
    scene.rootNode()->addChildNode(node);
    node->position = glm::vec3(1);
    node->wiggleNode->position = glm::vec3(2);
    node->contentNode->setEulerAngles({0, 1, 0});
    node->setLayoutPosition({9, 9, 9});
    node->scale2D = 3;
    node->applyScale();
    const std::array turned{node->rotXNode, node->rotYNode, node->rotZNode};
    for (const DefaultSCNNodePtr& level : turned)
        level->setRotation({0, 1, 0, 1});
    scene.applyAnimations(0);
    node->quarterTurn();
    for (const double time : {0.01, 0.1, 0.3})
        scene.applyAnimations(time);
    EXPECT_NEAR(node->orientationRotationNode->eulerAngles().z, -M_PI / 2, 1e-5);

    node->resetLayout();
    scene.applyAnimations(0.4);
    EXPECT_EQ(node->layoutPosition(), glm::vec3(0, 32, 0));
    EXPECT_EQ(node->positionNode->scale.value(), glm::vec3(0.76f));
    for (const DefaultSCNNodePtr& level : turned)
        EXPECT_EQ(level->orientation(), glm::quat(1, 0, 0, 0));
    EXPECT_NEAR(node->orientationRotationNode->eulerAngles().z, 0, 1e-6);
    EXPECT_EQ(node->position.value(), glm::vec3(1));
    EXPECT_EQ(node->wiggleNode->position.value(), glm::vec3(2));
    EXPECT_EQ(node->contentNode->eulerAngles(), glm::vec3(0, 1, 0));
}

TEST_F(NodeTest, FallsBackOnItsFirstPair) {
    EXPECT_EQ(node->materialNamed(look::XMATClasses::rock)->title, "Rock");
    for (const auto missing : {look::XMATClasses::bigBand, look::XMATClasses::dynamicFlat}) {
        EXPECT_EQ(node->materialNamed(missing), node->allMaterials.front());
    }
    const Color red{1, 0, 0, 1};
    ASSERT_EQ(node->currentMaterial, nullptr);
    node->setFrontColor(red);
    EXPECT_EQ(node->frontColor(), red);
    node->currentMaterial = node->materialNamed(look::XMATClasses::iron);
    node->setBandColor(red);
    EXPECT_EQ(node->currentMaterial->band->color(), red);
    EXPECT_NE(node->currentMaterial->front->color(), red) << "shows with the next rebuild";
}

TEST(LightNodes, LightTheContentOrTheStageAlone) {
    EXPECT_NE(LightNodes::spotLight()->light->categoryBitMask & kContentMask, 0U);
    const auto lamp = LightNodes::omniLight(Color::white(1), {0, 10, 10});
    EXPECT_EQ(lamp->light->categoryBitMask & kContentMask, 0U);
    EXPECT_EQ(lamp->position.value(), glm::vec3(0, 10, 10));
}

} // namespace
} // namespace zelvo::node
