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

enum class SoundCodec { aac, opus };

/// The sound of an exported movie: a part of a file, silence before and after it, and its volume
/// over time, encoded at 192 kbit/s. Positions are counted in samples (1/48000 s) from the
/// start of the movie.
class SoundTrack {
public:
    /// `lengthSeconds` is the length of the movie; the sound is cut there. Errors: those of the
    /// file, and `unavailable` without an encoder.
    [[nodiscard]] static foundation::Result<SoundTrack> open(
        const AVMutableCompositionTrack::Segment& segment,
        AVMutableAudioMixInputParameters volume,
        double lengthSeconds,
        SoundCodec codec);

    /// Call it before the file begins.
    void addTo(MovieFile& movie);

    /// Encodes and writes the sound up to the given movie time.
    [[nodiscard]] foundation::Result<void> writeUntil(double seconds, MovieFile& movie);

    /// Encodes and writes the rest.
    [[nodiscard]] foundation::Result<void> finish(MovieFile& movie);

    /// Whether some of the song could not be decoded so far.
    [[nodiscard]] bool hasGaps() const { return reader.hasGaps(); }

private:
    explicit SoundTrack(AudioReader sound);

    [[nodiscard]] foundation::Result<void> openEncoder(SoundCodec wanted);
    void fillFrame(std::int64_t count) const;
    [[nodiscard]] foundation::Result<void> writeFrame(MovieFile& movie);
    [[nodiscard]] foundation::Result<void> send(AVFrame* next, MovieFile& movie);
    void mix(std::int64_t count);

    AudioReader reader;
    AVMutableAudioMixInputParameters volume;
    FFmpegPtr<AVCodecContext> encoder;
    FFmpegPtr<AVFrame> frame;
    FFmpegPtr<AVPacket> packet;
    std::vector<float> block; // interleaved; one frame of the encoder
    int track = 0;
    std::int64_t begin = 0;  // first sample of the part
    std::int64_t end = 0;    // end of the part
    std::int64_t length = 0; // of the movie
    std::int64_t position = 0;
};

} // namespace zelvo::media
