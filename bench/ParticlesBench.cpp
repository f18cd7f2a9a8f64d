// SPDX-License-Identifier: MIT
// The cost of 5,000 live particles: a step of the scene, and a frame of 1920 x 1080 drawn at 2880 x
// 1620 with nothing else in it.
#include "platform/foundation/Check.h"
#include "platform/render/SCNRenderer.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace zelvo::render {
namespace {

constexpr float kLive = 5000;

image::ImagePtr makeSprite() {
    constexpr int kSide = 64;
    auto picture = std::make_shared<image::Image>(kSide, kSide);
    for (std::size_t i = 0; i < picture->pixels.size(); ++i) {
        picture->pixels[i] = i % 4 == 3 ? static_cast<std::uint8_t>(i / 128) : 255;
    }
    return picture;
}

/// Half sparks, half smoke, as in the effects.
void addParticles(scene::SCNNode& node) {
    const image::ImagePtr sprite = makeSprite();
    for (const auto mode : {scene::ParticleBlendMode::alpha, scene::ParticleBlendMode::additive}) {
        auto system = std::make_shared<scene::SCNParticleSystem>();
        system->birthRate = kLive / 2;
        system->warmupDuration = 5;
        system->spreadingAngle = 360;
        system->particleVelocity = 150;
        system->particleVelocityVariation = 200;
        system->dampingFactor = 1;
        system->wander = 10;
        system->particleSize = 12;
        system->particleSizeVariation = 12;
        system->sizeOverLife = {{0, 0.5f}, {1, 1}};
        system->colorOverLife = {{0, glm::vec4(1)}, {1, {1, 0.5f, 0, 0}}};
        system->particleImage = sprite;
        system->blendMode = mode;
        node.addParticleSystem(system);
    }
}

void animate(benchmark::State& state) {
    scene::SCNScene scene;
    addParticles(*scene.rootNode());
    double time = 0;
    for ([[maybe_unused]] auto _ : state) {
        scene.applyAnimations(time += 1.0 / 60);
    }
    std::size_t live = 0;
    for (const auto& emitter : scene.rootNode()->emitters()) {
        live += emitter->live().size();
    }
    state.counters["live"] = static_cast<double>(live);
}

void draw(benchmark::State& state) {
    auto made = SCNRenderer::make();
    CHECK(made.has_value(), "{}", made.error().message);
    SCNRenderer& renderer = **made;
    const auto scene = std::make_shared<scene::SCNScene>();
    addParticles(*scene->rootNode());
    auto camera = std::make_shared<scene::SCNNode>();
    camera->camera = std::make_shared<scene::SCNCamera>();
    camera->position = glm::vec3(0, 0, 345);
    scene->rootNode()->addChildNode(camera);
    renderer.pointOfView = camera;
    renderer.setScene(scene);
    state.SetLabel(renderer.deviceName());
    FrameRequest request;
    for ([[maybe_unused]] auto _ : state) {
        request.time += 1.0 / 60;
        renderer.begin(request);
        benchmark::DoNotOptimize(renderer.finish().bytes.data());
    }
}

BENCHMARK(animate)->Unit(benchmark::kMillisecond);
BENCHMARK(draw)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

} // namespace
} // namespace zelvo::render
