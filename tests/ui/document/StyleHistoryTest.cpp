// SPDX-License-Identifier: MIT
#include "ui/document/StyleHistory.h"

#include "document/SetUp.h"
#include "document/StageReading.h"
#include "platform/image/Image.h"
#include "shared/Palette.h"
#include "ui/UiFixture.h"

#include <glm/trigonometric.hpp>

#include <functional>
#include <random>
#include <vector>

namespace zelvo::ui {

namespace {

class StyleHistoryTest : public test::UiTest {
protected:
    [[nodiscard]] document::Style style() { return document::styleOf(model); }

    /// What a hand can do to the style, in any order.
    [[nodiscard]] std::vector<std::function<void(std::mt19937&)>> gestures() {
        stage::Nodes& stage = model.nodes();
        const auto number = [](std::mt19937& random, int bound) {
            return static_cast<int>(random() % static_cast<unsigned>(bound));
        };
        return {
            [&, number](auto& random) {
                stage.content()[random() % 4]->setLayoutPosition(
                    {number(random, 100), number(random, 50), 3});
            },
            [&, number](auto& random) {
                auto& node = *stage.content()[random() % 4];
                node.scale2D = 0.2F + static_cast<float>(number(random, 40)) * 0.05F;
                node.applyScale();
            },
            [&, number](auto& random) {
                stage.textNode2->rotXNode->setRotation(
                    {1, 0, 0, glm::radians(static_cast<float>(number(random, 360) - 180))});
            },
            [&](auto& random) { stage.textNode1->setText(std::to_string(random() % 99)); },
            [&](auto& random) {
                stage.textNode1->setFrontColor(kPalette[5 + random() % 30]);
                stage.textNode1->setBandColor(kPalette[5 + random() % 30]);
            },
            [&, number](auto& random) {
                stage.textNode2->setExtrusionDepth(number(random, 90) + 1);
            },
            [&, number](auto& random) {
                stage.textNode2->setBevelRadius(static_cast<float>(number(random, 9)) / 4);
            },
            [&](auto& random) {
                stage.mediaNode->setShape(
                    content::mediaShapes()[random() % content::mediaShapes().size()]);
            },
            [&](auto& random) {
                stage.imageNode->setImage(std::make_shared<image::Image>(4, 4));
                stage.imageNode->file = std::to_string(random() % 99);
            },
            [&](auto& random) {
                stage.imageNode->setCurrentMask(
                    content::imageMasks()[random() % content::imageMasks().size()]);
            },
            [&](auto& random) {
                auto& node = *stage.content()[random() % 4];
                node.isVisible = !node.isVisible;
                node.updateVisibility();
            },
            [&](auto& random) { model.setScene(static_cast<int>(random() % 3)); },
            [&](auto& random) { model.setCurrentBackgroundColor(kPalette[5 + random() % 30]); },
            [&, number](auto& random) { model.setDuration(3 + number(random, 9)); },
            [&](auto& random) {
                model.animationRatio = model::kSpeeds[random() % model::kSpeeds.size()].ratio;
            },
        };
    }
};

} // namespace

TEST_F(StyleHistoryTest, goes_back_and_forth_over_a_random_walk) {
    StyleHistory history(services);
    std::mt19937 random(3);
    const auto hand = gestures();
    std::vector<document::Style> styles{style()};
    std::vector<image::ImagePtr> pictures{model.nodes().imageNode->image()};
    while (styles.size() < 260) {
        if (history.canUndo() && random() % 5 == 0) { // so that there is something to forget
            history.undo();
            styles.pop_back();
            pictures.pop_back();
            ASSERT_EQ(style(), styles.back());
        }
        hand[random() % hand.size()](random);
        history.note();
        if (style() == styles.back())
            continue; // the same again is no step
        EXPECT_FALSE(history.canRedo());
        styles.push_back(style());
        pictures.push_back(model.nodes().imageNode->image());
        loop().runFor(2); // a pause between two words
    }
    for (std::size_t i = styles.size() - 1; i > 0; --i) {
        ASSERT_TRUE(history.canUndo());
        history.undo();
        ASSERT_EQ(style(), styles[i - 1]) << i;
        ASSERT_EQ(model.nodes().imageNode->image(), pictures[i - 1]) << i;
    }
    EXPECT_FALSE(history.canUndo());
    for (std::size_t i = 1; i < styles.size(); ++i) {
        history.redo();
        ASSERT_EQ(style(), styles[i]) << i;
    }
    EXPECT_FALSE(history.canRedo());
}

TEST_F(StyleHistoryTest, reads_a_picture_again_that_nobody_has_any_more) {
    content::ImageNode& node = *model.nodes().imageNode;
    const std::filesystem::path file = folder.path() / "small.png";
    ASSERT_TRUE(image::savePNG(image::Image(5, 3), file));
    StyleHistory history(services);
    node.setImage(std::make_shared<image::Image>(5, 3));
    node.file = file;
    history.note();
    const std::weak_ptr<const image::Image> first = node.image();
    node.setImage(std::make_shared<image::Image>(9, 9));
    node.file = folder.path() / "other.png";
    history.note();
    EXPECT_TRUE(first.expired()) << "the history must not keep all pictures";
    history.undo();
    ASSERT_NE(node.image(), nullptr);
    EXPECT_EQ(node.image()->width, 5);
    EXPECT_EQ(node.file, file);
}

TEST_F(StyleHistoryTest, takes_a_typed_word_as_one_step) {
    StyleHistory history(services);
    content::TextNode& text = *model.nodes().textNode1;
    const std::string before = text.text();
    for (const char* const typed : {"N", "NE", "NEW", "NEW ", "NEW Y", "NEW YO"}) {
        text.setText(typed);
        history.note();
        loop().runFor(0.3);
    }
    loop().runFor(5);
    text.setText("NEW YOR");
    history.note();
    std::vector<std::string> steps;
    while (history.canUndo()) {
        history.undo();
        steps.push_back(text.text());
    }
    EXPECT_EQ(steps, (std::vector<std::string>{"NEW YO", "NEW ", before}));
}

TEST_F(StyleHistoryTest, keeps_the_newest_steps_and_what_is_still_under_way) {
    StyleHistory history(services);
    for (int i = 0; i < 600; ++i) {
        model.nodes().imageNode->setLayoutPosition({i, 0, 0});
        history.note();
    }
    model.nodes().imageNode->setLayoutPosition({1000, 0, 0}); // not noted
    int steps = 0;
    for (; history.canUndo(); ++steps)
        history.undo();
    EXPECT_EQ(steps, static_cast<int>(StyleHistory::kMostSteps));
    history.redo();
    history.forget();
    EXPECT_FALSE(history.canUndo() || history.canRedo());
}

} // namespace zelvo::ui
