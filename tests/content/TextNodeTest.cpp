// SPDX-License-Identifier: MIT
#include "content/TextNode.h"

#include "content/StylePresets.h"
#include "platform/scene/SCNShapes.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

namespace zelvo::content {
namespace {

using image::Color;
using look::XMATClasses;
using test::TestWorld;

constexpr auto kFont = "Audiowide-Regular";

class TextNodeTest : public testing::Test {
protected:
    [[nodiscard]] TextNodePtr textOf(const std::string& string, const std::string& font = kFont) {
        return TextNode::make(
            {.text = string, .fontName = font, .shortName = "TX1"}, world.surroundings());
    }

    /// The box of the visible content in the space of the node, without the frame.
    static geometry::Box seen(const TextNode& text) { return text.positionNode->boundingBox(); }

    static float middle(const TextNode& text) {
        const geometry::Box box = seen(text);
        return (box.min.x + box.max.x) / 2;
    }

    static bool areEqual(const geometry::Mesh& a, const geometry::Mesh& b) {
        return a.indices == b.indices &&
               std::ranges::equal(a.vertices, b.vertices, [](const auto& p, const auto& q) {
                   return p.position == q.position && p.normal == q.normal &&
                          p.tangent == q.tangent && p.uv == q.uv;
               });
    }

    static const scene::SCNText& solid(const TextNode& text) {
        return dynamic_cast<const scene::SCNText&>(*text.letters().front()->geometry);
    }

    TestWorld world;
};

TEST_F(TextNodeTest, CentresTheStringOnTheNode) {
    using Row = std::pair<const char*, const char*>;

    // Only side bearings and the spacing after the last letter may move it from the middle.
    constexpr float kTolerance = 6;
    for (const auto& [string, font] :
         {Row{"TITLE", "Audiowide-Regular"},
          {"iiiiWWWW", "Audiowide-Regular"},
          {"WWWWiiii", "DaysOne-Regular"},
          {"AVAVAV", "Quicksand-Bold"},
          {"M", "Bangers-Regular"}}) {
        const auto text = textOf(string, font);
        const geometry::Box box = seen(*text);
        EXPECT_GT(box.max.x - box.min.x, 40) << string;
        EXPECT_NEAR(middle(*text), 0, kTolerance) << string << " in " << font;
        EXPECT_NEAR(box.max.y, -box.min.y, 8) << string << ": capitals stand around the origin";
    }
}

TEST_F(TextNodeTest, MeasuresBlanksAtBothEnds) {
    const float blank = textOf("A A")->letters()[2]->originalPosition->x -
                        textOf("AA")->letters()[1]->originalPosition->x;
    ASSERT_GT(blank, 5);
    const float plain = middle(*textOf("AB"));
    EXPECT_NEAR(middle(*textOf("AB  ")), plain - blank, 0.5f);
    EXPECT_NEAR(middle(*textOf("  AB")), plain + blank, 0.5f);

    const auto blanks = textOf("   ");
    EXPECT_EQ(blanks->letters().size(), 3U);
    EXPECT_GT(blanks->contentNode->pivot[3].x, blank) << "the line's measure still centres them";
}

TEST_F(TextNodeTest, MakesOneLetterPerCharacterOfAnything) {
    struct Row {
        const char* what;
        std::string text;
        std::size_t letters;
        float offMiddle; ///< the largest distance allowed
    };

    const std::string fiveHundred(500, 'n');
    for (const Row& row :
         {Row{"empty", "", 0, 0},
          {"combining mark", "e\u0301a", 2, 6},
          {"right to left", "\u05E9\u05DC\u05D5\u05DD", 4, 6},
          {"a mark alone, which stands left of its pen", "\u0301", 1, 60},
          {"a character that binds the next one", "A\u0600", 2, 16},
          {"a family", "\U0001F468\u200D\U0001F469\u200D\U0001F467", 1, 10},
          {"no UTF-8", "A\xC3", 2, 16},
          {"long", fiveHundred, 500, 6}}) {
        const auto text = textOf(row.text);
        EXPECT_EQ(text->letters().size(), row.letters) << row.what;
        for (const CharNodePtr& letter : text->letters()) {
            EXPECT_TRUE(std::isfinite(letter->originalPosition->x)) << row.what;
            EXPECT_EQ(letter->wrapperNode.lock(), text) << row.what;
        }
        EXPECT_TRUE(std::isfinite(text->contentNode->pivot[3].x)) << row.what;
        EXPECT_NEAR(middle(*text), 0, row.offMiddle) << row.what;
    }
    EXPECT_EQ(textOf("")->bgPlane->width(), 100);
    const auto text = textOf("\u05E9\u05DC\u05D5\u05DD");
    const geometry::Box box = text->contentNode->boundingBox();
    EXPECT_NEAR(text->bgPlane->width(), box.max.x - box.min.x, 12) << "the frame fits";
}

TEST_F(TextNodeTest, TurnsAllLettersAboutOneCommonPoint) {
    const auto text = textOf("iW.");
    const auto letters = text->letters();
    float widths = 0;
    float highest = 0;
    for (const CharNodePtr& letter : letters) {
        const geometry::Box box = letter->boundingBox();
        widths += box.max.x;
        highest = std::max(highest, box.max.y);
    }
    for (const CharNodePtr& letter : letters) {
        EXPECT_NEAR(letter->pivot[3].x, widths / 6, 1e-3f);
        EXPECT_NEAR(letter->pivot[3].y, highest / 2, 1e-3f);
    }
}

TEST_F(TextNodeTest, ItsLowestPlaceIsThatOfTheLayoutWhateverIsPerformed) {
    const auto text = textOf("gap");
    const float atHome = text->lowestInLayout().value();
    const std::string word = text->text();
    text->setText(word + " " + word);
    EXPECT_EQ(text->lowestInLayout(), atHome) << "a blank has no place";
    text->setText(word);
    float lowest = 1000;
    for (const CharNodePtr& letter : text->letters())
        lowest = std::min(lowest, letter->worldTransform()[3].y + letter->boundingBox().min.y);
    EXPECT_NEAR(atHome, lowest, 0.01f);
    text->position = glm::vec3(0, -50, 0);
    text->xAxisNode->position = glm::vec3(0, -50, 0);
    text->letters()[0]->position = glm::vec3(0, -50, 0);
    EXPECT_EQ(text->lowestInLayout(), atHome);
    text->setLayoutPosition({0, -30, 0});
    EXPECT_NEAR(*text->lowestInLayout(), atHome - 30, 0.01f);
    text->isVisible = false;
    EXPECT_EQ(text->lowestInLayout(), std::nullopt);
}

TEST_F(TextNodeTest, StartsTheMaterialOfEachLetterElsewhere) {
    const auto text = textOf("AAAAAA");
    const auto letters = text->letters();
    for (std::size_t i = 0; i < letters.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            const glm::vec2 apart = letters[i]->textureShift - letters[k]->textureShift;
            const glm::vec2 inTile = glm::abs(apart - glm::round(apart));
            EXPECT_GT(std::max(inTile.x, inTile.y), 0.1f) << i << " and " << k;
        }
    }
}

TEST_F(TextNodeTest, SpacesLettersByKerning) {
    const auto text = textOf("HEH");
    const float before = text->letters()[2]->originalPosition->x;
    text->setKerning(9);
    EXPECT_NEAR(text->letters()[2]->originalPosition->x - before, 20, 1e-3f)
        << "twice from -1 to 9";
}

TEST_F(TextNodeTest, RebuildsLettersButForADepth) {
    const auto text = textOf("AB");
    const CharNodePtr first = text->letters().front();
    text->setExtrusionDepth(0.2);
    EXPECT_EQ(text->letters().front(), first);
    EXPECT_EQ(solid(*text).extrusionDepth(), 1) << "a change of depth has a floor";
    text->setBevelRadius(2);
    EXPECT_NE(text->letters().front(), first);
    EXPECT_EQ(first->parent(), nullptr);
    EXPECT_NEAR(solid(*text).extrusionDepth(), 0.2, 1e-9) << "a rebuild has none";
    text->setExtrusionDepth(0);
    text->setBevelRadius(-1);
    EXPECT_GT(solid(*text).extrusionDepth(), 0) << "nothing can be flat";
    EXPECT_GE(solid(*text).chamferRadius(), 0);
}

TEST_F(TextNodeTest, AChangedTextHasTheLettersOfANewOne) {
    using Change = std::function<void(TextNode&)>;
    // clang-format off
    const Change changes[] = {
        [](TextNode& text) { text.setExtrusionDepth(60); },
        [](TextNode& text) { text.setExtrusionDepth(3); }, // the chamfers take half of it each
        [](TextNode& text) { text.setBevelRadius(3); },
        [](TextNode& text) { text.setText("ABCA"); },
        [](TextNode& text) { text.setBevelProfile(look::BevelProfile::rounded); },
        [](TextNode& text) { text.setFontName("Bangers-Regular"); },
        [](TextNode& text) { text.setExtrusionDepth(80); },
        [](TextNode& text) { text.setBevelRadius(0); },
        [](TextNode& text) { text.setBevelRadius(0.5f); },
    };
    // clang-format on
    const auto text = textOf("AB");
    for (std::size_t last = 0; last < std::size(changes); ++last) {
        changes[last](*text);
        const auto fresh = textOf(text->text(), text->fontName());
        fresh->setBevelProfile(text->bevelProfile());
        fresh->setBevelRadius(static_cast<float>(text->bevelRadius()));
        fresh->setExtrusionDepth(text->extrusionDepth());
        fresh->setKerning(8);
        fresh->setKerning(TextNode::kKerning); // builds all anew
        ASSERT_EQ(text->letters().size(), fresh->letters().size());
        for (std::size_t i = 0; i < text->letters().size(); ++i) {
            const auto& made = *text->letters()[i];
            const auto& wanted = *fresh->letters()[i];
            EXPECT_EQ(made.originalPosition, wanted.originalPosition) << last;
            EXPECT_EQ(made.pivot, wanted.pivot) << last;
            EXPECT_TRUE(areEqual(made.geometry->mesh(), wanted.geometry->mesh())) << last;
        }
    }
}

TEST_F(TextNodeTest, ShowsOnlyTheLastOfWhatIsToBeShownSoon) {
    const auto text = textOf("AB");
    const auto letters = text->letters();
    text->setTextSoon("QX");
    text->setFontNameSoon("Bangers-Regular");
    text->setTextSoon("QJ%");
    EXPECT_EQ(text->letters(), letters) << "until the outlines are known";
    world.runLoop.drain();
    EXPECT_EQ(text->text(), "QJ%");
    EXPECT_EQ(text->fontName(), "Bangers-Regular");
    EXPECT_EQ(text->letters().size(), 3U);

    text->setTextSoon("J%Q");
    EXPECT_EQ(text->text(), "J%Q") << "all of them are known";
    text->setTextSoon("&");
    text->setText("A");
    world.runLoop.drain();
    EXPECT_EQ(text->text(), "A") << "it came later";
    text->setTextSoon("$");
    text->settle();
    EXPECT_EQ(text->text(), "$");
}

TEST_F(TextNodeTest, TakesAWholeStyle) {
    const auto text = textOf("AB");
    TextStylePreset style;
    style.frontColor = Color::white(0);
    style.bandColor = Color::white(0);
    style.material = XMATClasses::dynamicFlat;
    style.fontName = "FugazOne-Regular";
    style.bevelProfile = look::BevelProfile::rounded;
    style.bevelRadius = 3;
    style.bevelInnerOuter = look::BevelInnerOuter::outer;
    style.extrusionDepth = 44;
    text->applyStyle(style);
    const scene::SCNText& letter = solid(*text);
    EXPECT_EQ(letter.chamferRadius(), 3);
    EXPECT_EQ(letter.extrusionDepth(), 44);
    EXPECT_NEAR(letter.boundingBox().max.z, 22, 1e-3f);
    ASSERT_EQ(letter.materials.size(), 5U);
    EXPECT_EQ(letter.materials[0]->emission.colorOr({}), Color::white(0.1f)) << "the glow's floor";
    EXPECT_EQ(letter.materials[4]->diffuse.colorOr({}), Color::white(0));
    const std::size_t vertices = letter.mesh().vertices.size();
    text->setBevelInnerOuter(look::BevelInnerOuter::inner);
    EXPECT_EQ(solid(*text).materials.size(), 3U);
    text->setBevelProfile(look::BevelProfile::linear);
    EXPECT_LT(solid(*text).mesh().vertices.size(), vertices) << "a round chamfer has more bands";
}

TEST_F(TextNodeTest, KeepsItsColoursAcrossPairs) {
    const auto text = textOf("A");
    const Color red{1, 0, 0, 1};
    const Color green{0, 1, 0, 1};
    text->setFrontColor(red);
    text->setBandColor(green);
    text->setCurrentMaterialName(XMATClasses::ironPlastic);
    EXPECT_EQ(text->currentMaterial->name, XMATClasses::ironPlastic);
    EXPECT_EQ(solid(*text).materials[0]->diffuse.colorOr({}), red);
    EXPECT_EQ(solid(*text).materials[2]->diffuse.colorOr({}), green);
    text->setCurrentMaterialName(XMATClasses::bigBand);
    EXPECT_EQ(text->currentMaterial->name, XMATClasses::flat) << "the first pair stands in";

    text->setCurrentMaterialName(std::nullopt);
    text->setText("XYZ");
    EXPECT_EQ(text->letters().size(), 1U) << "no material, no rebuild";
}

TEST_F(TextNodeTest, SetsAnUnknownFontInTheFallback) {
    const auto unknown = textOf("Q", "No Such Font");
    const auto known = textOf("Q", "HelveticaNeue-Bold");
    EXPECT_EQ(unknown->fontName(), "No Such Font");
    EXPECT_FLOAT_EQ(solid(*unknown).boundingBox().max.x, solid(*known).boundingBox().max.x);
}

} // namespace
} // namespace zelvo::content
