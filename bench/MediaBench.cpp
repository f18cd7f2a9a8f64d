// SPDX-License-Identifier: MIT

// The cost of a movie without drawing: converting and encoding frames of 1920 x 1080 that look like
// a title.

#include "platform/foundation/TemporaryFolder.h"
#include "platform/media/AVAssetWriter.h"
#include "platform/media/ColorConversion.h"

#include <benchmark/benchmark.h>

extern "C" {
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
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

/// Five shaded rings that move in front of a gradient.
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
    PixelBuffer picture = PixelBufferPool(kWidth, kHeight, PixelFormat::rgba).acquire();
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

struct Planes {
    std::vector<std::uint8_t> luma =
        std::vector<std::uint8_t>(static_cast<std::size_t>(kWidth) * kHeight);
    std::vector<std::uint8_t> chroma = std::vector<std::uint8_t>(luma.size() / 2);

    [[nodiscard]] YuvPlanes view() {
        return {luma.data(), chroma.data(), chroma.data() + luma.size() / 4, kWidth, kWidth / 2};
    }
};

int largestDifference(
    const std::vector<std::uint8_t>& one, const std::vector<std::uint8_t>& other) {
    int largest = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        largest = std::max(largest, std::abs(one[i] - other[i]));
    return largest;
}

void convertFrame(benchmark::State& state) {
    const PixelBuffer frame = draw(0);
    Planes planes;
    for ([[maybe_unused]] auto _ : state) {
        convertToYuv420(frame, planes.view());
        benchmark::DoNotOptimize(planes.luma.data());
    }
}

BENCHMARK(convertFrame)->Unit(benchmark::kMillisecond);

struct FreeScaler {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

/// The library with the same settings: video range, BT.709, chroma on the left pixel.
std::unique_ptr<SwsContext, FreeScaler> makeScaler() {
    std::unique_ptr<SwsContext, FreeScaler> scaler(sws_alloc_context());
    const auto set = [&scaler](const char* name, std::int64_t value) {
        av_opt_set_int(scaler.get(), name, value, 0);
    };
    set("srcw", kWidth);
    set("dstw", kWidth);
    set("srch", kHeight);
    set("dsth", kHeight);
    set("src_format", AV_PIX_FMT_RGBA);
    set("dst_format", AV_PIX_FMT_YUV420P);
    set("src_range", 1);
    set("dst_range", 0);
    set("dst_h_chr_pos", 0);
    set("dst_v_chr_pos", 128);
    set("sws_flags", SWS_BILINEAR | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP);
    const int* const weights = sws_getCoefficients(SWS_CS_ITU709);
    constexpr int kOne = 1 << 16;
    sws_setColorspaceDetails(scaler.get(), weights, 1, weights, 0, 0, kOne, kOne);
    if (sws_init_context(scaler.get(), nullptr, nullptr) < 0)
        scaler.reset();
    return scaler;
}

void convertFrameByLibrary(benchmark::State& state) {
    PixelBuffer frame = draw(0);
    const auto scaler = makeScaler();
    if (!scaler) {
        state.SkipWithError("the library converts no such picture");
        return;
    }
    Planes planes;
    const YuvPlanes view = planes.view();
    const std::array<const std::uint8_t*, 4> from{frame.row(0)};
    const std::array<int, 4> fromStrides{static_cast<int>(frame.bytesPerRow())};
    const std::array<std::uint8_t*, 4> to{view.luma, view.cb, view.cr};
    const std::array<int, 4> toStrides{kWidth, kWidth / 2, kWidth / 2};
    for ([[maybe_unused]] auto _ : state) {
        sws_scale(
            scaler.get(), from.data(), fromStrides.data(), 0, kHeight, to.data(), toStrides.data());
        benchmark::DoNotOptimize(planes.luma.data());
    }
    Planes ours;
    convertToYuv420(frame, ours.view());
    state.counters["luma off by"] = largestDifference(planes.luma, ours.luma);
    state.counters["chroma off by"] = largestDifference(planes.chroma, ours.chroma);
}

BENCHMARK(convertFrameByLibrary)->Unit(benchmark::kMillisecond);

/// Encodes the pictures. Returns the encoding thread's processor time in seconds; 0 if it fails.
double writeMovie(const std::vector<PixelBuffer>& pictures, const std::filesystem::path& file) {
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
    for (const PixelBuffer& picture : pictures) {
        input.waitUntilReady();
        PixelBuffer copy = adaptor.pixelBufferPool().acquire();
        std::copy_n(picture.row(0), picture.bytesPerRow() * kHeight, copy.row(0));
        if (!adaptor.appendPixelBuffer(std::move(copy), {time++, 60}))
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
    pictures.reserve(kFrames);
    for (int i = 0; i < kFrames; ++i)
        pictures.push_back(draw(i));
    const auto folder = foundation::TemporaryFolder::make(std::filesystem::temp_directory_path());
    if (!folder) {
        state.SkipWithError(folder.error().message.c_str());
        return;
    }
    const auto file = folder->path() / "frames.mov";
    double seconds = 0.0;
    for ([[maybe_unused]] auto _ : state)
        seconds += writeMovie(pictures, file);
    const auto bytes = static_cast<double>(std::filesystem::file_size(file));
    state.counters["ms a frame"] =
        benchmark::Counter(seconds * 1000.0 / kFrames, benchmark::Counter::kAvgIterations);
    state.counters["Mbit/s"] = bytes * 8.0 * 60.0 / kFrames / 1e6;
}

BENCHMARK(encodeMovie)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace zelvo::media
