// SPDX-License-Identifier: MIT
// Fingers, pointer and keys on the stage, while the style panel is open.
#include "model/ModelFixture.h"
#include "platform/render/CameraView.h"
#include "ui/controls/Alerts.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/layouter/TransformPanel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace zelvo::ui {
namespace {

using actions::GestureState;

constexpr glm::vec2 kSize{960, 540};

class StageGesturesTest : public test::ModelTest {
protected:
    [[nodiscard]] glm::vec2 onScreen(const glm::vec3& point, const glm::vec2& size = kSize) const {
        const auto camera = render::makeCameraView(
            nodes.cameraNode->worldTransform(), *nodes.cameraNode->camera, size.x / size.y);
        const glm::vec4 clip = camera.viewProjection * glm::vec4(point, 1);
        return (glm::vec2(clip.x, -clip.y) / clip.w + 1.0f) / 2.0f * size;
    }

    /// The place on screen of a point in the space of a node's content.
    [[nodiscard]] glm::vec2
    onScreen(const node::Node& node, const glm::vec3& point, const glm::vec2& size = kSize) const {
        return onScreen(glm::vec3(node.contentNode->worldTransform() * glm::vec4(point, 1)), size);
    }

    node::NodePtr tap(const glm::vec2& place) {
        menu.handleTap({place, kSize});
        return menu.currentNode();
    }

    void pan(GestureState state, const glm::vec2& place, const glm::vec2& start) {
        menu.handlePan({state, place, kSize, start});
    }

    void pinch(GestureState state, float scale = 1) {
        menu.handlePinch({state, scale, 0, kSize / 2.0f, kSize});
    }

    /// Shows only these nodes, side by side in front of the camera, at a distance of `apart` units.
    void showOnly(const std::vector<node::NodePtr>& shown, float apart) {
        for (const node::NodePtr& node : nodes.content()) {
            const auto found = std::ranges::find(shown, node);
            node->isVisible = found != shown.end();
            node->updateVisibility();
            const auto place = static_cast<float>(found - shown.begin());
            node->setLayoutPosition(
                node->isVisible ? glm::vec3(apart * place, 0, 0) : glm::vec3(0, 5000, 0));
        }
    }

    Alerts alerts;
    Services services{model, world.runLoop, world.defaults, alerts, fontManager, folders};
    LayouterMenu menu{services};
};

TEST_F(StageGesturesTest, TakesTheShapeThatIsSeenThenOneBesideItThenTheSmallestFrame) {
    const node::NodePtr text = nodes.textNode1;
    const node::NodePtr object = nodes.mediaNode;
    nodes.textNode1->setText("I");
    nodes.mediaNode->setShape(content::MediaNode::shapeNamed("None"));
    showOnly({text, object}, 0);
    object->scale2D = 0.5f; // its frame is smaller, and covers the letter
    object->applyScale();
    const geometry::Box letter = text->contentNode->boundingBox();
    const glm::vec3 side{letter.max.x, (letter.min.y + letter.max.y) / 2, letter.max.z};
    const glm::vec2 edge = onScreen(*text, side);

    EXPECT_EQ(tap(edge - glm::vec2(3, 0)), text);
    menu.setCurrentNode(nullptr);
    EXPECT_EQ(tap(edge + glm::vec2(4, 0)), text) << "a few points beside the letter";
    menu.setCurrentNode(nullptr);
    EXPECT_EQ(tap(edge + glm::vec2(9, 0)), object);
    EXPECT_EQ(tap(edge - glm::vec2(3, 0)), object) << "it is in hand";
    EXPECT_EQ(tap({5, 5}), nullptr);

    text->isVisible = false;
    text->updateVisibility();
    object->setLayoutPosition({0, 5000, 0});
    EXPECT_EQ(tap(edge - glm::vec2(3, 0)), text) << "hidden content is taken by its frame";
}

TEST_F(StageGesturesTest, OneTouchesWhatStandsBehindTheHolesOfAPicture) {
    const node::NodePtr text = nodes.textNode1;
    nodes.textNode1->setText("MM");
    nodes.mediaNode->setShape(content::MediaNode::shapeNamed("None"));
    image::Image picture(2, 1); // its left half is transparent
    picture.pixels[7] = 255;
    nodes.imageNode->setImage(std::make_shared<const image::Image>(picture));
    showOnly({text, nodes.imageNode}, 0);
    nodes.imageNode->setLayoutPosition({0, 0, 60}); // in front of the letters
    const geometry::Box letters = text->contentNode->boundingBox();
    const glm::vec3 quarter = 0.5f * (letters.max - letters.min) * glm::vec3(0.5f, 0, 0);
    const glm::vec3 middle = (letters.min + letters.max) * 0.5f;
    // the inner legs of the letters
    EXPECT_EQ(tap(onScreen(*text, middle + quarter)), nodes.imageNode);
    menu.setCurrentNode(nullptr);
    glm::vec3 leg = middle;
    leg.x = letters.min.x + 3;
    EXPECT_EQ(tap(onScreen(*text, leg)), text);
    EXPECT_EQ(tap(onScreen(*text, middle + quarter)), text) << "what is in hand wins";
}

// That is a plane between the middle and the front of a letter: its middle lags, its front leads.
TEST_F(StageGesturesTest, ADragKeepsALetterUnderThePointerAtEachDepth) {
    const node::NodePtr text = nodes.textNode1;
    nodes.textNode1->setText("H");
    const auto touched = [&](const glm::vec2& size) {
        const glm::vec3 place = text->layoutPosition();
        const glm::vec3 nearer{0, 0, 0.04f * (stage::kCameraHome.z - place.z)};
        EXPECT_LT(
            nearer.z, text->contentNode->boundingBox().max.z * text->positionNode->scale.value().z)
            << "in front of the letter";
        return onScreen(place + nearer, size);
    };
    for (const float depth : {-60.0f, 0.0f, 60.0f}) {
        for (const glm::vec2 size : {glm::vec2(960, 540), glm::vec2(1920, 1080)}) {
            text->setLayoutPosition({-20, 10, depth});
            menu.setCurrentNode(text);
            const glm::vec2 start = touched(size);
            const glm::vec2 way(90, -50);
            menu.handlePan({GestureState::began, start + 12.0f, size, start});
            menu.handlePan({GestureState::changed, start + 30.0f, size, start});
            menu.handlePan({GestureState::changed, start + way, size, start});
            menu.handlePan({GestureState::ended, start + way, size, start});
            EXPECT_EQ(text->layoutPosition().z, depth);
            const glm::vec2 aside = touched(size) - start - way;
            EXPECT_LT(glm::length(aside), 1) << depth << ", " << size.x;
        }
    }
}

TEST_F(StageGesturesTest, ADragTakesWhatItBeganOnButOnlyWhileSomethingIsInHand) {
    const node::NodePtr text = nodes.textNode1;
    nodes.textNode1->setText("I");
    nodes.textNode2->setText("I");
    showOnly({text, nodes.textNode2}, 200);
    const auto dragBy = [&](const glm::vec2& start, const glm::vec2& way) {
        pan(GestureState::began, start + 10.0f, start);
        pan(GestureState::changed, start + way, start);
        pan(GestureState::ended, start + way, start);
    };
    const glm::vec2 first = onScreen(text->layoutPosition());
    const glm::vec3 before = text->layoutPosition();
    dragBy(first, {40, 0});
    EXPECT_EQ(text->layoutPosition(), before) << "nothing was in hand";
    EXPECT_EQ(menu.cursor(), Qt::OpenHandCursor);

    menu.setCurrentNode(nodes.textNode2);
    const glm::vec3 other = nodes.textNode2->layoutPosition();
    dragBy(first, {40, 0});
    EXPECT_EQ(menu.currentNode(), text);
    EXPECT_GT(text->layoutPosition().x, before.x + 10);
    EXPECT_EQ(nodes.textNode2->layoutPosition(), other);

    // on nothing: the camera turns, and comes back
    const auto turned = [this] {
        view.update(view.scene()->time() + 0.1); // the action begins
        view.update(view.scene()->time() + 0.3);
        return std::abs(nodes.cameraYHandle->rotation().w);
    };
    const glm::vec3 placed = text->layoutPosition();
    pan(GestureState::began, {20, 20}, {5, 5});
    pan(GestureState::changed, {80, 20}, {5, 5});
    world.runLoop.runFor(0.1);
    EXPECT_GT(turned(), 0.01f);
    EXPECT_EQ(menu.currentNode(), text);
    EXPECT_EQ(text->layoutPosition(), placed);
}

TEST_F(StageGesturesTest, APinchSizesWithinLimitsAndGrowsSlowerThanItShrinks) {
    pinch(GestureState::began);
    pinch(GestureState::changed, 3); // nothing is selected
    const node::NodePtr text = nodes.textNode1;
    text->scale2D = 1;
    menu.setCurrentNode(text);
    const auto read = [&](float scale) {
        pinch(GestureState::changed, scale);
        return text->scale2D;
    };
    pinch(GestureState::began);
    EXPECT_FLOAT_EQ(read(1.5f), 1.35f);
    EXPECT_FLOAT_EQ(read(1.2f), 1.05f);
    EXPECT_FLOAT_EQ(read(0.1f), 0.15f) << "the least";
    EXPECT_FLOAT_EQ(read(0.05f), 0.15f);
    EXPECT_FLOAT_EQ(read(0.15f), 0.22f) << "the reading was followed at the limit";
    EXPECT_FLOAT_EQ(read(std::numeric_limits<float>::quiet_NaN()), 0.17f) << "read as 0.1";
    EXPECT_FLOAT_EQ(read(90), 5);
    EXPECT_FLOAT_EQ(text->positionNode->scale.value().x, 5);
    pinch(GestureState::cancelled);
    pinch(GestureState::began);
    EXPECT_FLOAT_EQ(read(0.5f), 4.5f) << "a new pinch reads from 1";
}

TEST_F(StageGesturesTest, APinchSizesNothingBySurpriseWhenKeysTakeAnotherNode) {
    menu.setCurrentNode(nodes.textNode1);
    pinch(GestureState::began);
    pinch(GestureState::changed, 2);
    menu.setCurrentNode(nodes.textNode2);
    const float size = nodes.textNode2->scale2D;
    pinch(GestureState::changed, 2);
    EXPECT_FLOAT_EQ(nodes.textNode2->scale2D, size);
    menu.setCurrentNode(nullptr);
    pinch(GestureState::ended);
    menu.setCurrentNode(nodes.textNode2);
    pinch(GestureState::began);
    pinch(GestureState::changed, 1);
    EXPECT_FLOAT_EQ(nodes.textNode2->scale2D, size) << "nothing is left of the pinch before";
}

TEST_F(StageGesturesTest, ASecondTapWritesAText) {
    showOnly({nodes.textNode1}, 0);
    const glm::vec2 place = onScreen(nodes.textNode1->layoutPosition());
    menu.handleTap({place, kSize});
    ASSERT_EQ(menu.currentNode(), nodes.textNode1);
    EXPECT_FALSE(menu.isWriting());
    menu.handleTap({place, kSize});
    menu.handleDoubleTap({place, kSize});
    EXPECT_TRUE(menu.isWriting());
}

TEST_F(StageGesturesTest, KeysTakeMoveAndSizeAndTellWhenThereIsNothingToDo) {
    EXPECT_FALSE(menu.nudge(1, 0, 0));
    EXPECT_FALSE(menu.grow(2));
    for (const node::NodePtr& node : nodes.content()) {
        EXPECT_TRUE(menu.takeNext(1));
        EXPECT_EQ(menu.currentNode(), node);
    }
    EXPECT_FALSE(menu.takeNext(1)) << "the keys go on to the buttons";
    EXPECT_TRUE(menu.takeNext(-1));
    EXPECT_EQ(menu.currentNode(), nodes.content()[2]);

    menu.setCurrentNode(nodes.textNode2);
    const glm::vec3 before = nodes.textNode2->layoutPosition();
    menu.setCurrentOption(CurrentOption::transform);
    EXPECT_TRUE(menu.nudge(1, -10, 7));
    EXPECT_EQ(nodes.textNode2->layoutPosition(), before + glm::vec3(1, -10, 7));
    auto* const panel = qobject_cast<TransformPanel*>(menu.stripObject());
    EXPECT_EQ(panel->slider().value(), before.z + 7) << "the slider follows";
    nodes.textNode2->scale2D = 1;
    EXPECT_TRUE(menu.grow(1.05));
    EXPECT_FLOAT_EQ(nodes.textNode2->scale2D, 1.05f);
}

TEST_F(StageGesturesTest, TheCursorTellsWhatAPressWouldDo) {
    showOnly({nodes.textNode1}, 0);
    const glm::vec2 place = onScreen(nodes.textNode1->layoutPosition());
    menu.handleHover(Hover{place, kSize});
    EXPECT_EQ(menu.cursor(), Qt::PointingHandCursor);
    menu.setCurrentNode(nodes.textNode1);
    menu.handleHover(Hover{place, kSize});
    EXPECT_EQ(menu.cursor(), Qt::OpenHandCursor);
    pan(GestureState::began, place + 12.0f, place);
    EXPECT_EQ(menu.cursor(), Qt::ClosedHandCursor);
    pan(GestureState::ended, place + 12.0f, place);
    EXPECT_EQ(menu.cursor(), Qt::OpenHandCursor);
    menu.handleHover(Hover{{3, 3}, kSize});
    EXPECT_EQ(menu.cursor(), Qt::ArrowCursor);
}

} // namespace
} // namespace zelvo::ui
