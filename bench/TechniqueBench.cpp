// SPDX-License-Identifier: MIT
// The cost of a technique for a frame of 1920 x 1080, drawn at 2880 x 1620: each time minus that of
// "none".
#include "platform/foundation/Check.h"
#include "platform/foundation/Folders.h"
#include "platform/render/SCNRenderer.h"

#include <benchmark/benchmark.h>

#include <string>

namespace zelvo::render {
namespace {

scene::SCNTechniquePtr techniqueOf(const std::string& name) {
    if (name == "none")
        return nullptr;
    if (!name.ends_with(".plist")) {
        auto technique = std::make_shared<scene::SCNTechnique>();
        technique->passes.push_back({name});
        return technique;
    }
    const auto list = scene::readPropertyListFile(foundation::mainBundle().path(name));
    CHECK(list.has_value(), "{}", list.error().message);
    const auto technique = scene::SCNTechnique::techniqueWithDictionary(*list);
    CHECK(technique.has_value(), "{}", technique.error().message);
    return *technique;
}

void techniqueFrame(benchmark::State& state, const std::string& name) {
    auto made = SCNRenderer::make();
    CHECK(made.has_value(), "{}", made.error().message);
    SCNRenderer& renderer = **made;
    const auto scene = std::make_shared<scene::SCNScene>();
    scene->background.contents = image::Color::hex(0x194CE6);
    auto camera = std::make_shared<scene::SCNNode>();
    camera->camera = std::make_shared<scene::SCNCamera>();
    scene->rootNode()->addChildNode(camera);
    renderer.pointOfView = camera;
    renderer.setScene(scene);
    renderer.technique = techniqueOf(name);
    FrameRequest request;
    for ([[maybe_unused]] auto _ : state) {
        request.time += 1.0 / 60;
        renderer.begin(request);
        benchmark::DoNotOptimize(renderer.finish().bytes.data());
    }
}

#define ZELVO_ROW(name)                                                                            \
    BENCHMARK_CAPTURE(techniqueFrame, name, #name)->Unit(benchmark::kMillisecond)->UseRealTime()
#define ZELVO_FILE(name)                                                                           \
    BENCHMARK_CAPTURE(techniqueFrame, name, #name ".plist")                                        \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->UseRealTime()

ZELVO_ROW(none);
ZELVO_ROW(invertFragmentShader);
ZELVO_ROW(exposureFragmentShader);
ZELVO_ROW(colorShiftFragmentShader);
ZELVO_ROW(glitchFragmentShader);
ZELVO_FILE(Wave);
ZELVO_FILE(Tiles);
ZELVO_FILE(Blur);

} // namespace
} // namespace zelvo::render
