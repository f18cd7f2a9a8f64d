// SPDX-License-Identifier: MIT
// Tab FX2: bursts of particles and light. Their durations do not depend on the speed.
#include "actions/ActionController.h"
#include "catalogue/EffectsRecord.h"
#include "catalogue/Tabs.h"
#include "platform/foundation/Random.h"

#include <glm/trigonometric.hpp>

#include <array>
#include <optional>

namespace zelvo::catalogue {

namespace {

using foundation::arc4random_uniform;
using scene::SCNAction;
using scene::SCNTransaction;

constexpr double kPeak = 1e6;

enum class Place { middle, random };

struct Flash {
    double seconds; ///< up to the peak, and again down
    glm::vec3 color;
    double start;
    Place place = Place::middle;
};

struct BurstRow {
    std::string_view title;
    stage::ParticleList const stage::Nodes::*particles;
    std::optional<Flash> flash;
};

// clang-format off
constexpr auto kRows = std::to_array<BurstRow>({
    {"Drop",       &stage::Nodes::particleBigDropExpo, Flash{0.47, {0, 0, 0.5f}, 0}               },
    {"Hit 1",      &stage::Nodes::particleExplo3,      Flash{0.26, {1, 0.2f, 0}, 0, Place::random}},
    {"Hit 2",      &stage::Nodes::particleExplo2,      Flash{0.3, {1, 0.5f, 0}, 0}                },
    {"LightBeams", &stage::Nodes::lightBeams,          Flash{0.3, {0.8f, 0.8f, 1}, 1000}          },
    {"FireExplo",  &stage::Nodes::fireExplo,           {}                                         },
    {"Geo",        &stage::Nodes::geometryParticles,   {}                                         },
});

// clang-format on

/// Place and rotation of a burst, drawn at the press and kept for replays.
struct Pose {
    glm::vec3 position{0};
    float turn = 0; ///< radians around (1, 1, 1)
};

Pose drawnPose(Place place) {
    if (place == Place::middle)
        return {};
    const auto degrees = static_cast<float>(arc4random_uniform(360));
    const float x = static_cast<float>(arc4random_uniform(248)) - 124;
    const float y = static_cast<float>(arc4random_uniform(30)) - 15;
    return {{x, y, 0}, glm::radians(degrees)};
}

void fadeTo(scene::SCNLight& light, double intensity, double seconds) {
    SCNTransaction::begin();
    SCNTransaction::setAnimationDuration(seconds);
    light.intensity = intensity;
    SCNTransaction::commit();
}

void burst(
    actions::ActionController& controller,
    const stage::ParticleList& particles,
    const Flash& flash,
    const Pose& pose) {
    const auto light = std::make_shared<scene::SCNLight>();
    light->type = scene::SCNLightType::omni;
    light->categoryBitMask = node::kContentMask;
    light->color = {flash.color.r, flash.color.g, flash.color.b, 1};
    light->intensity = flash.start;
    strengthen(*light, EffectLight::burst);
    const auto node = std::make_shared<node::DefaultSCNNode>();
    node->light = light;
    node->position = pose.position;
    node->setRotation({1, 1, 1, pose.turn});
    controller.nodes.particleAndParticleLightHolder->addChildNode(node);
    addParticles(*node, particles);

    fadeTo(*light, kPeak, flash.seconds);
    const double t = flash.seconds;
    const std::weak_ptr<node::DefaultSCNNode> weak = node;
    node->runAction(SCNAction::wait(t), [weak, t, &controller] {
        const NodePtr standing = weak.lock();
        if (!standing)
            return;
        fadeTo(*standing->light, 0, t);
        standing->runAction(SCNAction::wait(t), [weak, &controller] {
            if (const NodePtr ended = weak.lock())
                removeSoon(controller, ended);
        });
    });
}

void press(const PressContext& context, const BurstRow& row) {
    actions::ActionController& controller = context.controller;
    const stage::ParticleList& particles = controller.nodes.*row.particles;
    if (!row.flash) {
        recordEffect(context, row.title, [&controller, &particles] {
            addParticles(*controller.nodes.particleAndParticleLightHolder, particles);
        });
        return;
    }
    const Pose pose = drawnPose(row.flash->place);
    recordEffect(context, row.title, [&controller, &particles, flash = *row.flash, pose] {
        burst(controller, particles, flash, pose);
    });
}

} // namespace

std::vector<Button> showFX2() {
    std::vector<Button> buttons;
    buttons.reserve(kRows.size());
    for (const BurstRow& row : kRows) {
        buttons.push_back(
            {.face = {.label = row.title},
             .title = row.title,
             .beganFunc = [&row](const PressContext& context) { press(context, row); },
             .endFunc = {}});
    }
    return buttons;
}

} // namespace zelvo::catalogue
