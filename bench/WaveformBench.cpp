// SPDX-License-Identifier: MIT

// How soon the waveform of a song of five minutes begins to show, and how soon it is whole. It should
// begin to show within 300 ms.

#include "media/MediaFixture.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/TemporaryFolder.h"
#include "platform/sound/Waveform.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <array>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

namespace zelvo::sound {
namespace {

struct Format {
    const char* name;
    const char* encoder;
};

// clang-format off
constexpr auto kFormats = std::to_array<Format>({
    {"song.wav",  "pcm_s16le" },
    {"song.mp3",  "libmp3lame"},
    {"song.flac", "flac"      },
    {"song.m4a",  "aac"       },
    {"song.ogg",  "libvorbis" },
});

// clang-format on

/// A chord and a beat, so that the packets are as large as those of music.
double music(double t) {
    double sum = 0.0;
    for (const double frequency : {220.0, 277.2, 329.6, 1318.5, 5274.0})
        sum += 0.08 * media::sine(frequency, 1.0)(t);
    return sum + 0.4 * media::sine(90.0, std::exp(-12 * std::fmod(t, 0.5)))(t);
}

/// The event loop of the program; run loops on the wall clock need one.
void ensureApplication() {
    static int count = 1;
    static std::string name = "waveform_bench";
    static std::vector<char*> arguments{name.data(), nullptr};
    static const QCoreApplication application(count, arguments.data());
}

template <class Done> void loadSong(benchmark::State& state, Done isDone) {
    const Format& format = kFormats.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(format.name);
    constexpr double kSeconds = 300.0;
    ensureApplication();
    const auto folder = foundation::TemporaryFolder::make(std::filesystem::temp_directory_path());
    if (!folder) {
        state.SkipWithError(folder.error().message.c_str());
        return;
    }
    const auto song = folder->path() / format.name;
    if (!media::encodeSound(song, format.encoder, kSeconds, music)) {
        state.SkipWithError("no encoder");
        return;
    }
    foundation::WallRunLoop loop;
    Waveform waveform(loop, {});
    for ([[maybe_unused]] auto _ : state) {
        waveform.load(song);
        loop.runUntil([&] { return isDone(waveform); });
        if (waveform.values().empty())
            state.SkipWithError("no values");
    }
}

void firstValues(benchmark::State& state) {
    loadSong(state, [](const Waveform& waveform) {
        return !waveform.values().empty() || !waveform.isLoading();
    });
}

void wholeSong(benchmark::State& state) {
    loadSong(state, [](const Waveform& waveform) { return !waveform.isLoading(); });
}

// The argument is a row of kFormats.
constexpr int kLast = std::ssize(kFormats) - 1;
BENCHMARK(firstValues)
    ->DenseRange(0, kLast)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(20);
BENCHMARK(wholeSong)
    ->DenseRange(0, kLast)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

} // namespace
} // namespace zelvo::sound
