// SPDX-License-Identifier: MIT
#include "environments/Environments.h"
#include "node/LightNodes.h"
#include "platform/image/reading/ImageNamed.h"
#include "shared/Palette.h"

#include <glm/vec3.hpp>

// The environments with their own scenery.

namespace zelvo::environments {
namespace {

constexpr float kCloudLight = 24.0f;
constexpr float kBrillianceLight = 8.0f;
constexpr float kSubtleLight = 2.5f;
constexpr float kFlaresLight = 7.0f;

/// Shifts of the hue for spotLight1 to spotLight4.
constexpr std::array<float, 4> kBrillianceShifts = {0.06f, 0.12f, -0.12f, -0.06f};
constexpr float kFlaresShift = 0.3f;

void setLightMask(const scene::SCNNodePtr& node, std::uint32_t mask) {
    if (node && node->light)
        node->light->categoryBitMask = mask;
}

image::Color shifted(const image::Color& color, float offset) {
    return image::fromHSB(hueShifted(color, offset));
}

image::ImagePtr tintedPicture(const image::ImagePtr& picture, const image::Color& color) {
    return std::make_shared<const image::Image>(image::tinted(*picture, color));
}

} // namespace

SNE_Spherical::SNE_Spherical(foundation::RunLoop& loop)
    : SNE(loop) {
    constexpr auto kClouds = "cloud_layers_mirror.png";
    scene->background.setImage(image::requiredImage(kClouds));
    setLighting(kClouds, kCloudLight);
    scene->rootNode()->addChildNode(
        node::LightNodes::omniLight(image::Color::white(1), {0, 10, 10}));
    setParticleSystem(scene::SCNParticleSystem::named("Particles.scnp"));
}

void SNE_Spherical::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    tintBackground();
}

SNE_Ancient::SNE_Ancient(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("AncientScene.scn");
    scene->background.contents = image::Color::white(0);
    plane = nodeNamed("plane");
    if (plane)
        plane->categoryBitMask = node::kStageMask;
    shadowLight = nodeNamed("shadowLight");
    setLightMask(shadowLight, node::kStageMask);
    light4 = nodeNamed("light4");
    setLightMask(light4, node::kStageMask);
    light3 = nodeNamed("light3");
    light5 = nodeNamed("light5");
}

void SNE_Ancient::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    for (const auto& lamp : {light3, light5, light4, shadowLight})
        setLamp(lamp, color);
}

SNE_Backlight::SNE_Backlight(foundation::RunLoop& loop)
    : SNE(loop)
    , filler(image::requiredImage("Showroom_filler.png"))
    , image(image::requiredImage("Showroom.png")) {
    loadScene("Backlight.scn");
    shadowLight = nodeNamed("shadowLight");
    light4 = nodeNamed("light4");
    light3 = nodeNamed("light3");
    light5 = nodeNamed("light5");
}

void SNE_Backlight::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    paintBackground(
        [ahead = image,
         around = filler](const image::Color& tint) -> scene::SCNMaterialProperty::Contents {
            const image::ImagePtr front = tintedPicture(ahead, tint);
            const image::ImagePtr wall = tintedPicture(around, tint);
            return scene::CubeImages{wall, wall, wall, wall, front, wall};
        });
    scene->background.contents = color; // until the walls are painted
    setLamp(shadowLight, color);
}

SNE_SpaceBox::SNE_SpaceBox(foundation::RunLoop& loop)
    : SNE(loop)
    , blackImage(image::requiredImage("black_cubemap_filler.png")) {
    loadScene("SpaceBox.scn");
    light1 = nodeNamed("light1");
    setLightMask(light1, node::kStageMask);
}

void SNE_SpaceBox::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    paintBackground(
        [black = blackImage](const image::Color& tint) -> scene::SCNMaterialProperty::Contents {
            const image::ImagePtr sky = tintedPicture(image::requiredImage("Glitter.png"), tint);
            return scene::CubeImages{sky, sky, black, black, sky, sky};
        });
}

SNE_Brilliance::SNE_Brilliance(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("Brilliance.scn");
    scene->background.contents = image::Color::white(0);
    setLighting("Environment002.jpg", kBrillianceLight);
    spotLightNodes = {
        nodeNamed("spotLight1"),
        nodeNamed("spotLight2"),
        nodeNamed("spotLight3"),
        nodeNamed("spotLight4")};
    for (const auto& spot : spotLightNodes)
        setLightMask(spot, node::kContentLightMask);
    setParticleSystem(scene::SCNParticleSystem::named("GTParticles.scnp"));
}

void SNE_Brilliance::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    for (std::size_t i = 0; i < spotLightNodes.size(); ++i)
        setLamp(spotLightNodes.at(i), shifted(color, kBrillianceShifts.at(i)));
}

SNE_Subtle::SNE_Subtle(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("Subtle.scn");
    setLighting("Environment003.jpg", kSubtleLight);
    colorLight = nodeNamed("colorLight");
}

void SNE_Subtle::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    setLamp(colorLight, color);
}

SNE_Flares::SNE_Flares(foundation::RunLoop& loop)
    : SNE(loop) {
    loadScene("Flares.scn");
    setLighting("Environment003.jpg", kFlaresLight);
    omniLight1 = nodeNamed("omni1");
    omniLight2 = nodeNamed("omni2");
    omniLight3 = nodeNamed("omni3");
    omniLight4 = nodeNamed("omni4");
}

void SNE_Flares::setBackground(const image::Color& color) {
    SNE::setBackground(color);
    if (floor)
        floor->opacity = color == ui::kPalette.front() ? 0.0f : 1.0f;
    setLamp(omniLight1, color);
    setLamp(omniLight2, color);
    setLamp(omniLight3, shifted(color, kFlaresShift));
    setLamp(omniLight4, shifted(color, kFlaresShift));
}

} // namespace zelvo::environments
