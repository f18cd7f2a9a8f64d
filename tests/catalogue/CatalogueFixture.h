// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ControllerFixture.h"
#include "catalogue/Catalogue.h"

#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace zelvo::test {

/// Presses buttons of the catalogue and checks the stage some time later.
class CatalogueTest : public ControllerTest {
protected:
    [[nodiscard]] scene::SCNSceneRenderer* currentRenderer() const override { return &view; }

    /// Presses and lets the actions begin; later times count from here.
    void press(std::string_view tabName, std::string_view title) {
        const catalogue::Tab* tab = catalogue::tabNamed(tabName);
        if (tab == nullptr)
            throw std::runtime_error("no such tab");
        const auto buttons = tab->buttons();
        const auto button = std::ranges::find(buttons, title, &catalogue::Button::title);
        if (button == buttons.end())
            throw std::runtime_error("no such button");
        begin(*button);
    }

    void begin(const catalogue::Button& button) {
        button.beganFunc(context());
        settle();
    }

    void end(const catalogue::Button& held) {
        held.endFunc(context());
        settle();
    }

    /// Replays what was recorded since time 0.
    void replay() {
        controller.markAllNotRun();
        controller.run(clock);
        settle();
    }

    void goTo(double secondsAfterPress) { animateTo(pressedAt + secondsAfterPress); }

    static void expectAt(const scene::SCNNode& node, const glm::vec3& place) {
        const glm::vec3 is = node.position;
        EXPECT_LT(glm::distance(is, place), 0.001f * std::max(glm::length(place), 800.0f))
            << is.x << ' ' << is.y << ' ' << is.z << " not " << place.x << ' ' << place.y << ' '
            << place.z;
    }

    static void
    expectTurned(const scene::SCNNode& node, const glm::vec3& degrees, float tolerance = 0.1f) {
        const glm::vec3 is = glm::degrees(node.eulerAngles());
        EXPECT_LT(glm::distance(is, degrees), tolerance)
            << is.x << ' ' << is.y << ' ' << is.z << " not " << degrees.x << ' ' << degrees.y << ' '
            << degrees.z;
    }

    [[nodiscard]] catalogue::PressContext context() { return {controller, affected, factor}; }

    std::vector<node::NodePtr> affected = nodes.content();
    double pressedAt = 0;
    mutable scene::HeadlessView view;

private:
    void settle() {
        world.runLoop.drain();
        beginActions();
        pressedAt = sceneTime;
    }
};

} // namespace zelvo::test
