// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/FFmpeg.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace zelvo::media {

/// Decodes the sound of a file to interleaved stereo at 48 kHz (or its first channel at its own rate),
/// from any position, exact to the sample. Damaged packets become silence where the file has time stamps, so that the sound behind
/// them keeps its time; in other files they are skipped.
class AudioReader {
public:
    static constexpr int kSampleRate = 48000;
    static constexpr int kChannels = 2;

    /// Errors: those of openMediaFile, and `unsupported` if no sound in the file can be decoded.
    [[nodiscard]] static foundation::Result<AudioReader> open(const std::filesystem::path& file);

    /// Reads the first channel alone, at the sample rate of the file, for pictures of the sound. The
    /// first samples are there at once, however long the file is, because its duration is not
    /// measured: it is 0. Errors: as above.
    [[nodiscard]] static foundation::Result<AudioReader>
    openFirstChannel(const std::filesystem::path& file);

    /// Of the samples that are read.
    [[nodiscard]] int sampleRate() const { return rate; }

    /// Seconds that can be read, at most 24 hours. Computed from the packets, because headers can
    /// be wrong or missing.
    [[nodiscard]] double duration() const { return duration_; }

    /// The next read starts at this time of the song; negative values count as 0.
    void seek(double seconds);

    /// Reads whole frames (pairs of samples, -1 to 1) and returns their number. It is less than
    /// asked for only at the end of the file.
    [[nodiscard]] std::size_t read(std::span<float> interleaved);

    /// Whether some of the sound since the last seek could not be decoded.
    [[nodiscard]] bool hasGaps() const { return hasGaps_; }

private:
    AudioReader() = default;

    [[nodiscard]] foundation::Result<void> openDecoder(const std::filesystem::path& file);
    [[nodiscard]] double measureDuration();
    void rewindTo(std::int64_t timestamp);
    void decodeMore();
    void takeFrame();
    void convert(const AVFrame* source);
    [[nodiscard]] bool prepareConverter(const AVFrame& source);
    [[nodiscard]] std::optional<std::int64_t> placeOf(const AVFrame& source) const;
    void alignToTarget(const AVFrame& first);
    void bridgeGap(const AVFrame& next);
    void append(std::span<const float> samples);

    FFmpegPtr<AVFormatContext> format;
    FFmpegPtr<AVCodecContext> decoder;
    FFmpegPtr<SwrContext> converter;
    FFmpegPtr<AVFrame> frame;
    FFmpegPtr<AVPacket> packet;
    int stream = -1;
    int rate = kSampleRate; ///< of the samples that are given out, as is `channels`
    int channels = kChannels;
    double duration_ = 0.0;

    // The input format of the converter. It can change within a damaged file.
    int sourceRate = 0;
    int sourceFormat = -1;
    int sourceChannels = 0;

    std::vector<float> pending;   // decoded but not read
    std::size_t pendingStart = 0; // in samples
    std::int64_t target = 0;      // index of the frame where reading should start
    std::int64_t toSkip = 0;      // frames to drop before it
    std::int64_t nextPlace = 0;   // index of the frame that is decoded next
    bool isAligned = false;       // whether the first frame after a seek has been placed
    bool hasStumbled = false;     // whether the last packet could not be decoded
    bool hasGaps_ = false;
    bool isAtEnd = false;
};

} // namespace zelvo::media
