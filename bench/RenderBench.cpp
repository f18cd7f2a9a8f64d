// SPDX-License-Identifier: MIT
// The cost of a frame of 1920 x 1080 in standard quality, delivered as in an export. Boxes
// take the place of a title of two lines; they cover the same share of the picture. In
// stageFrameWithObject an imported object of 200,000 triangles turns behind them: with it, an export
// should keep at least half of the frame rate.
#include "platform/foundation/Check.h"
#include "platform/image/LightProbe.h"
#include "platform/render/SCNRenderer.h"
#include "platform/scene/SCNReferenceNode.h"
#include "platform/scene/SCNShapes.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>

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

/// A ball with waves, of 200,000 triangles.
void writeBall(const std::filesystem::path& file) {
    constexpr int kRows = 250;
    constexpr int kColumns = 400; // two triangles for each place
    std::ofstream out(file);
    for (int i = 0; i < (kRows + 1) * kColumns; ++i) {
        const int row = i / kColumns;
        const double height = std::numbers::pi * row / kRows;
        const double around = 2 * std::numbers::pi * (i % kColumns) / kColumns;
        const double radius = 1 + 0.05 * std::sin(20 * height) * std::sin(15 * around);
        out << fmt::format(
            "v {:.6f} {:.6f} {:.6f}\n",
            radius * std::sin(height) * std::cos(around),
            radius * std::cos(height),
            radius * std::sin(height) * std::sin(around));
    }
    for (int i = 0; i < kRows * kColumns; ++i) {
        const int next = i % kColumns + 1 < kColumns ? i + 1 : i + 1 - kColumns;
        out << fmt::format(
            "f {} {} {} {}\n", i + 1, next + 1, next + kColumns + 1, i + kColumns + 1);
    }
}

SCNNodePtr addObject(scene::SCNScene& scene) {
    const auto file = std::filesystem::temp_directory_path() / "zelvo-bench-ball.obj";
    writeBall(file);
    const auto object = std::make_shared<scene::SCNReferenceNode>(file);
    const auto loaded = object->load();
    std::filesystem::remove(file);
    CHECK(loaded.has_value(), "{}", loaded.error().message);
    object->scale = glm::vec3(160); // as the media node scales it: 340 units across
    object->position = glm::vec3(0, 22, -30);
    scene.rootNode()->addChildNode(object);
    return object;
}

enum class Imported { none, object };

void drawFrames(
    benchmark::State& state,
    void (*furnish)(scene::SCNScene&),
    Imported imported = Imported::none) {
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
    const SCNNodePtr object = imported == Imported::object ? addObject(*scene) : nullptr;
    FrameRequest request;
    const auto next = [&] {
        request.time += 1.0 / 60;
        moving->position = moving->position.value() + glm::vec3(0.1f, 0, 0);
        if (object)
            object->setEulerAngles({0, static_cast<float>(request.time), 0});
        renderer.begin(request);
        if (renderer.framesInFlight() == 2)
            benchmark::DoNotOptimize(renderer.finish().bytes.data());
    };
    // Shaders and the still layer are built in the first frames.
    for (int i = 0; i < 6; ++i)
        next();
    for ([[maybe_unused]] auto _ : state)
        next();
    while (renderer.framesInFlight() > 0) {
        benchmark::DoNotOptimize(renderer.finish().bytes.data());
    }
}

void stageFrame(benchmark::State& state) {
    drawFrames(state, furnishStage);
}

void stageFrameWithObject(benchmark::State& state) {
    drawFrames(state, furnishStage, Imported::object);
}

void shinyFrame(benchmark::State& state) {
    drawFrames(state, furnishShiny);
}

void inAnExport(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();
    benchmark->Iterations(10);
}

BENCHMARK(stageFrame)->Apply(inAnExport);
BENCHMARK(stageFrameWithObject)->Apply(inAnExport);
BENCHMARK(shinyFrame)->Apply(inAnExport);

} // namespace
} // namespace zelvo::render
