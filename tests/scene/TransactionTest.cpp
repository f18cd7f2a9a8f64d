// SPDX-License-Identifier: MIT
#include "SceneSupport.h"

namespace zelvo::scene {
namespace {

class Transaction : public testing::Test {
protected:
    void assign(float opacity, double duration) {
        SCNTransaction::begin();
        SCNTransaction::setAnimationDuration(duration);
        stage.node->opacity = opacity;
        SCNTransaction::commit();
    }

    [[nodiscard]] float shown() const { return stage.node->opacity.presented(); }

    Stage stage;
};

TEST_F(Transaction, TravelsOnTheScenesClockFromTheFirstFrameOn) {
    stage.apply({5});
    assign(0, 2);
    EXPECT_FLOAT_EQ(stage.node->opacity, 0); // the model value changes at once
    EXPECT_FLOAT_EQ(shown(), 1);
    stage.apply({6});
    EXPECT_FLOAT_EQ(shown(), 1);
    stage.apply({6.5});
    EXPECT_FLOAT_EQ(shown(), 0.75f);
    stage.apply({9});
    EXPECT_FLOAT_EQ(shown(), 0);
}

TEST_F(Transaction, IsSupersededFromWhereItStands) {
    assign(0, 1);
    stage.apply({0, 0.5});
    assign(1, 1);
    stage.apply({0.6, 1.1});
    EXPECT_FLOAT_EQ(shown(), 0.75f);
    stage.node->opacity = 0.3f; // outside a transaction it changes at once and stops the animation
    stage.apply({1.2});
    EXPECT_FLOAT_EQ(shown(), 0.3f);
}

TEST_F(Transaction, GivesWayToAnActionThatStartsFromWhatIsShown) {
    assign(0, 1);
    stage.apply({0, 0.5});
    stage.node->runAction(SCNAction::fadeIn(1));
    stage.apply({0.5, 1});
    EXPECT_FLOAT_EQ(shown(), 0.75f);
    EXPECT_FLOAT_EQ(stage.node->opacity, 0.75f);
}

TEST_F(Transaction, InnerOnesHaveTheirOwnDuration) {
    SCNTransaction::begin();
    SCNTransaction::setAnimationDuration(1);
    SCNTransaction::begin();
    stage.node->opacity = 0.5f; // at once
    SCNTransaction::commit();
    stage.node->scale = glm::vec3(3);
    SCNTransaction::commit();
    stage.apply({0, 0.5});
    EXPECT_FLOAT_EQ(shown(), 0.5f);
    expectNear(stage.node->scale.presented(), glm::vec3(2));
    EXPECT_FALSE(SCNTransaction::isAnimating());
}

TEST_F(Transaction, OutlivesTheNode) {
    assign(0, 1);
    stage.apply({0});
    stage.node->removeFromParentNode();
    stage.node = std::make_shared<SCNNode>();
    stage.apply({1, 2}); // the property is gone; its animation must not use it
}

} // namespace
} // namespace zelvo::scene
