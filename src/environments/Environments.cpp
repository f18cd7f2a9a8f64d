// SPDX-License-Identifier: MIT
#include "environments/Environments.h"

#include "node/DefaultSCNNode.h"
#include "platform/image/reading/ImageNamed.h"

namespace zelvo::environments {
namespace {

constexpr float kPlainLight = 7.0f;
constexpr float kShinyLight = 1.75f;

} // namespace

SNE_Flat::SNE_Flat(foundation::RunLoop& loop)
    : SNE(loop) {
    const auto node = std::make_shared<node::DefaultSCNNode>();
    node->light = std::make_shared<scene::SCNLight>();
    node->light->type = scene::SCNLightType::ambient;
    node->light->color = image::Color::white(1);
    scene->rootNode()->addChildNode(node);
}

void SNE_Flat::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    scene->background.contents = color;
}

SNE_Plain::SNE_Plain(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("Plain.scn");
    setLighting("grayHorizont.png", kPlainLight);
}

void SNE_Plain::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    scene->background.contents = color;
    // The floor throws its colour on the letters.
    setLamp(nodeNamed("bounceLight"), color);
}

SNE_Shiny::SNE_Shiny(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("Shiny.scn");
    scene->background.setImage(image::requiredImage("Background001.png"));
    setLighting("Environment001.jpg", kShinyLight);
}

void SNE_Shiny::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    tintBackground();
}

SNE_Stage::SNE_Stage(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("StageScene.scn");
    scene->background.contents = image::Color::white(0);
    omniLight = nodeNamed("omniLight");
}

void SNE_Stage::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    setLamp(omniLight, color);
}

} // namespace zelvo::environments
