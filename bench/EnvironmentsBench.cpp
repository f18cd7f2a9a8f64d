// SPDX-License-Identifier: MIT
// The cost of the environments, with a title of two lines: an export of 1920 x 1080, a frame of the
// view on screen, and a change of the environment.
#include "MovingTitle.h"
#include "app/Export.h"
#include "environments/SceneManager.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Lifetime.h"
#include "platform/render/Context.h"
#include "platform/render/SCNRenderer.h"
#include "platform/render/SCNView.h"
#include "shared/FrameClock.h"

#include <benchmark/benchmark.h>
#include <epoxy/gl.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <optional>

namespace {

using namespace zelvo;
using bench::Title;

void nameAfter(benchmark::State& state, int scene) {
    state.SetLabel(
        std::string(environments::SceneManager::sceneNames.at(static_cast<std::size_t>(scene))));
}

/// Measures the frames of an export in which the whole title moves. In those before, less of it is in
/// view.
class MoveTimer {
public:
    explicit MoveTimer(movie::MovieWriter& writer) {
        writer.progressSignal.subscribe(listening, [this](const movie::MovieProgress& progress) {
            const auto now = Clock::now();
            if (progress.framesDone < kFirst)
                return;
            if (!first)
                first = {progress.framesDone, now};
            last = {progress.framesDone, now};
        });
    }

    [[nodiscard]] double framesPerSecond() const {
        CHECK(first && last.frame > first->frame, "the movie is too short");
        return (last.frame - first->frame) /
               std::chrono::duration<double>(last.time - first->time).count();
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr double kFirst = bench::kMovesFrom * 60;

    struct Moment {
        int frame = 0;
        Clock::time_point time{};
    };

    foundation::Lifetime listening;
    std::optional<Moment> first;
    Moment last;
};

void exportAt(benchmark::State& state, const render::DrawQuality& quality) {
    const auto scene = static_cast<int>(state.range(0));
    nameAfter(state, scene);
    Title title(scene);
    movie::MovieOptions options;
    options.output = title.folder.path() / "title.mov";
    options.quality = quality;
    const auto framesOfMovie = [&] {
        const auto report = app::exportMovie(title.engine, title.loop, options);
        CHECK(report.has_value(), "{}", report.error().message);
        return report->outcome.frames;
    };
    double frames = 0;
    double moving = 0;
    for ([[maybe_unused]] auto _ : state) {
        const MoveTimer timer(title.engine.model().movieWriter());
        frames += framesOfMovie();
        moving = timer.framesPerSecond();
    }
    state.counters["moving/s"] = moving;
    state.counters["frames/s"] = benchmark::Counter(frames, benchmark::Counter::kIsRate);
}

/// Goal: at least 4 frames a second in every environment.
void exportMovie(benchmark::State& state) {
    exportAt(state, {});
}

/// Goal: three times as fast.
void exportDraft(benchmark::State& state) {
    exportAt(state, render::kQualities[0].quality);
}

/// The view on screen, without a window.
class Window {
public:
    Window() {
        auto made = render::HeadlessContext::make();
        CHECK(made.has_value(), "{}", made.error().message);
        context = std::move(*made);
        glCreateTextures(GL_TEXTURE_2D, 1, &texture);
        glTextureStorage2D(texture, 1, GL_RGBA8, kSize.width, kSize.height);
        glCreateFramebuffers(1, &framebuffer);
        glNamedFramebufferTexture(framebuffer, GL_COLOR_ATTACHMENT0, texture, 0);
        auto drawing = render::SCNView::make();
        CHECK(drawing.has_value(), "{}", drawing.error().message);
        view = std::move(*drawing);
    }

    void draw(double time) const {
        view->update(time);
        view->draw({framebuffer, kSize});
        glFinish();
    }

    static constexpr render::Size kSize{960, 540};
    std::unique_ptr<render::HeadlessContext> context;
    std::unique_ptr<render::SCNView> view;
    GLuint texture = 0;
    GLuint framebuffer = 0;
};

void shown(Title& title, Window& window) {
    title.engine.model().setSceneView(window.view.get());
    title.engine.model().attachScene(movie::SceneHome::screen);
    title.loop.runLoop().runFor(0.5);
}

/// 960 x 540 with both lines moving. Goal: Shiny above 30 frames a second.
void viewFrame(benchmark::State& state, double oversampling) {
    const auto scene = static_cast<int>(state.range(0));
    nameAfter(state, scene);
    Window window;
    Title title(scene);
    window.view->quality = {
        .oversampling = oversampling, .samples = 1, .detail = render::Detail::moving};
    shown(title, window);
    auto& stage = title.engine.stage();
    double time = 10;
    const auto next = [&](double step) {
        time += step;
        const auto angle = static_cast<float>(0.3 * std::sin(3 * time));
        stage.textNode1->setEulerAngles({0, angle, 0});
        stage.textNode2->setEulerAngles({0, -angle, 0});
        window.draw(time);
    };
    // The lines come in, and shaders and the still layer are built.
    for (int i = 0; i < 30; ++i)
        next(0.1);
    for ([[maybe_unused]] auto _ : state)
        next(shared::FrameClock::kStep);
    state.counters["frames/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void viewFrameSmooth(benchmark::State& state) {
    viewFrame(state, 1.5);
}

void viewFramePlain(benchmark::State& state) {
    viewFrame(state, 1);
}

/// From the call to the first finished frame in the right colour: loading, tinting, uploading,
/// building shaders. Goal: 400 ms.
void swapEnvironment(benchmark::State& state) {
    const auto scene = static_cast<int>(state.range(0));
    nameAfter(state, scene);
    Window window;
    Title title(scene == 0 ? 1 : 0);
    shown(title, window);
    window.draw(10);
    for ([[maybe_unused]] auto _ : state) {
        title.engine.model().setScene(scene);
        title.loop.runLoop().drain();
        window.draw(10);
    }
}

void eachEnvironment(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
    benchmark->DenseRange(0, static_cast<int>(environments::SceneManager::sceneNames.size()) - 1);
}

BENCHMARK(exportMovie)->Apply(eachEnvironment)->Iterations(1);
BENCHMARK(exportDraft)->Apply(eachEnvironment)->Iterations(1);
BENCHMARK(viewFrameSmooth)->Apply(eachEnvironment)->Iterations(20)->MeasureProcessCPUTime();
BENCHMARK(viewFramePlain)->Apply(eachEnvironment)->Iterations(20)->MeasureProcessCPUTime();
BENCHMARK(swapEnvironment)->Apply(eachEnvironment)->Iterations(1);

} // namespace
