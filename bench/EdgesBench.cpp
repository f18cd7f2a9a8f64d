// SPDX-License-Identifier: MIT
// How far edges are from a picture with 64 samples a pixel: edges_bench [ENVIRONMENT...]
//
// Draws a title of two lines in 1920 x 1080, turned a little, so that many edges are nearly
// straight, at three moments of a turn. The edges are those of the reference, where neighbouring
// pixels differ much. What is printed is the root mean square of the differences there, of 255.
#include "MovingTitle.h"
#include "environments/SceneManager.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/render/SCNRenderer.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace zelvo;
using bench::Title;

constexpr render::Size kSize{1920, 1080};
constexpr int kMoments = 3;
/// Edges are where neighbouring pixels differ by more than this, of 255.
constexpr int kEdge = 32;

/// 16 drawings of 4 samples.
constexpr render::DrawQuality kReference{.oversampling = 1, .samples = 4, .passes = 16};

constexpr auto kMeasured = std::to_array<render::NamedQuality>({
    {"former", {.oversampling = 1.5, .samples = 1}}, // before there were samples
    {"draft", render::kQualities[0].quality},
    {"standard", render::kQualities[1].quality},
});

/// Whether one of the pixel's eight neighbours differs much from it. Not for pixels at the margin.
bool isAtEdge(const image::Image& picture, int x, int y) {
    const auto green = [&](int column, int row) {
        return int{picture.pixels[static_cast<std::size_t>(row * picture.width + column) * 4 + 1]};
    };
    for (int i = 0; i < 9; ++i) {
        if (std::abs(green(x + i % 3 - 1, y + i / 3 - 1) - green(x, y)) > kEdge)
            return true;
    }
    return false;
}

/// The sum of the squared differences at edges, and how many there are.
struct Error {
    double sum = 0;
    double count = 0;

    void add(const image::Image& picture, const image::Image& reference) {
        for (int y = 1; y + 1 < picture.height; ++y) {
            for (int x = 1; x + 1 < picture.width; ++x) {
                if (!isAtEdge(reference, x, y))
                    continue;
                const auto at = static_cast<std::size_t>(y * picture.width + x) * 4;
                for (std::size_t i = at; i < at + 3; ++i)
                    sum += std::pow(picture.pixels[i] - reference.pixels[i], 2);
                count += 3;
            }
        }
    }

    [[nodiscard]] double rootMeanSquare() const { return std::sqrt(sum / std::max(count, 1.0)); }
};

void turn(stage::Nodes& stage, int moment) {
    const auto angle = static_cast<float>(moment);
    stage.textNode1->setEulerAngles({0.02f, 0.3f - 0.13f * angle, 0.03f - 0.02f * angle});
    stage.textNode2->setEulerAngles({0, -0.3f + 0.11f * angle, -0.02f + 0.03f * angle});
}

void measure(int scene, render::SCNRenderer& renderer) {
    Title title(scene);
    title.engine.model().setSceneView(&renderer);
    title.engine.model().attachScene(movie::SceneHome::screen);
    title.loop.runLoop().runFor(0.5);
    (void)renderer.snapshotAtTime(8, {64, 36}); // the lines come in
    std::array<Error, kMeasured.size()> errors;
    for (int moment = 0; moment < kMoments; ++moment) {
        turn(title.engine.stage(), moment);
        const double time = 10 + moment;
        const image::Image reference = renderer.snapshotAtTime(time, kSize, kReference);
        for (std::size_t i = 0; i < errors.size(); ++i) {
            errors.at(i).add(
                renderer.snapshotAtTime(time, kSize, kMeasured.at(i).quality), reference);
        }
    }
    title.engine.model().setSceneView(nullptr);
    fmt::print(
        "{:<12}", environments::SceneManager::sceneNames.at(static_cast<std::size_t>(scene)));
    for (const Error& error : errors)
        fmt::print(" {:>9.1f}", error.rootMeanSquare());
    fmt::print(" {:>13.2f}\n", errors.front().rootMeanSquare() / errors.back().rootMeanSquare());
    (void)std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string_view> wanted(argv + 1, argv + argc);
    if (wanted.empty())
        wanted = {"Plain", "Stage", "Shiny"};
    const auto& names = environments::SceneManager::sceneNames;
    for (const std::string_view name : wanted) {
        if (std::ranges::find(names, name) == names.end()) {
            foundation::logLine(fmt::format("edges_bench: there is no environment {}", name));
            return 2;
        }
    }
    auto made = render::SCNRenderer::make();
    CHECK(made.has_value(), "{}", made.error().message);
    fmt::print("{:<12}", "environment");
    for (const render::NamedQuality& row : kMeasured)
        fmt::print(" {:>9}", row.name);
    fmt::print(" {:>13}\n", "times smaller");
    for (const std::string_view name : wanted)
        measure(static_cast<int>(std::ranges::find(names, name) - names.begin()), **made);
    return 0;
}
