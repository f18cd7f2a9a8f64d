// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace zelvo::media {

/// Decodes the sound of a file to interleaved stereo at 48 kHz, from any position, sample by
/// sample. Damaged packets are skipped; what cannot be decoded at the end is missing.
class AudioReader {
public:
    static constexpr int kSampleRate = 48000;
    static constexpr int kChannels = 2;

    /// Errors of openMediaFile, or unsupported if the file has no sound that can be decoded.
    [[nodiscard]] static foundation::Result<AudioReader> open(const std::filesystem::path& file);

    /// Seconds that can be read, counted from the file's packets: headers are wrong in truncated
    /// files, and missing in others. At most 24 hours.
    [[nodiscard]] double duration() const { return duration_; }

    /// The next read begins at this song time; negative counts as 0.
    void seek(double seconds);

    /// Fills whole frames (pairs of samples) from the front and returns their number; fewer than
    /// asked for only at the end of the file. Values from -1 to 1.
    [[nodiscard]] std::size_t read(std::span<float> interleaved);

private:
    AudioReader() = default;

    [[nodiscard]] foundation::Result<void> openDecoder(const std::filesystem::path& file);
    [[nodiscard]] double measureDuration();
    void rewindTo(std::int64_t timestamp);
    void decodeMore();
    void takeFrame();
    void convert(const AVFrame* source);
    [[nodiscard]] bool prepareConverter(const AVFrame& source);
    void alignToTarget(const AVFrame& first);

    FFmpegPtr<AVFormatContext> format;
    FFmpegPtr<AVCodecContext> decoder;
    FFmpegPtr<SwrContext> converter;
    FFmpegPtr<AVFrame> frame;
    FFmpegPtr<AVPacket> packet;
    int stream = -1;
    double duration_ = 0.0;

    // The format that the converter was made for; it may change within a damaged file.
    int sourceRate = 0;
    int sourceFormat = -1;
    int sourceChannels = 0;

    std::vector<float> pending;   // decoded, not yet read
    std::size_t pendingStart = 0; // in samples
    std::int64_t target = 0;      // frame index at which reading is to begin
    std::int64_t toSkip = 0;      // frames still to drop before it
    bool isAligned = false;       // the first frame after seeking has been placed
    bool isAtEnd = false;
};

} // namespace zelvo::media
