// SPDX-License-Identifier: MIT
#include "ui/layouter/LayouterMenu.h"

#include "model/ModelFixture.h"
#include "platform/render/CameraView.h"
#include "shared/Palette.h"
#include "ui/controls/Alerts.h"
#include "ui/layouter/ColorPickers.h"
#include "ui/layouter/FormPanel.h"
#include "ui/layouter/ImagePanel.h"
#include "ui/layouter/TransformPanel.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFile>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace zelvo::ui {
namespace {

using testing::ElementsAre;

/// Ends after the panel: what waits for the event loop to be deleted must not outlive the model.
class PanelTest : public test::ModelTest {
protected:
    ~PanelTest() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

class LayouterMenuTest : public PanelTest {
protected:
    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> found;
        for (const MyButton* const tab : menu.stackView.arranged())
            found.push_back(tab->title().toStdString());
        return found;
    }

    /// The button of the title in a row; null if there is none.
    template <class Row>
    [[nodiscard]] static MyButton* titled(const std::string& title, const Row& row) {
        const auto found = std::ranges::find(row, QString::fromStdString(title), &MyButton::title);
        return found == row.end() ? nullptr : *found;
    }

    void press(const std::string& title) const {
        MyButton* const tab = titled(title, menu.stackView.arranged());
        ASSERT_NE(tab, nullptr) << title;
        tab->click();
    }

    /// The title of the first button of the row that is lit; empty if none is.
    template <class Row> [[nodiscard]] static std::string litIn(const Row& row) {
        const auto found = std::ranges::find_if(row, &MyButton::isMySelected);
        return found == row.end() ? std::string() : (*found)->title().toStdString();
    }

    [[nodiscard]] std::string lit() const { return litIn(menu.stackView.arranged()); }

    template <class Kind> Kind& strip() { return *qobject_cast<Kind*>(menu.stripObject()); }

    void choose(const std::string& title) {
        MyButton* const button = titled(title, strip<ButtonStrip>().buttonObjects());
        ASSERT_NE(button, nullptr) << title;
        button->click();
    }

    [[nodiscard]] std::string chosen() { return litIn(strip<ButtonStrip>().buttonObjects()); }

    Alerts alerts;
    Services services{model, world.runLoop, world.defaults, alerts, fontManager, folders};
    LayouterMenu menu{services};
};

TEST_F(LayouterMenuTest, EveryTabLeadsSomewhereAndBack) {
    const auto root = titles();
    EXPECT_THAT(root, ElementsAre("Text 1", "Text 2", "Image", "Object", "Background", "Audio"));
    EXPECT_TRUE(menu.isInspiratorVisible());
    EXPECT_FALSE(menu.isBackVisible());
    for (const std::string& title : root) {
        press(title);
        EXPECT_TRUE(menu.isBackVisible()) << title;
        EXPECT_NE(lit(), "") << title;
        for (const std::string& inner : titles()) {
            press(inner);
            EXPECT_NE(menu.stripObject(), nullptr) << title << " " << inner;
        }
        menu.backButton.click();
        EXPECT_EQ(titles(), root);
        EXPECT_TRUE(menu.isInspiratorVisible());
        EXPECT_EQ(lit(), "");
    }
}

TEST_F(LayouterMenuTest, TextsKeepTheirTabOverAVisitElsewhere) {
    press("Text 1");
    EXPECT_EQ(lit(), "Material");
    press("Sidecolor");
    menu.setCurrentNodeFromButton(2);
    EXPECT_EQ(lit(), "Image");
    menu.setCurrentNodeFromButton(1);
    EXPECT_EQ(lit(), "Sidecolor");
    menu.setCurrentNode(nullptr);
    EXPECT_EQ(menu.currentOption(), CurrentOption::none);
}

TEST_F(LayouterMenuTest, OutlinesStayWhenAnotherPanelHasThem) {
    const auto isOutlined = [this] {
        view.update(view.scene()->time() + 0.1);
        view.update(view.scene()->time() + 1);
        return !nodes.mediaNode->outlineNode->isHidden;
    };
    auto next = std::make_unique<LayouterMenu>(services);
    auto last = std::make_unique<LayouterMenu>(services);
    next.reset(); // an old panel is deleted after the new one is shown
    EXPECT_TRUE(isOutlined());
    last.reset();
    EXPECT_FALSE(isOutlined());
}

TEST_F(LayouterMenuTest, DrawsTheFrameUnderThePointerInFull) {
    using Nodes = std::vector<node::NodePtr>;
    const auto inFull = [this] {
        Nodes found;
        std::ranges::copy_if(nodes.content(), std::back_inserter(found), [](const auto& node) {
            return !node->topPlaneNode->isHidden;
        });
        return found;
    };
    // The frame of the picture is the largest; the others are inside.
    const node::NodePtr picture = nodes.imageNode;
    for (const glm::vec2 size : {glm::vec2(1280, 720), glm::vec2(500, 700)}) {
        // A point at this distance outside the corner of the frame.
        const auto beyondCorner = [&](float units) {
            const glm::vec2 half(picture->bgPlane->width() / 2, picture->bgPlane->height() / 2);
            const auto camera = render::makeCameraView(
                nodes.cameraNode->worldTransform(), *nodes.cameraNode->camera, size.x / size.y);
            const glm::vec4 clip = camera.viewProjection * picture->outlineNode->worldTransform() *
                                   glm::vec4(half + units, 0, 1);
            return Hover{(glm::vec2(clip.x, -clip.y) / clip.w + 1.0f) / 2.0f * size, size};
        };
        menu.handleHover(beyondCorner(-2));
        EXPECT_EQ(inFull(), Nodes{picture});
        menu.handleHover(beyondCorner(2));
        EXPECT_EQ(inFull(), Nodes{});
        menu.handleHover(Hover{size / 2.0f, size});
        EXPECT_EQ(inFull().size(), 1);
        EXPECT_NE(inFull(), Nodes{picture}) << "the smallest frame at this point";
        menu.handleHover(std::nullopt);
        EXPECT_EQ(inFull(), Nodes{});
    }
    press("Image");
    menu.handleHover(std::nullopt);
    EXPECT_EQ(inFull(), Nodes{picture}) << "the selected node";
}

TEST_F(LayouterMenuTest, TheBackgroundStaysWhenNothingIsInHand) {
    press("Background");
    press("Color");
    menu.setCurrentNode(nullptr); // empty space was touched
    EXPECT_EQ(menu.currentOption(), CurrentOption::backgroundColor);
}

TEST_F(LayouterMenuTest, StripsShowWhatIsAndSetWhatIsChosen) {
    press("Text 2");
    EXPECT_EQ(chosen(), "Plain");
    choose("Rock");
    EXPECT_EQ(nodes.textNode2->currentMaterialName(), look::XMATClasses::rock);
    EXPECT_EQ(nodes.textNode1->currentMaterialName(), look::XMATClasses::plain);
    EXPECT_TRUE(strip<ButtonStrip>().isAnimated());
    press("Font");
    EXPECT_EQ(chosen(), nodes.textNode2->fontName());
    choose("Bangers-Regular");
    choose("Monoton-Regular");
    world.runLoop.drain(); // the outlines are computed
    EXPECT_EQ(nodes.textNode2->fontName(), "Monoton-Regular");
    EXPECT_EQ(strip<ButtonStrip>().buttons()[1]->title(), "Aldrich")
        << "in the order of the alphabet";
    press("Frontcolor");
    EXPECT_EQ(strip<SimpleColorPicker>().currentIndex(), static_cast<int>(kWhiteIndex));
    strip<SimpleColorPicker>().buttonAction(7);
    nodes.textNode2->setBandColor(kPalette[9]);
    press("Sidecolor");
    EXPECT_EQ(strip<SimpleColorPicker>().currentIndex(), 9);
    strip<SimpleColorPicker>().buttonAction(8);
    strip<SimpleColorPicker>().select(static_cast<int>(kPalette.size()), Strip::Motion::atOnce);
    EXPECT_EQ(strip<SimpleColorPicker>().currentIndex(), -1) << "there is none";
    EXPECT_EQ(nodes.textNode2->frontColor(), kPalette[7]);
    EXPECT_EQ(nodes.textNode2->bandColor(), kPalette[8]);

    menu.setCurrentNodeFromButton(3);
    EXPECT_EQ(chosen(), "None");
    choose("Sphere");
    EXPECT_EQ(nodes.mediaNode->currentShape()->name, "Sphere");
    const auto imported = std::make_shared<scene::SCNNode>();
    menu.presentObjectImport = [this, imported] { menu.objectChosen(imported); };
    strip<ButtonStrip>().firstButton()->click();
    EXPECT_EQ(nodes.mediaNode->customNode(), imported);
    press("Material");
    press("Shape");
    EXPECT_EQ(chosen(), "") << "an imported object is none of the shapes";
    EXPECT_TRUE(strip<ButtonStrip>().firstButton()->isMySelected());
    choose("Cube");
    EXPECT_FALSE(strip<ButtonStrip>().firstButton()->isMySelected());

    menu.setCurrentNodeFromButton(2);
    EXPECT_FALSE(nodes.imageNode->isVisible);
    press("Mask");
    EXPECT_EQ(chosen(), "None");
    strip<ButtonStrip>().buttons().at(1)->click();
    EXPECT_EQ(nodes.imageNode->currentMask(), content::imageMasks().at(1));
    EXPECT_TRUE(nodes.imageNode->isVisible);
}

TEST_F(LayouterMenuTest, EveryEntryButNoneHasAThumbnail) {
    const auto expectPictures = [this](const char* tab) {
        for (const auto& button : strip<ButtonStrip>().buttons()) {
            const bool isThere = QFile::exists(button->thumbnail.toLocalFile());
            EXPECT_NE(isThere, button->title() == "None")
                << tab << " " << button->title().toStdString();
        }
    };
    for (const char* const node : {"Text 1", "Object", "Image", "Background"}) {
        press(node);
        for (const std::string& tab : titles()) {
            press(tab);
            if (tab != "Font" && qobject_cast<ButtonStrip*>(menu.stripObject()) != nullptr)
                expectPictures(node);
        }
        menu.backButton.click();
    }
}

TEST_F(LayouterMenuTest, KeysChooseNeighboursAndStayInsideTheStrip) {
    press("Object");
    auto& shapes = strip<ButtonStrip>();
    for (const auto& [key, shape] : std::initializer_list<std::pair<Qt::Key, const char*>>{
             {Qt::Key_Left, "None"},
             {Qt::Key_Right, "Star 1"},
             {Qt::Key_Down, "Star 2"},
             {Qt::Key_Up, "Star 1"},
             {Qt::Key_End, "Arrows"},
             {Qt::Key_Right, "Arrows"},
             {Qt::Key_Home, "None"}}) {
        EXPECT_TRUE(shapes.pressKey(key));
        EXPECT_EQ(chosen(), shape);
        EXPECT_EQ(nodes.mediaNode->currentShape()->name, shape);
    }
    EXPECT_FALSE(shapes.pressKey(Qt::Key_Space));
}

TEST_F(LayouterMenuTest, TheTabOfTheMusicShowsItsTitleSoon) {
    press("Audio");
    menu.setAudioTitle("Overture");
    world.runLoop.drain();
    EXPECT_THAT(titles(), ElementsAre("Overture"));
    menu.backButton.click();
    menu.setAudioTitle("");
    world.runLoop.drain();
    EXPECT_THAT(titles(), testing::Not(testing::Contains("No music"))) << "another tab's title";
}

TEST_F(LayouterMenuTest, ScenesChangeWhenTheStripHasScrolled) {
    press("Background");
    EXPECT_EQ(chosen(), "Shiny");
    choose("Flares");
    choose("Stage");
    EXPECT_EQ(model.currentSceneIndex(), 2);
    world.runLoop.runFor(0.2);
    EXPECT_EQ(model.currentSceneIndex(), 6);
    press("Color");
    strip<SimpleColorPicker>().buttonAction(13);
    EXPECT_EQ(model.currentBackgroundColor(), kPalette[13]);
}

TEST_F(LayouterMenuTest, FormPanelBuildsWhatItShows) {
    const content::TextNode& text = *nodes.textNode1;
    nodes.textNode1->setBevelProfile(look::BevelProfile::linear);
    nodes.textNode1->setBevelInnerOuter(look::BevelInnerOuter::outer);
    press("Text 1");
    press("Form");
    auto& panel = strip<FormPanel>();
    EXPECT_EQ(panel.depthSlider.value(), text.extrusionDepth());
    EXPECT_EQ(panel.profileToggle.title(), "Linear");
    EXPECT_EQ(panel.fillToggle.title(), "Fill w. Sidecol.");
    const auto depthOf = [&] { return text.letters().front()->boundingBox(); };
    const float before = depthOf().max.z - depthOf().min.z;
    panel.depthSlider.moveTo(150);
    EXPECT_GT(depthOf().max.z - depthOf().min.z, before + 50);
    panel.bevelSlider.moveTo(3.25);
    EXPECT_FLOAT_EQ(static_cast<float>(text.bevelRadius()), 3.25f);
    EXPECT_EQ(panel.bevelSlider.text(), "3.3");
    panel.profileToggle.click();
    EXPECT_EQ(text.bevelProfile(), look::BevelProfile::rounded);
    EXPECT_EQ(panel.profileToggle.title(), "Curve");
    EXPECT_EQ(panel.profileToggle.image(), "BevelCurveCurve");
    panel.fillToggle.click();
    EXPECT_EQ(text.bevelInnerOuter(), look::BevelInnerOuter::inner);
    EXPECT_EQ(panel.fillToggle.title(), "Fill w. Frontcol.");
    panel.bevelSlider.sliderTapped();
    EXPECT_FLOAT_EQ(static_cast<float>(text.bevelRadius()), 1.8f);
}

TEST_F(LayouterMenuTest, ImagePanelMirrorsTurnsAndShows) {
    press("Image");
    auto& panel = strip<ImagePanel>();
    EXPECT_EQ(panel.toggleImageVisibilityButton.title(), "Show");
    panel.flipH.click();
    EXPECT_TRUE(nodes.imageNode->hFlipped);
    EXPECT_TRUE(nodes.imageNode->isVisible);
    EXPECT_EQ(panel.toggleImageVisibilityButton.title(), "Hide");
    EXPECT_EQ(panel.flipH.image(), "FlipH_2");
    panel.toggleImageVisibilityButton.click();
    EXPECT_FALSE(nodes.imageNode->isVisible);
    panel.flipV.click();
    panel.flipH.click();
    EXPECT_TRUE(nodes.imageNode->vFlipped);
    EXPECT_FALSE(nodes.imageNode->hFlipped);
    panel.rotate.click();
    EXPECT_TRUE(nodes.imageNode->orientationRotationNode->hasActions());
    const ImagePanel later(nodes.imageNode, {});
    EXPECT_TRUE(later.flipV.isMySelected() && !later.flipH.isMySelected());
}

TEST_F(LayouterMenuTest, TheSliderMovesWhatIsChosenAndSaysSo) {
    std::vector<std::string> said;
    signals().messageSignal.subscribe(
        listening, [&](const std::string& message) { said.push_back(message); });
    press("Object");
    press("Transform");
    auto& panel = strip<TransformPanel>();
    nodes.mediaNode->isVisible = false;
    panel.slider().moveTo(-120.4);
    EXPECT_TRUE(nodes.mediaNode->isVisible) << "what is moved is shown";
    EXPECT_EQ(panel.slider().defaultValue, nodes.mediaNode->initialPosition.z);
    EXPECT_FLOAT_EQ(nodes.mediaNode->layoutPosition().z, -120.4f);
    for (const int tag : {1, 2, 3}) {
        panel.setUpSlider(tag);
        EXPECT_DOUBLE_EQ(panel.slider().value(), 0);
        EXPECT_EQ(panel.slider().defaultValue, 0);
        panel.slider().moveTo(-90.0 + tag);
        panel.setUpSlider(tag);
        EXPECT_NEAR(panel.slider().value(), -90.0 + tag, 1e-3) << tag;
    }
    EXPECT_THAT(
        said,
        ElementsAre("PositionZ -120", "RotationX -89 °", "RotationY -88 °", "RotationZ -87 °"));
}

TEST_F(LayouterMenuTest, WritesOnTheTextInHandAlone) {
    press("Text 1");
    press("Write");
    EXPECT_TRUE(menu.isWriting());
    EXPECT_EQ(menu.writtenText(), "TITLE");
    EXPECT_EQ(lit(), "Material") << "Write does not become the current tab";
    menu.textFieldDidChange(QString::fromUtf8("Grüße"));
    menu.endWriting();
    EXPECT_EQ(nodes.textNode1->text(), "Grüße");
    menu.writeAction();
    menu.textFieldDidChange("QX%");
    model.start();
    EXPECT_EQ(nodes.textNode1->text(), "QX%") << "a run begins with what was written";
    model.stop(model::Reset::toStart);
    menu.setCurrentNodeFromButton(3);
    EXPECT_FALSE(menu.isWriting());
    menu.textFieldDidChange("nobody's");
    menu.writeAction();
    EXPECT_FALSE(menu.isWriting()) << "an object has no text";
}

} // namespace
} // namespace zelvo::ui
