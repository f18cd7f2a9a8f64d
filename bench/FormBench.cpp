// SPDX-License-Identifier: MIT
// What a step of a slider, a new font and a keystroke cost the main thread, until the letters can be
// drawn: five letters in every built-in font, and a keystroke on a long text. Each row shows the
// slowest font. The time is that of the processor on this thread, so other programs do not count.
#include "content/FontManager.h"
#include "content/TextNode.h"
#include "platform/foundation/Folders.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/foundation/UserDefaults.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

namespace {

using namespace zelvo;

constexpr std::array kWords{"WORDS", "FIGHT", "JUMPY", "BLACK", "QNVXZ"}; // no letter twice
constexpr int kLongText = 200;                                            ///< letters

struct Desk {
    Desk() { content::FontManager(fonts).registerBuiltIns(foundation::mainBundle()); }

    text::FontRegistry fonts;
    // On disk, as in the program: each build keeps a mark there while it runs.
    foundation::TemporaryFolder folder =
        *foundation::TemporaryFolder::make(std::filesystem::temp_directory_path() / "zelvo-bench");
    foundation::UserDefaults defaults{folder.path() / "defaults.json"};
    foundation::WallRunLoop loop;
    content::TextNodePtr text = content::TextNode::make(
        {.text = kWords[0], .fontName = "DaysOne-Regular", .shortName = "TX1"},
        node::Surroundings{&fonts, &defaults, &loop, {}, node::DeviceIdiom::tablet});
};

using Step = std::function<void(Desk&, std::size_t round)>;

void buildAll(const content::TextNode& text) {
    for (const content::CharNodePtr& letter : text.letters())
        benchmark::DoNotOptimize(letter->geometry->mesh().indices.data());
}

double now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The median of a step's rounds, milliseconds.
double medianOf(Desk& desk, const Step& step) {
    std::array<double, kWords.size()> times{};
    for (std::size_t round = 0; round < times.size(); ++round) {
        const double began = now();
        step(desk, round);
        buildAll(*desk.text);
        times[round] = now() - began;
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void overAllFonts(benchmark::State& state, const std::string& string, const Step& step) {
    Desk desk;
    for ([[maybe_unused]] auto _ : state) {
        std::vector<double> times;
        std::string slowest;
        for (const content::BuiltInFont& font : content::FontManager::builtInFonts()) {
            desk.text->setFontName(std::string(font.name));
            desk.text->setText(string);
            times.push_back(medianOf(desk, step));
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
    overAllFonts(state, kWords[0], [](Desk& desk, std::size_t round) {
        desk.text->setExtrusionDepth(20.0 + static_cast<double>(round));
    });
}

void bevel(benchmark::State& state) {
    overAllFonts(state, kWords[0], [](Desk& desk, std::size_t round) {
        desk.text->setBevelRadius(1.0f + 0.4f * static_cast<float>(round));
    });
}

/// Letters that no text has had, as with a new font.
void outlines(benchmark::State& state) {
    overAllFonts(
        state, "", [](Desk& desk, std::size_t round) { desk.text->setText(kWords.at(round)); });
}

/// The same, with the outlines computed on another thread.
void outlinesSoon(benchmark::State& state) {
    overAllFonts(state, "", [](Desk& desk, std::size_t round) {
        const std::string word = kWords.at(round);
        desk.text->setTextSoon(word);
        desk.loop.runUntil([&] { return desk.text->text() == word; });
    });
}

/// Letters that the text has already, as most are.
void keystroke(benchmark::State& state) {
    std::string string;
    while (string.size() < kLongText)
        string += "The quick brown fox jumps over the lazy dog. ";
    string.resize(kLongText);
    overAllFonts(state, string, [string](Desk& desk, std::size_t round) {
        desk.text->setTextSoon(string + string[round]);
    });
}

BENCHMARK(depth)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(bevel)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(outlines)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(outlinesSoon)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(keystroke)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
