// SPDX-License-Identifier: MIT
// Tab FX3: particles, a beacon, a sweeping streak.
#include "actions/ActionController.h"
#include "catalogue/BuildingBlocks.h"
#include "catalogue/EffectsRecord.h"
#include "catalogue/FullFrame.h"
#include "catalogue/Tabs.h"
#include "node/LightNodes.h"
#include "platform/foundation/Random.h"
#include "platform/image/reading/ImageNamed.h"
#include "platform/scene/SCNShapes.h"

#include <array>

namespace zelvo::catalogue {

namespace {

using actions::ActionController;
using foundation::arc4random_uniform;
using scene::SCNAction;

constexpr auto kColorBeams = "ColorBeams";
constexpr auto kClouds = "Clouds";
constexpr auto kBeacon = "Beacon";
constexpr auto kWosher = "Wosher"; ///< the button shows "Woosh"
constexpr auto kVoltage = "Voltage";

constexpr double kBeaconFactor = 0.8;
constexpr glm::vec3 kBeaconStart{-900, 0, 0};
constexpr glm::vec3 kBeaconEnd{900, 0, 0};

constexpr std::uint32_t kStreakMask = 16;
constexpr double kSweepShare = 0.33;    ///< share of the duration; three sweeps
constexpr double kFlickerShare = 0.165; ///< share of the duration; six flickers

Button particleButton(const char* title, stage::ParticleList const stage::Nodes::*particles) {
    return {
        .face = {.label = title},
        .title = title,
        .beganFunc =
            [title, particles](const PressContext& context) {
                recordEffect(context, title, [&controller = context.controller, particles] {
                    const stage::Nodes& stage = controller.nodes;
                    addParticles(*stage.particleAndParticleLightHolder, stage.*particles);
                });
            },
        .endFunc = {}};
}

void sweepBeacon(ActionController& controller, double d) {
    const NodePtr node = node::LightNodes::spotLight();
    strengthen(*node->light, EffectLight::beacon);
    node->position = kBeaconStart;
    controller.nodes.addEffect(*controller.nodes.cameraNode, node);
    const std::weak_ptr<node::DefaultSCNNode> weak = node;
    node->runAction(SCNAction::moveTo(kBeaconEnd, d), [weak, &controller] {
        if (const NodePtr ended = weak.lock())
            removeSoon(controller, ended);
    });
}

void pressBeacon(const PressContext& context) {
    const double d = kBeaconFactor * context.animationFactor;
    recordEffect(
        context, kBeacon, [&controller = context.controller, d] { sweepBeacon(controller, d); });
}

/// Drawn at the press and kept for replays.
struct Streak {
    double seconds = 0;
    glm::vec3 start{0};
    double width = 0;
    double height = 0;
    scene::SCNMaterialPtr material;
    scene::SCNActionPtr flicker;
    scene::SCNActionPtr sweep;
    scene::SCNActionPtr wait;
    scene::SCNLightPtr light;
};

/// The comet's head leads the first sweep, wherever that starts.
scene::SCNMaterialPtr streakMaterial(bool goesLeft) {
    auto material = std::make_shared<scene::SCNMaterial>();
    material->lightingModelName = scene::SCNLightingModel::constant;
    for (scene::SCNMaterialProperty* slot :
         {&material->diffuse, &material->ambient, &material->reflective}) {
        slot->contents = image::Color::white(0);
    }
    material->emission.contents = image::Color::white(1);
    material->emission.intensity = 0.85f;
    material->isDoubleSided = true;
    material->transparencyMode = scene::SCNTransparencyMode::rgbZero;
    material->transparency = 1;
    material->transparent.setImage(image::requiredImage("Streak_1.png"));
    if (goesLeft) {
        glm::mat4 mirrored(1); // u becomes 1 - u
        mirrored[0][0] = -1;
        mirrored[3][0] = 1;
        material->transparent.contentsTransform = mirrored;
    }
    return material;
}

scene::SCNActionPtr flickerOver(double t) {
    const double step = kFlickerShare * t;
    std::vector<scene::SCNActionPtr> steps;
    for (int i = 0; i < 3; ++i) {
        steps.push_back(SCNAction::fadeIn(step));
        steps.push_back(SCNAction::fadeOut(step));
    }
    return SCNAction::sequence(std::move(steps));
}

/// Three sweeps. The negative scale mirrors the streak on its way back.
scene::SCNActionPtr sweepOver(double t, const glm::vec3& start) {
    const auto [x, y, z] = std::array{start.x, start.y, start.z};
    const double step = kSweepShare * t;
    return SCNAction::sequence({
        SCNAction::moveTo({-x, y, z}, step),
        SCNAction::scaleTo(-1, 0),
        SCNAction::moveTo({x, y, -z}, step),
        SCNAction::scaleTo(1, 0),
        SCNAction::moveTo({-x, y, z}, step),
    });
}

scene::SCNLightPtr streakLight() {
    auto light = std::make_shared<scene::SCNLight>();
    light->type = scene::SCNLightType::omni;
    light->intensity = 1e7;
    light->categoryBitMask = node::kContentMask;
    light->zFar = 10000;
    strengthen(*light, EffectLight::streak);
    return light;
}

Streak drawnStreak(double d) {
    Streak streak;
    const double longer = 0.25 * arc4random_uniform(300) / 300;
    const float x = arc4random_uniform(2) == 0 ? -1700.0f : 1700.0f;
    streak.width = randomBetween(1200, 2280);
    streak.height = randomBetween(128, 205);
    const float y = 10 + randomDegrees(0, 40);
    const float z = randomDegrees(0, 70);
    streak.start = {x, y, z};
    streak.seconds = (d + longer) * 0.77;
    streak.material = streakMaterial(x > 0);
    streak.flicker = flickerOver(streak.seconds);
    streak.sweep = sweepOver(streak.seconds, streak.start);
    streak.wait = SCNAction::wait(kSweepShare * streak.seconds);
    streak.light = streakLight();
    return streak;
}

void sweepStreak(ActionController& controller, const Streak& streak) {
    const auto plane = std::make_shared<node::DefaultSCNNode>();
    plane->geometry = std::make_shared<scene::SCNPlane>(streak.width, streak.height);
    plane->geometry->materials = {streak.material};
    plane->categoryBitMask = kStreakMask;
    plane->position = glm::vec3(0, 0, -50);
    const auto carrier = std::make_shared<node::DefaultSCNNode>();
    carrier->light = streak.light;
    carrier->opacity = 0.0f;
    carrier->position = glm::vec3(streak.start.x, streak.start.y, -streak.start.z);
    carrier->categoryBitMask = kStreakMask;
    carrier->addChildNode(plane);
    controller.nodes.addEffect(*controller.nodes.mediaHolderNode, carrier);

    const std::weak_ptr<node::DefaultSCNNode> weakPlane = plane;
    plane->runAction(streak.wait, [weakPlane, &controller] {
        if (const NodePtr standing = weakPlane.lock())
            standing->addParticleSystem(controller.nodes.wosherSparkles);
    });
    const std::weak_ptr<node::DefaultSCNNode> weak = carrier;
    carrier->runAction(SCNAction::group({streak.flicker, streak.sweep}), [weak, &controller] {
        if (const NodePtr ended = weak.lock())
            removeSoon(controller, ended);
    });
}

void pressWoosh(const PressContext& context) {
    const Streak streak = drawnStreak(context.animationFactor);
    recordEffect(context, kWosher, [&controller = context.controller, streak] {
        sweepStreak(controller, streak);
    });
}

Button firedButton(const char* label, const char* title, void (*fire)(const PressContext&)) {
    return {.face = {.label = label}, .title = title, .beganFunc = fire, .endFunc = {}};
}

} // namespace

std::vector<Button> showFX3() {
    return {
        particleButton(kColorBeams, &stage::Nodes::colorfulBeams),
        particleButton(kClouds, &stage::Nodes::particleClouds),
        firedButton(kBeacon, kBeacon, pressBeacon),
        firedButton("Woosh", kWosher, pressWoosh),
        glitchButton(Face{.label = "Glitch"}),
        particleButton(kVoltage, &stage::Nodes::particleVoltage),
    };
}

} // namespace zelvo::catalogue
