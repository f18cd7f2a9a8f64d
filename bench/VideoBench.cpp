// SPDX-License-Identifier: MIT
// A video of 1920 x 1080 on a plane: decoding, what the main thread does for a picture on the
// screen, and a frame of an export with the video against one with a still picture.
#include "content/VideoNodePlayer.h"
#include "media/VideoFixture.h"
#include "platform/foundation/Check.h"
#include "platform/render/SCNRenderer.h"
#include "support/TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace zelvo {
namespace {

using media::AVPlayer;

constexpr int kFrames = 60;
constexpr double kFramesPerSecond = 30;

const std::filesystem::path& clip() {
    static const test::TemporaryFolder folder;
    static const std::filesystem::path file = [] {
        auto made = folder.path() / "clip.mp4";
        media::makeVideo(made, {.width = 1920, .height = 1080, .frames = kFrames});
        return made;
    }();
    return file;
}

void decode(benchmark::State& state) {
    auto reader = media::VideoReader::open(clip());
    CHECK(reader.has_value(), "the video cannot be read");
    std::size_t index = 0;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(reader->picture(index++ % kFrames));
}

void takeForScreen(benchmark::State& state) {
    const auto player = *AVPlayer::open(clip());
    int frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        player->seek(frame++ % kFrames / kFramesPerSecond);
        benchmark::DoNotOptimize(player->picture(AVPlayer::Patience::takesNearest));
    }
}

/// With 1, each frame shows the next picture; with 0, always the first.
void exportFrame(benchmark::State& state) {
    auto renderer = *render::SCNRenderer::make();
    const auto scene = std::make_shared<scene::SCNScene>();
    const auto player = *AVPlayer::open(clip());
    content::VideoNodePlayer video(player, content::VideoNodePlayer::makeScreen(*player, 355));
    scene->rootNode()->addChildNode(video.videoNode);
    auto camera = std::make_shared<scene::SCNNode>();
    camera->camera = std::make_shared<scene::SCNCamera>();
    camera->position = glm::vec3(0, 0, 345);
    scene->rootNode()->addChildNode(camera);
    renderer->setScene(scene);
    int frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        const int shown = state.range(0) == 0 ? 0 : frame % kFrames;
        if (shown == 0)
            video.play(0);
        video.updateAtTime(shown / kFramesPerSecond, AVPlayer::Patience::waits);
        renderer->begin({.time = frame / kFramesPerSecond});
        if (renderer->framesInFlight() == render::SCNRenderer::kFramesInFlight)
            benchmark::DoNotOptimize(renderer->finish());
        ++frame;
    }
    while (renderer->framesInFlight() > 0)
        benchmark::DoNotOptimize(renderer->finish());
}

BENCHMARK(decode)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(takeForScreen)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(exportFrame)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace zelvo
