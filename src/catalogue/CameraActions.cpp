// SPDX-License-Identifier: MIT
// Tab CAM: moves of the camera's rig. Held moves return when the button is released.
#include "actions/ActionController.h"
#include "actions/TimingCurves.h"
#include "catalogue/BuildingBlocks.h"
#include "catalogue/CameraMoves.h"
#include "catalogue/Tabs.h"

#include <memory>
#include <string>
#include <utility>

namespace zelvo::catalogue {

namespace {

using actions::ActionController;
using actions::RegisterUndo;
using scene::SCNAction;

constexpr auto kBackKey = "camBackToNormal";

using Press = std::function<void(const PressContext&, int identifier)>;

/// A button whose press and release are one user action.
Button heldButton(std::string_view label, std::string_view title, Press press, Press release) {
    const auto box = std::make_shared<int>(0);
    return {
        .face = {.label = label},
        .title = title,
        .beganFunc =
            [box, press = std::move(press)](const PressContext& context) {
                *box = context.controller.newIdentifier();
                press(context, *box);
            },
        .endFunc = [box, release = std::move(release)](
                       const PressContext& context) { release(context, *box); }};
}

Button firedButton(
    std::string_view label,
    std::string_view title,
    void (*fire)(const PressContext&, std::string_view title)) {
    return {
        .face = {.label = label},
        .title = title,
        .beganFunc = [fire, title](const PressContext& context) { fire(context, title); },
        .endFunc = {}};
}

void camBackToNormal(ActionController& controller, int identifier, const Pace& pace) {
    const Pace back{0.3 * pace.duration, pace.timing};
    controller.addAction(
        [node = controller.nodes.cameraSpecialPerspectiveNode, back] {
            node->runAction(
                SCNAction::group({moveTo({0, 0, 0}, back), rotateTo({0, 0, 0}, back)}), kBackKey);
        },
        identifier,
        "",
        RegisterUndo::no);
}

Button zoomButton() {
    constexpr auto kTitle = "Zoom Cam";
    return heldButton(
        "Zoom",
        kTitle,
        [](const PressContext& context, int identifier) {
            ActionController& controller = context.controller;
            const Pace pace{0.15 * context.animationFactor, actions::linearTiming};
            controller.addAction(
                [node = controller.nodes.cameraSpecialPerspectiveNode, pace] {
                    node->removeActionForKey(kBackKey);
                    node->runAction(moveTo({0, 2, -105}, pace));
                },
                identifier,
                kTitle,
                RegisterUndo::yes);
        },
        [](const PressContext& context, int identifier) {
            camBackToNormal(
                context.controller,
                identifier,
                {context.animationFactor, actions::bezierTiming(0.44f, 0.66f, 0.22f, 0.99f)});
        });
}

/// Cuts to another view and back.
struct HalfView {
    std::string_view label;
    std::string_view title;
    float a; ///< degrees around y
    float x;
};

constexpr HalfView kHalfLeft{"Half Left", "Half Left Cam", -30, 24};
constexpr HalfView kHalfRight{"Half Right", "Half Right Cam", 30, -24};

Button halfButton(const HalfView& view) {
    return heldButton(
        view.label,
        view.title,
        [view](const PressContext& context, int identifier) {
            ActionController& controller = context.controller;
            controller.addAction(
                [node = controller.nodes.cameraSpecialPerspectiveNode, view] {
                    node->removeActionForKey(kBackKey);
                    node->runAction(rotateTo({20, view.a, 0}));
                    node->runAction(moveTo({view.x, 18, -82}));
                },
                identifier,
                std::string(view.title),
                RegisterUndo::yes);
        },
        [](const PressContext& context, int identifier) {
            camBackToNormal(context.controller, identifier, {0, actions::linearTiming});
        });
}

} // namespace

std::vector<Button> showCam() {
    return {
        zoomButton(),
        firedButton("Quake", "Quake Cam", quakeCam),
        firedButton("Turb", "Turbulence Cam", turbulence),
        firedButton("Shake", "Shake Cam", shortZoomWiggle),
        halfButton(kHalfLeft),
        halfButton(kHalfRight),
    };
}

} // namespace zelvo::catalogue
