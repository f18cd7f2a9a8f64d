// SPDX-License-Identifier: MIT
// The cost of a frame of 1920 x 1080, drawn at 2880 x 1620 and delivered as in an export. Boxes
// take the place of a title of two lines; they cover the same share of the picture.
#include "platform/foundation/Check.h"
#include "platform/image/LightProbe.h"
#include "platform/render/SCNRenderer.h"
#include "platform/scene/SCNShapes.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace zelvo::render {
namespace {

using image::Color;
using scene::SCNLightType;
using scene::SCNNodePtr;

SCNNodePtr addNode(scene::SCNScene& scene, const glm::vec3& position) {
    auto node = std::make_shared<scene::SCNNode>();
    node->position = position;
    scene.rootNode()->addChildNode(node);
    return node;
}

scene::SCNMaterialPtr makeMaterial(unsigned color, float roughness) {
    auto material = std::make_shared<scene::SCNMaterial>();
    material->diffuse.contents = Color::hex(color);
    material->roughness.contents = roughness;
    return material;
}

void addLight(
    scene::SCNScene& scene, SCNLightType type, const glm::vec3& position, double intensity) {
    auto light = std::make_shared<scene::SCNLight>();
    light->type = type;
    light->intensity = intensity;
    light->spotOuterAngle = 60;
    light->castsShadow = type == SCNLightType::spot;
    const SCNNodePtr node = addNode(scene, position);
    node->light = light;
    node->setOrientation(glm::quatLookAt(glm::normalize(-position), glm::vec3(0, 1, 0)));
}

void addTitle(scene::SCNScene& scene) {
    for (int line = 0; line < 2; ++line) {
        for (int letter = 0; letter < 6; ++letter) {
            const SCNNodePtr node = addNode(scene, {-190 + 76 * letter, 40 - 80 * line, 0});
            node->geometry = std::make_shared<scene::SCNBox>(60, 60, 24, 2);
            node->geometry->materials = {makeMaterial(line == 0 ? 0xFFFFFF : 0xE6194C, 0.4f)};
        }
    }
}

SCNNodePtr addCamera(scene::SCNScene& scene) {
    SCNNodePtr node = addNode(scene, {0, 0, 345});
    node->camera = std::make_shared<scene::SCNCamera>();
    node->camera->zFar = 20000;
    node->camera->wantsHDR = true;
    return node;
}

/// A dark stage: a floor and three lights, one with shadows.
void furnishStage(scene::SCNScene& scene) {
    const SCNNodePtr floor = addNode(scene, {0, -112, 0});
    floor->geometry = std::make_shared<scene::SCNPlane>(3200, 3200);
    floor->geometry->materials = {makeMaterial(0x4A4A50, 0.5f)};
    floor->setEulerAngles({-1.5707963f, 0, 0});
    floor->castsShadow = false;
    addLight(scene, SCNLightType::omni, {0, -20, -250}, 9e7);
    addLight(scene, SCNLightType::spot, {-240, 380, 420}, 4e8);
    addLight(scene, SCNLightType::omni, {330, 260, -330}, 3e8);
}

/// Only image-based light, and a picture as background.
void furnishShiny(scene::SCNScene& scene) {
    auto picture = std::make_shared<image::Image>(512, 256);
    for (std::size_t i = 0; i < picture->pixels.size(); ++i) {
        picture->pixels[i] = static_cast<std::uint8_t>(i / 2048);
    }
    image::Radiance room{16, 8, std::vector<glm::vec3>(128, glm::vec3(0.6f))};
    picture->lightProbe = std::make_shared<image::LightProbe>(image::LightProbe::filtered(room, 8));
    scene.background.setImage(picture);
    scene.lightingEnvironment.setImage(picture);
}

void drawFrames(benchmark::State& state, void (*furnish)(scene::SCNScene&)) {
    auto made = SCNRenderer::make();
    CHECK(made.has_value(), "{}", made.error().message);
    SCNRenderer& renderer = **made;
    const auto scene = std::make_shared<scene::SCNScene>();
    furnish(*scene);
    addTitle(*scene);
    renderer.pointOfView = addCamera(*scene);
    renderer.setScene(scene);
    state.SetLabel(renderer.deviceName());

    const SCNNodePtr moving = scene->rootNode()->childNodes()[4];
    FrameRequest request;
    for ([[maybe_unused]] auto _ : state) {
        request.time += 1.0 / 60;
        moving->position = moving->position.value() + glm::vec3(0.1f, 0, 0);
        renderer.begin(request);
        if (renderer.framesInFlight() == 2)
            benchmark::DoNotOptimize(renderer.finish().bytes.data());
    }
    while (renderer.framesInFlight() > 0) {
        benchmark::DoNotOptimize(renderer.finish().bytes.data());
    }
}

void stageFrame(benchmark::State& state) {
    drawFrames(state, furnishStage);
}

void shinyFrame(benchmark::State& state) {
    drawFrames(state, furnishShiny);
}

BENCHMARK(stageFrame)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();
BENCHMARK(shinyFrame)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

} // namespace
} // namespace zelvo::render
