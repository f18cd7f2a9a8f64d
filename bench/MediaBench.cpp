// SPDX-License-Identifier: MIT

// What a movie costs besides drawing: converting and encoding frames of 1920 x 1080 that look like
// a title.

#include "platform/media/AVAssetWriter.h"
#include "platform/media/ColorConversion.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <future>
#include <memory>
#include <utility>
#include <vector>

namespace zelvo::media {
namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kLetters = 5;

/// Five shaded rings on the move before a gradient.
double shadeAt(int x, int y, double t) {
    const double falloff = std::hypot((x - 960) / 960.0, (y - 540) / 540.0);
    const double backdrop = 120.0 - 50.0 * std::min(falloff * falloff, 2.0);
    const int letter = std::clamp((x - 135) / 330, 0, kLetters - 1);
    const double slide = 300.0 * std::exp(-4.0 * t) * (letter % 2 == 0 ? 1.0 : -1.0);
    const double dx = x - (300.0 + 330.0 * letter);
    const double dy = y - 540.0 - slide;
    const double bevel = 1.0 - std::abs(std::hypot(dx, dy * 0.8) - 110.0) / 40.0;
    if (bevel <= 0.0)
        return backdrop;
    const double glint = std::pow(std::abs(std::cos(std::atan2(dy, dx) * 2.0 + 2.0 * t)), 20.0);
    return std::min(60.0 + 120.0 * bevel + 150.0 * bevel * glint, 255.0);
}

PixelBuffer draw(int frame) {
    PixelBuffer picture = PixelBuffer::allocate(kWidth, kHeight, PixelFormat::rgba);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double shade = shadeAt(x, y, frame / 60.0);
            std::uint8_t* pixel = picture.row(y) + 4L * x;
            pixel[0] = static_cast<std::uint8_t>(shade);
            pixel[1] = static_cast<std::uint8_t>(shade * 0.9);
            pixel[2] = static_cast<std::uint8_t>(shade * 0.6);
            pixel[3] = 255;
        }
    }
    return picture;
}

void convertFrame(benchmark::State& state) {
    const PixelBuffer frame = draw(0);
    std::vector<std::uint8_t> luma(static_cast<std::size_t>(kWidth) * kHeight);
    std::vector<std::uint8_t> chroma(luma.size() / 2);
    const YuvPlanes planes{
        luma.data(), chroma.data(), chroma.data() + luma.size() / 4, kWidth, kWidth / 2};
    for (auto _ : state) {
        convertToYuv420(frame, planes);
        benchmark::DoNotOptimize(luma.data());
    }
}

BENCHMARK(convertFrame)->Unit(benchmark::kMillisecond);

/// Encodes the pictures; the encoding thread's processor seconds, 0 if that fails.
double writeMovie(std::vector<PixelBuffer>& pictures, const std::filesystem::path& file) {
    auto writer = AVAssetWriter::create(file);
    if (!writer)
        return 0.0;
    const VideoSettings settings{VideoCodec::h264, kWidth, kHeight};
    auto& input = (*writer)->addInput(std::make_unique<AVAssetWriterInput>(settings));
    AVAssetWriterInputPixelBufferAdaptor adaptor(
        input, PixelBufferPool(kWidth, kHeight, PixelFormat::rgba));
    if (!(*writer)->startWriting())
        return 0.0;
    int time = 0;
    for (PixelBuffer& picture : pictures) {
        const PixelBuffer::Layout layout{kWidth, kHeight, picture.bytesPerRow(), PixelFormat::rgba};
        input.waitUntilReady();
        auto view = PixelBuffer::view(picture.row(0), layout, [] {});
        if (!adaptor.appendPixelBuffer(std::move(view), {time++, 60}))
            return 0.0;
    }
    std::promise<void> done;
    (*writer)->finishWritingWithCompletionHandler([&] { done.set_value(); });
    done.get_future().wait();
    return (*writer)->encodingSeconds();
}

/// One iteration is a movie of 45 frames; "ms a frame" is the encoding thread's processor time.
void encodeMovie(benchmark::State& state) {
    constexpr int kFrames = 45;
    std::vector<PixelBuffer> pictures;
    for (int i = 0; i < kFrames; ++i)
        pictures.push_back(draw(i));
    const auto file = std::filesystem::temp_directory_path() / "zelvo-media-bench.mov";
    double seconds = 0.0;
    for (auto _ : state)
        seconds += writeMovie(pictures, file);
    const auto bytes = static_cast<double>(std::filesystem::file_size(file));
    std::filesystem::remove(file);
    state.counters["ms a frame"] =
        benchmark::Counter(seconds * 1000.0 / kFrames, benchmark::Counter::kAvgIterations);
    state.counters["Mbit/s"] = bytes * 8.0 * 60.0 / kFrames / 1e6;
}

BENCHMARK(encodeMovie)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace zelvo::media
