// SPDX-License-Identifier: MIT
#include "catalogue/BuildingBlocks.h"

#include "platform/foundation/Random.h"

#include <cstdint>
#include <utility>

namespace zelvo::catalogue {

using foundation::arc4random;
using foundation::arc4random_uniform;
using scene::SCNAction;

namespace {

scene::SCNActionPtr turning(const Degrees& from, const Degrees& to, const Pace& pace) {
    return SCNAction::sequence({rotateTo(from), rotateTo(to, pace)});
}

} // namespace

scene::SCNActionPtr moveTo(const glm::vec3& place, const Pace& pace) {
    return SCNAction::moveTo(place, pace.duration, pace.timing);
}

scene::SCNActionPtr rotateTo(const Degrees& angles, const Pace& pace) {
    return SCNAction::rotateTo(angles.radians(), pace.duration, pace.timing);
}

void moveFromTo(
    scene::SCNNode& node, const glm::vec3& from, const glm::vec3& to, const Pace& pace) {
    node.runAction(SCNAction::sequence({moveTo(from), moveTo(to, pace)}));
}

void rotateFromTo(scene::SCNNode& node, const Degrees& from, const Degrees& to, const Pace& pace) {
    node.runAction(turning(from, to, pace), kRotateKey);
}

void rotateFromToKeyless(
    scene::SCNNode& node, const Degrees& from, const Degrees& to, const Pace& pace) {
    node.runAction(turning(from, to, pace));
}

int randomBetween(int low, int high) {
    return low + static_cast<int>(arc4random() % static_cast<std::uint32_t>(high - low + 1));
}

int randomSign() {
    return arc4random_uniform(2) == 0 ? -1 : 1;
}

float randomDegrees(int low, int high) {
    const int angle = randomBetween(low, high);
    return static_cast<float>(angle * randomSign());
}

Degrees randomTurn(int low, int high) {
    // Braces guarantee the order of the random draws.
    return Degrees{randomDegrees(low, high), randomDegrees(low, high), randomDegrees(low, high)};
}

float randomOffset(int span) {
    const auto draw = static_cast<int>(arc4random_uniform(static_cast<std::uint32_t>(span)));
    const int offset = draw - span / 2;
    return static_cast<float>(offset);
}

Letters lettersOf(const std::vector<node::NodePtr>& nodes) {
    Letters letters;
    for (const node::NodePtr& node : nodes) {
        const auto* text = dynamic_cast<const content::TextNode*>(node.get());
        if (text == nullptr)
            continue;
        for (content::CharNodePtr& letter : text->letters()) {
            letters.push_back(std::move(letter));
        }
    }
    return letters;
}

std::vector<node::NodePtr> nonTextNodes(const std::vector<node::NodePtr>& nodes) {
    std::vector<node::NodePtr> others;
    for (const node::NodePtr& node : nodes) {
        if (!isText(*node))
            others.push_back(node);
    }
    return others;
}

bool isText(const node::Node& node) {
    return dynamic_cast<const content::TextNode*>(&node) != nullptr;
}

Letters shuffled(Letters letters) {
    for (std::size_t left = letters.size(); left > 1; --left) {
        const std::size_t chosen = arc4random_uniform(static_cast<std::uint32_t>(left));
        std::swap(letters[left - 1], letters[chosen]);
    }
    return letters;
}

} // namespace zelvo::catalogue
