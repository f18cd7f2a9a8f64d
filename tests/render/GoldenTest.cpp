// SPDX-License-Identifier: MIT
#include "platform/image/LightProbe.h"
#include "render/StageFixture.h"
#include "support/GoldenPicture.h"

#include <cmath>
#include <numbers>

// Pictures with all features together.

namespace zelvo::render {
namespace {

using image::Color;

constexpr Size kPicture{160, 90};

class Golden : public Stage {
protected:
    Golden() {
        camera->position = glm::vec3(0, 25, 330);
        camera->setEulerAngles({-0.1f, 0, 0});
        camera->camera->fieldOfView = 60;
        camera->camera->zFar = 3000;
        camera->camera->wantsHDR = true;
    }

    /// A row of solids, each with another material.
    void addSolids() const {
        float x = -200;
        for (const scene::SCNMaterialPtr& material : materials()) {
            const auto node = addNode({x, 20, 0});
            node->geometry = std::make_shared<scene::SCNBox>(62, 70, 30, 7);
            node->geometry->materials = {material};
            node->setEulerAngles({0.15f, -x / 300, 0});
            const auto ring = addNode({x, -52, 20});
            ring->geometry = std::make_shared<scene::SCNTorus>(24, 7);
            ring->geometry->materials = {material};
            ring->setEulerAngles({0.5f, 0, 0.2f});
            ring->opacity = x > 100 ? 0.5f : 1.0f;
            x += 80;
        }
    }

    /// A wave pattern: as numbers in red, or as normals.
    static image::ImagePtr makeRipples(bool asNormals) {
        image::Image picture(64, 64);
        for (std::size_t i = 0; i < 64UL * 64UL; ++i) {
            const double phase = static_cast<double>(i % 64 + (i >> 6U)) * std::numbers::pi / 16;
            const auto height = static_cast<std::uint8_t>(127.5 + 100 * std::sin(phase));
            const auto lean = static_cast<std::uint8_t>(127.5 + 60 * std::cos(phase));
            picture.pixels[i * 4] = asNormals ? lean : height;
            picture.pixels[i * 4 + 1] = lean;
            picture.pixels[i * 4 + 2] = 220;
            picture.pixels[i * 4 + 3] = 255;
        }
        return std::make_shared<image::Image>(std::move(picture));
    }

    static std::vector<scene::SCNMaterialPtr> materials() {
        const auto make = [](unsigned color) {
            return makeMaterial(Color::hex(color), scene::SCNLightingModel::physicallyBased);
        };
        std::vector<scene::SCNMaterialPtr> all{
            make(0xFFFFFF),
            make(0xE6194C),
            make(0xC8C8CC),
            make(0x909090),
            make(0x000000),
            makeMaterial(Color::hex(0x194CE6))};
        all[1]->normal.setImage(makeRipples(true));
        all[2]->metalness.contents = 1.0f;
        all[2]->roughness.contents = 0.25f;
        all[3]->metalness.contents = 0.9f;
        all[3]->roughness.setImage(makeRipples(false));
        all[4]->emission.contents = Color::hex(0xFF9000);
        all[4]->specular.setImage(makeRipples(false));
        all[4]->shaderModifiers[scene::SCNShaderModifierEntryPoint::surface] =
            "vec4 ripple = texture2D(u_specularTexture, _surface.diffuseTexcoord + vec2(u_time, "
            "0.0));\n"
            "_surface.emission *= ripple.r;\n_surface.specular = _surface.emission;";
        all[5]->reflective.setImage(makeRipples(false));
        all[5]->reflective.intensity = 0.35f;
        for (const scene::SCNMaterialPtr& material : all) {
            for (scene::SCNMaterialProperty* slot : material->allProperties()) {
                slot->wrapS = slot->wrapT = scene::SCNWrapMode::repeat;
            }
        }
        return all;
    }
};

TEST_F(Golden, SolidsOnADarkStage) {
    addSolids();
    const auto floor = addNode({0, -85, 0});
    floor->geometry = std::make_shared<scene::SCNPlane>(1600, 1600);
    floor->geometry->materials = {
        makeMaterial(Color::hex(0x505058), scene::SCNLightingModel::physicallyBased)};
    floor->setEulerAngles({-1.5707963f, 0, 0});
    floor->castsShadow = false;
    const auto spot = addLight(scene::SCNLightType::spot, {-120, 300, 250}, 2.6e8);
    scene->rootNode()->childNodes().back()->setOrientation(
        glm::quatLookAt(glm::normalize(glm::vec3(120, -330, -250)), glm::vec3(0, 1, 0)));
    spot->spotInnerAngle = 20;
    spot->spotOuterAngle = 80;
    spot->castsShadow = true;
    spot->shadowColor.alpha = 0.9f;
    addLight(scene::SCNLightType::omni, {100, 40, -220}, 5e7)->color = Color::hex(0x194CE6);
    addLight(scene::SCNLightType::ambient, {}, 60);
    test::expectLikeGolden(renderer->snapshotAtTime(0, kPicture), "render/golden/stage");
}

TEST_F(Golden, SolidsInABrightRoom) {
    addSolids();
    image::Radiance room{64, 32, {}};
    auto panorama = std::make_shared<image::Image>(64, 32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 64; ++x) {
            const bool isWindow = y > 8 && y < 16 && x % 16 < 5;
            const float grey = isWindow ? 5.0f : 0.9f - 0.025f * static_cast<float>(y);
            room.pixels.emplace_back(grey, grey, grey * 1.1f);
            const auto i = static_cast<std::size_t>(y * 64 + x) * 4;
            panorama->pixels[i + 2] = 230;
            panorama->pixels[i + 3] = static_cast<std::uint8_t>(isWindow ? 255 : 180 - 4 * y);
        }
    }
    panorama->lightProbe =
        std::make_shared<image::LightProbe>(image::LightProbe::filtered(room, 64));
    scene->background.setImage(panorama);
    scene->lightingEnvironment.setImage(panorama);
    scene->lightingEnvironment.intensity = 1.2f;
    test::expectLikeGolden(renderer->snapshotAtTime(0, kPicture), "render/golden/room");
}

} // namespace
} // namespace zelvo::render
