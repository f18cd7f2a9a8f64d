// SPDX-License-Identifier: MIT
// Tab TXT: moves of letters that are on stage. Only texts take part, and nothing is reset first, so
// that other animations continue.
#include "actions/ActionController.h"
#include "actions/TimingCurves.h"
#include "catalogue/LetterRecipe.h"
#include "catalogue/Tabs.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace zelvo::catalogue {

namespace {

using actions::ActionController;
using actions::elasticOut;
using actions::sineIn;
using actions::sineInOut;
using actions::sineOut;
using scene::SCNAction;

/// The parameters of an animation, fixed at the press and the same in each replay.
struct TextTake {
    const stage::Nodes& stage;
    std::vector<node::NodePtr> texts;
    double d = 0; ///< seconds: the row's factor times the base duration at the press

    [[nodiscard]] bool has(const node::NodePtr& text) const {
        return std::ranges::find(texts, text) != texts.end();
    }
};

[[nodiscard]] Letters lettersOf(const node::NodePtr& text) {
    return catalogue::lettersOf(std::vector{text});
}

[[nodiscard]] scene::SCNActionPtr rotateShortestTo(const Degrees& angles, const Pace& pace) {
    return SCNAction::rotateTo(
        angles.radians(), pace.duration, pace.timing, scene::UnitArc::shortest);
}

void rotateLettersY(const TextTake& take) {
    const auto turn = SCNAction::sequence(
        {rotateTo({0, 360, 0}), rotateTo({0, 0, 0}, {take.d / 5 * 4, sineIn})}, sineOut);
    for (const content::CharNodePtr& letter : catalogue::lettersOf(take.texts))
        letter->runAction(turn, kRotateKey);
}

void punch(const TextTake& take) {
    constexpr Stagger kStagger{.perLetter = 0.045};
    constexpr float kNear = 85; // instead of the letter's own z
    const Pace hop{0.15 * take.d, actions::bezierTiming(0.0f, 0.0f, 0.5f, 1.3f)};
    const LetterMoves moves = [hop](content::CharNode& letter, const glm::vec3& p) {
        letter.runAction(
            SCNAction::sequence({moveTo({p.x, p.y, kNear}, hop), moveTo(p, hop)}, sineInOut));
    };
    for (const node::NodePtr& text : take.texts)
        staggerLetters(lettersOf(text), kStagger, BeforeTurn::asIs, moves);
}

void lettersExplosion(const TextTake& take) {
    const Pace burst{0.5 * take.d, sineOut};
    const Pace back{take.d, elasticOut(2.0f)};
    for (const content::CharNodePtr& letter : catalogue::lettersOf(take.texts)) {
        const glm::vec3 p = placeOf(*letter);
        // Braces guarantee the order of the random draws.
        const glm::vec3 abc{randomOffset(800), randomOffset(800), randomOffset(800)};
        const Degrees r{randomOffset(540), randomOffset(540), randomOffset(540)};
        letter->runAction(SCNAction::sequence({moveTo(p + abc, burst), moveTo(p, back)}));
        letter->runAction(
            SCNAction::sequence({rotateTo(r, burst), rotateTo({0, 0, 0}, back)}), kRotateKey);
    }
}

/// Each letter in turn jumps to `from` and rotates to `to`.
void turnLetters(
    const node::NodePtr& text,
    const Degrees& from,
    const Degrees& to,
    double d,
    const Stagger& stagger) {
    const auto turn = SCNAction::sequence({rotateTo(from), rotateTo(to, {0.65 * d})}, sineOut);
    staggerLetters(
        lettersOf(text), stagger, BeforeTurn::asIs, [turn](content::CharNode& letter, glm::vec3) {
            letter.runAction(turn, kRotateKey);
        });
}

void rotateLetters(const TextTake& take) {
    for (const node::NodePtr& text : take.texts)
        turnLetters(text, {-360, 0, 0}, {0, 0, 0}, take.d, {.perLetter = 0.1});
}

/// Rotates the whole text to an angle around y, to the opposite angle and back to 0.
void swing(scene::SCNNode& node, float a, double d) {
    const double u = 0.3 * d;
    const auto swinging = SCNAction::sequence({
        rotateShortestTo({0, a, 0}, {0.5 * u, sineIn}),
        rotateTo({0, -a, 0}, {u, sineInOut}),
        rotateTo({0, 0, 0}, {0.82 * u, sineOut}),
    });
    node.runAction(swinging, kRotateKey);
}

void wave(const TextTake& take) {
    constexpr float kAngle = 25;
    const bool isMirrored = take.has(take.stage.textNode1) && take.has(take.stage.textNode2);
    for (const node::NodePtr& text : take.texts) {
        const bool isSecond = isMirrored && text == take.stage.textNode2;
        swing(*text->contentNode, isSecond ? -kAngle : kAngle, take.d);
    }
}

void bendLetters(const node::NodePtr& text, double d) {
    constexpr float kFan = 70;
    const Letters letters = lettersOf(text);
    const std::size_t n = letters.size() + letters.size() % 2;
    const float divisor = static_cast<float>(std::max<std::size_t>(n, 2) - 1);
    // If the letters still lean, they swing to the other side.
    const float f = letters.empty() ? 0 : letters.front()->eulerAngles().x;
    float i = 0;
    for (const content::CharNodePtr& letter : letters) {
        const float a = 2 * (i++ / divisor) * kFan - kFan;
        const float b = f < 0 ? a : -a;
        const float c = -b;
        const auto bend = SCNAction::sequence({
            rotateShortestTo({b, 0, 0}, {0.175 * d, sineIn}),
            rotateTo({c, 0, 0}, {0.35 * d, sineInOut}),
            rotateTo({0, 0, 0}, {0.2625 * d, sineOut}),
        });
        letter->runAction(bend, kRotateKey);
    }
}

void bendLetters(const TextTake& take) {
    for (const node::NodePtr& text : take.texts)
        bendLetters(text, take.d);
}

struct TextRow {
    std::string_view title; ///< and name of the image
    double factor;          ///< multiplies the base duration
    void (*body)(const TextTake&);
};

// clang-format off
constexpr auto kRows = std::to_array<TextRow>({
    {"RotateLettersY",   1.0,  rotateLettersY  },
    {"Punch",            1.0,  punch           },
    {"LettersExplosion", 0.8,  lettersExplosion},
    {"RotateLetters",    0.75, rotateLetters   },
    {"Wave",             1.0,  wave            },
    {"BendLetters",      1.0,  bendLetters     },
});

// clang-format on

void press(const PressContext& context, const TextRow& row) {
    ActionController& controller = context.controller;
    TextTake take{controller.nodes, {}, row.factor * context.animationFactor};
    std::ranges::copy_if(
        context.affectedNodes, std::back_inserter(take.texts), [](const node::NodePtr& node) {
            return isText(*node);
        });
    if (take.texts.empty())
        return;
    const std::string title = ActionController::describe(row.title, take.texts);
    controller.addAction(
        [take = std::move(take), body = row.body] { body(take); },
        controller.newIdentifier(),
        title,
        actions::RegisterUndo::yes);
}

} // namespace

std::vector<Button> showTXT() {
    std::vector<Button> buttons;
    buttons.reserve(kRows.size());
    for (const TextRow& row : kRows) {
        buttons.push_back(
            {.face = {.image = row.title},
             .title = row.title,
             .beganFunc = [&row](const PressContext& context) { press(context, row); },
             .endFunc = {}});
    }
    return buttons;
}

} // namespace zelvo::catalogue
