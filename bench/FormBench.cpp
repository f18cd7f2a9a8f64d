// SPDX-License-Identifier: MIT
// The time that a step of a slider takes on the main thread, until the new letters can be drawn:
// five letters in every built-in font. Also a keystroke on a long text. Each row shows the slowest
// font; every font counts with the fastest of its steps.
#include "content/FontManager.h"
#include "content/TextNode.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/foundation/UserDefaults.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

namespace {

using namespace zelvo;

constexpr auto kWord = "WORDS"; // no letter twice
constexpr int kRounds = 8;
constexpr int kLongText = 200; ///< letters

using Step = std::function<void(content::TextNode&, int)>;

struct Desk {
    Desk() { content::FontManager(fonts).registerBuiltIns(foundation::mainBundle()); }

    text::FontRegistry fonts;
    // On disk, as in the program: each build keeps a mark there while it runs.
    foundation::TemporaryFolder folder =
        *foundation::TemporaryFolder::make(std::filesystem::temp_directory_path() / "zelvo-bench");
    foundation::UserDefaults defaults{folder.path() / "defaults.json"};
    foundation::VirtualRunLoop loop;
    content::TextNodePtr text = content::TextNode::make(
        {.text = kWord, .fontName = "DaysOne-Regular", .shortName = "TX1"},
        node::Surroundings{&fonts, &defaults, &loop, {}, node::DeviceIdiom::tablet});
};

void buildAll(const content::TextNode& text) {
    for (const content::CharNodePtr& letter : text.letters())
        benchmark::DoNotOptimize(letter->geometry->mesh().indices.data());
}

/// Time of the processor on this thread, so that other programs do not count.
double now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double millisecondsOf(content::TextNode& text, const Step& step, int round) {
    const double began = now();
    step(text, round);
    buildAll(text);
    return now() - began;
}

/// The fastest of several steps with a font.
double fastest(content::TextNode& text, const Step& step) {
    double best = 1e9;
    for (int round = 1; round <= kRounds; ++round)
        best = std::min(best, millisecondsOf(text, step, round));
    return best;
}

void overAllFonts(benchmark::State& state, const std::string& string, const Step& step) {
    Desk desk;
    for ([[maybe_unused]] auto _ : state) {
        std::vector<double> times;
        std::string slowest;
        for (const content::BuiltInFont& font : content::FontManager::builtInFonts()) {
            desk.text->setFontName(std::string(font.name));
            desk.text->setText(string);
            times.push_back(fastest(*desk.text, step));
            if (times.back() == *std::ranges::max_element(times))
                slowest = font.name;
        }
        state.counters["slowest, ms"] = *std::ranges::max_element(times);
        state.counters["mean, ms"] =
            std::accumulate(times.begin(), times.end(), 0.0) / static_cast<double>(times.size());
        state.SetLabel(slowest);
    }
}

void depth(benchmark::State& state) {
    overAllFonts(state, kWord, [](content::TextNode& text, int round) {
        text.setExtrusionDepth(20 + round);
    });
}

void bevel(benchmark::State& state) {
    overAllFonts(state, kWord, [](content::TextNode& text, int round) {
        text.setBevelRadius(1.0f + 0.2f * static_cast<float>(round));
    });
}

/// Another kerning makes all outlines new, as another font does.
void outlines(benchmark::State& state) {
    overAllFonts(state, kWord, [](content::TextNode& text, int) {
        text.setKerning(static_cast<float>(text.kerning()) - 0.001f);
    });
}

/// A letter that the text has already, as most are.
void keystroke(benchmark::State& state) {
    std::string string;
    while (string.size() < kLongText)
        string += "The quick brown fox jumps over the lazy dog. ";
    string.resize(kLongText);
    overAllFonts(state, string, [string](content::TextNode& text, int round) {
        text.setText(string + (round % 2 == 0 ? "o" : "e"));
    });
}

BENCHMARK(depth)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(bevel)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(outlines)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(keystroke)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
