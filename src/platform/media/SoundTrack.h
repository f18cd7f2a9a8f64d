// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/AVMutableAudioMix.h"
#include "platform/media/AVMutableComposition.h"
#include "platform/media/AudioReader.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/MovieFile.h"

#include <cstdint>

namespace zelvo::media {

/// The sound of a movie being exported: one stretch of a file, silence before and behind it, its
/// volume over time, encoded as AAC at 192 kbit/s. Everything is counted in samples of 1/48000 s
/// from the movie's beginning.
class SoundTrack {
public:
    /// `lengthSeconds` is the movie's; the stretch is cut there. Errors of the file, or unavailable
    /// without an encoder.
    [[nodiscard]] static foundation::Result<SoundTrack> open(
        const AVMutableCompositionTrack::Segment& segment,
        AVMutableAudioMixInputParameters volume,
        double lengthSeconds);

    /// Before the file begins.
    void addTo(MovieFile& movie);

    /// Encodes and writes what sounds before the given movie time.
    [[nodiscard]] foundation::Result<void> writeUntil(double seconds, MovieFile& movie);

    /// Writes the rest.
    [[nodiscard]] foundation::Result<void> finish(MovieFile& movie);

private:
    explicit SoundTrack(AudioReader sound);

    [[nodiscard]] foundation::Result<void> openEncoder();
    [[nodiscard]] foundation::Result<void> writeFrame(MovieFile& movie);
    [[nodiscard]] foundation::Result<void> send(AVFrame* next, MovieFile& movie);
    void mix(std::int64_t count);

    AudioReader reader;
    AVMutableAudioMixInputParameters volume;
    FFmpegPtr<AVCodecContext> encoder;
    FFmpegPtr<AVFrame> frame;
    FFmpegPtr<AVPacket> packet;
    std::vector<float> block; // interleaved, one frame of the encoder
    int track = 0;
    std::int64_t begin = 0;  // of the stretch
    std::int64_t end = 0;    // behind the stretch
    std::int64_t length = 0; // of the movie
    std::int64_t position = 0;
};

} // namespace zelvo::media
