// SPDX-License-Identifier: MIT

// The cost of a change with a text slider: five letters with a rounded bevel, with their outlines
// cached or not.

#include "platform/foundation/Check.h"
#include "platform/foundation/Folders.h"
#include "platform/geometry/Extrusion.h"
#include "platform/text/LineLayout.h"

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zelvo {

namespace {

constexpr float kFlatness = 0.1F;
constexpr auto kFonts =
    std::to_array<const char*>({"Audiowide-Regular", "Gelasio-Regular", "Flavors-Regular"});
using Skeletons = std::vector<std::shared_ptr<const geometry::OutlineSkeleton>>;

text::TextAttributes attributesOf(const std::string& font) {
    text::FontRegistry registry;
    const auto file = foundation::mainBundle().path("fonts/" + font + ".ttf");
    const auto registered = registry.registerFile(file);
    CHECK(registered.has_value(), "the fonts are missing: run scripts/fetch-fonts.sh");
    text::TextAttributes attributes;
    attributes.font = registry.fallback();
    return attributes;
}

geometry::ExtrusionOptions roundedBevel() {
    geometry::ExtrusionOptions options;
    options.depth = 44;
    options.chamferRadius = 3;
    options.chamferProfile.moveTo({0, 1});
    options.chamferProfile.quadTo({1, 1}, {1, 0});
    return options;
}

Skeletons skeletonsOf(const text::TextAttributes& attributes) {
    Skeletons skeletons;
    for (const std::string& character : text::charactersOf("TITLE")) {
        skeletons.push_back(
            geometry::makeSkeleton(text::outlineOf(character, attributes), kFlatness));
    }
    return skeletons;
}

std::size_t extrudeAll(const Skeletons& skeletons) {
    static const geometry::ExtrusionOptions options = roundedBevel();
    std::size_t triangles = 0;
    for (const auto& skeleton : skeletons) {
        triangles += geometry::extrude(*skeleton, options).indices.size() / 3;
    }
    return triangles;
}

void rebuildFromOutlines(benchmark::State& state) {
    const auto attributes = attributesOf(kFonts.at(static_cast<std::size_t>(state.range(0))));
    std::size_t triangles = 0;
    for ([[maybe_unused]] auto step : state) {
        triangles = extrudeAll(skeletonsOf(attributes));
    }
    state.counters["triangles"] = static_cast<double>(triangles);
}

void rebuildFromKnownOutlines(benchmark::State& state) {
    const auto attributes = attributesOf(kFonts.at(static_cast<std::size_t>(state.range(0))));
    const Skeletons skeletons = skeletonsOf(attributes);
    for ([[maybe_unused]] auto step : state) {
        benchmark::DoNotOptimize(extrudeAll(skeletons));
    }
}

BENCHMARK(rebuildFromOutlines)->DenseRange(0, kFonts.size() - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(rebuildFromKnownOutlines)
    ->DenseRange(0, kFonts.size() - 1)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace zelvo
