// SPDX-License-Identifier: MIT
#include "catalogue/CameraMoves.h"

#include "actions/ActionController.h"
#include "actions/TimingCurves.h"
#include "catalogue/BuildingBlocks.h"
#include "platform/foundation/Random.h"
#include "platform/scene/CAKeyframeAnimation.h"

#include <string>
#include <utility>
#include <vector>

namespace zelvo::catalogue {

namespace {

using actions::ActionController;
using foundation::arc4random_uniform;
using scene::CAKeyframeAnimation;
using scene::CAMediaTimingFunction;
using scene::SCNAction;

void record(ActionController& controller, std::string_view title, std::function<void()> body) {
    controller.addAction(
        std::move(body),
        controller.newIdentifier(),
        std::string(title),
        actions::RegisterUndo::yes);
}

/// A random value from -reach to almost reach, in steps of 1.
float within(double reach) {
    const std::uint32_t draw = arc4random_uniform(static_cast<std::uint32_t>(2 * reach));
    return static_cast<float>(draw - reach);
}

scene::SCNActionPtr quake(double d) {
    constexpr int kLast = 10;
    const double s = 0.018 * d;
    const auto swing = actions::elasticInOut(0.4f, 0.4f);
    std::vector<scene::SCNActionPtr> steps;
    for (int i = kLast; i >= 0; --i) {
        const double a = s * i;
        // Braces guarantee the order of the random draws.
        const glm::vec3 place{within(54 * a), within(50 * a), within(50 * a)};
        steps.push_back(moveTo(place, {0.1 * (kLast - i), swing}));
    }
    return SCNAction::sequence(std::move(steps), actions::elasticOut(0.4f));
}

struct Turbulence {
    CAKeyframeAnimation::KeyPath keyPath;
    std::uint32_t amplitude;
    glm::vec4 start;
    float angle; ///< radians per unit of the amplitude
};

/// A value near the start: x and y on both sides of it, z mostly towards the viewer.
glm::vec4 turbulentValue(const Turbulence& t) {
    const auto u = [&] { return static_cast<float>(arc4random_uniform(t.amplitude)); };
    const auto a = static_cast<float>(t.amplitude);
    const glm::vec4 value{u() - a / 2, u() - a / 2, u() - a / 5 + t.start.z, 0};
    if (t.angle == 0)
        return value;
    return {glm::vec3(value), (u() - a / 2) * t.angle};
}

CAKeyframeAnimation turbulent(const Turbulence& t) {
    constexpr int kSteps = 10;
    CAKeyframeAnimation animation;
    animation.keyPath = t.keyPath;
    animation.values = {t.start};
    animation.keyTimes = {0};
    animation.timingFunctions = {{0.1f, 0.7f, 0.5f, 0.98f}};
    for (int i = 1; i < kSteps; ++i) {
        animation.values.push_back(turbulentValue(t));
        animation.keyTimes.push_back(static_cast<double>(i) / kSteps);
        const float q = static_cast<float>(arc4random_uniform(70)) / 100;
        animation.timingFunctions.push_back({q + 0.1f, 0.02f, q + 0.1f, 0.96f});
    }
    animation.values.push_back(t.start);
    animation.keyTimes.push_back(1);
    animation.timingFunction = CAMediaTimingFunction{0.0f, 0.77f, 0.65f, 1.0f};
    animation.duration = 4;
    animation.repeatCount = 1;
    animation.fadeInDuration = 0.5;
    animation.fadeOutDuration = 0.5;
    return animation;
}

} // namespace

void quakeCam(const PressContext& context, std::string_view title) {
    ActionController& controller = context.controller;
    const auto steps = quake(context.animationFactor);
    record(controller, title, [node = controller.nodes.cameraWiggle, steps] {
        node->runAction(steps);
    });
}

void shortZoomWiggle(const PressContext& context, std::string_view title) {
    ActionController& controller = context.controller;
    const double d = context.animationFactor;
    const auto r1 = static_cast<float>(arc4random_uniform(12));
    const auto r2 = static_cast<float>(arc4random_uniform(12));
    const auto wiggle = SCNAction::sequence({
        SCNAction::moveBy({r1, r2, -67}, 0.02 * d),
        SCNAction::moveBy({-r1, -r2, 67}, 0.58 * d, actions::sineOut),
    });
    record(controller, title, [node = controller.nodes.cameraNode, wiggle] {
        node->runAction(wiggle);
    });
}

void turbulence(const PressContext& context, std::string_view title) {
    ActionController& controller = context.controller;
    record(controller, title, [node = controller.nodes.cameraWiggle] {
        using KeyPath = CAKeyframeAnimation::KeyPath;
        const glm::vec4 place(node->position.value(), 0);
        node->addAnimation(turbulent({KeyPath::position, 12, place, 0}), "position");
        // The axis is random, too. The amplitude of the angle is in degrees.
        node->addAnimation(
            turbulent({KeyPath::rotation, 8, node->rotation(), glm::radians(1.0f)}), "rotation");
    });
}

} // namespace zelvo::catalogue
