// SPDX-License-Identifier: MIT
#include "SceneSupport.h"
#include "platform/scene/SCNShapes.h"

#include <glm/gtc/matrix_transform.hpp>

#include <random>
#include <string>

namespace zelvo::scene {
namespace {

glm::vec3 apply(const glm::mat4& matrix, const glm::vec3& point) {
    const glm::vec4 result = matrix * glm::vec4(point, 1);
    return {result.x, result.y, result.z};
}

TEST(Node, PutsPivotScaleRotationAndTranslationInThisOrder) {
    SCNNode node;
    node.position = glm::vec3(1, 2, 3);
    node.setRotation({0, 0, 5, glm::radians(90.0f)}); // the axis can have any length
    node.scale = glm::vec3(2, 1, 1);
    node.pivot = glm::translate(glm::mat4(1), {1, 0, 0});
    // (2, 1, 0) less pivot: (1, 1, 0); scaled: (2, 1, 0); turned: (-1, 2, 0); moved: (0, 4, 3)
    expectNear(apply(node.transform(), {2, 1, 0}), {0, 4, 3});
    node.setRotation({0, 0, 0, 2});
    expectNear(apply(node.transform(), {2, 1, 0}), {3, 3, 3});
}

TEST(Node, TurnsByRollThenYawThenPitch) {
    struct Row {
        glm::vec3 degrees;
        glm::vec3 point;
        glm::vec3 expected; // another order of rotations gives another axis
    };

    for (const Row& row :
         {Row{{90, 0, 0}, {0, 1, 0}, {0, 0, 1}},
          {{0, 90, 0}, {0, 0, 1}, {1, 0, 0}},
          {{0, 0, 90}, {1, 0, 0}, {0, 1, 0}},
          {{90, 0, 90}, {1, 0, 0}, {0, 0, 1}},
          {{0, 90, 90}, {1, 0, 0}, {0, 1, 0}},
          {{90, 90, 0}, {0, 0, 1}, {1, 0, 0}},
          {{90, 90, 90}, {0, 1, 0}, {0, -1, 0}}}) {
        SCNNode node;
        node.setEulerAngles(glm::radians(row.degrees));
        expectNear(apply(node.transform(), row.point), row.expected);
    }
}

TEST(Node, TellsAnglesThatTurnAsItsOrientationDoes) {
    constexpr unsigned kSeed = 20240607;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<float> angle(-7, 7);
    for (int i = 0; i < 200; ++i) {
        glm::vec3 angles(angle(random), angle(random), angle(random));
        if (i % 4 == 0)
            angles.y = glm::radians(i % 8 == 0 ? 90.0f : -90.0f); // gimbal lock
        SCNNode node;
        node.setOrientation(orientationFromEulerAngles(angles));
        const glm::quat again = orientationFromEulerAngles(node.eulerAngles());
        expectNear(again * glm::vec3(1, 2, 3), node.orientation() * glm::vec3(1, 2, 3), 5e-3f);
        EXPECT_LE(std::abs(node.eulerAngles().y), glm::radians(90.001f));
    }
}

TEST(Node, BelongsToOneParentAtATime) {
    const auto first = std::make_shared<SCNNode>();
    auto second = std::make_shared<SCNNode>();
    const auto child = std::make_shared<SCNNode>();
    first->position = glm::vec3(10, 0, 0);
    first->scale = glm::vec3(2, -3, 1);
    second->setEulerAngles({0, 0, glm::radians(90.0f)});
    child->position = glm::vec3(1, 0, 0);

    first->addChildNode(child);
    expectNear(apply(child->worldTransform(), {0, 1, 0}), {12, -3, 0});
    second->addChildNode(first->childNodes().front());
    EXPECT_TRUE(first->childNodes().empty());
    expectNear(apply(child->worldTransform(), {0, 1, 0}), {-1, 1, 0});
    second.reset();
    EXPECT_EQ(child->parent(), nullptr);
    expectNear(apply(child->worldTransform(), {0, 1, 0}), {1, 1, 0});
    first->addChildNode(std::make_shared<SCNNode>());
    first->childNodes().front()->removeFromParentNode(); // whose last holder is its parent
    EXPECT_TRUE(first->childNodes().empty());
}

TEST(NodeDeathTest, CannotStandBelowItself) {
    const auto parent = std::make_shared<SCNNode>();
    const auto child = std::make_shared<SCNNode>();
    child->name = "loop";
    parent->addChildNode(child);
    EXPECT_DEATH(child->addChildNode(parent), "below itself");
}

TEST(Node, IsFoundByNameNearOrFar) {
    const auto root = std::make_shared<SCNNode>();
    const auto middle = std::make_shared<SCNNode>();
    const auto leaf = std::make_shared<SCNNode>();
    leaf->name = "leaf";
    root->addChildNode(middle);
    middle->addChildNode(leaf);
    EXPECT_EQ(root->childNodeWithName("leaf", SCNNode::Search::childrenOnly), nullptr);
    EXPECT_EQ(root->childNodeWithName("leaf", SCNNode::Search::recursively), leaf);
    EXPECT_EQ(root->childNodeWithName("", SCNNode::Search::childrenOnly), middle);
}

TEST(Node, IsVisitedParentsFirstWhileTheTreeIsTakenApart) {
    const auto root = std::make_shared<SCNNode>();
    root->name = "root ";
    for (const char* name : {"one", "two"}) {
        const auto child = std::make_shared<SCNNode>();
        child->name = name;
        child->addChildNode(std::make_shared<SCNNode>());
        child->childNodes().front()->name = "(below) ";
        root->addChildNode(child);
    }
    std::string visited;
    root->enumerateHierarchy([&](SCNNode& node) {
        visited += node.name;
        node.removeFromParentNode();
    });
    EXPECT_EQ(visited, "root one(below) two(below) ");
}

TEST(Node, BoundsWhatStandsAtAndBelowIt) {
    const auto node = std::make_shared<SCNNode>();
    expectNear(node->boundingBox().min, glm::vec3(0));
    expectNear(node->boundingBox().max, glm::vec3(0));

    const auto turned = std::make_shared<SCNNode>();
    turned->geometry = std::make_shared<SCNPlane>(4, 6);
    turned->position = glm::vec3(10, 0, 0);
    turned->setEulerAngles({0, glm::radians(90.0f), 0});
    turned->scale = glm::vec3(0.5f);
    const auto hidden = std::make_shared<SCNNode>();
    hidden->geometry = std::make_shared<SCNBox>(1000, 1000, 1000, 0);
    hidden->isHidden = true;
    node->addChildNode(turned);
    node->addChildNode(hidden);
    node->isHidden = true;               // its own hiding does not matter
    node->position = glm::vec3(7, 7, 7); // neither does its position
    expectNear(node->boundingBox().min, {10, -1.5f, -1});
    expectNear(node->boundingBox().max, {10, 1.5f, 1});
    hidden->isHidden = false;
    expectNear(node->boundingBox().max, {500, 500, 500});
}

} // namespace
} // namespace zelvo::scene
