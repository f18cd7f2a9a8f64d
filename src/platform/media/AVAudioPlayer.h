// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/AudioOutput.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace zelvo::media {

/// Plays one sound file. Its state (position, volume, whether it plays) depends only on the run
/// loop's clock, so it is the same with and without a sound device.
///
/// Times are in seconds of the song, volumes 0 to 1. Use it on the run loop's thread only.
class AVAudioPlayer {
public:
    /// `output` may be null for silence. Errors: those of the file.
    [[nodiscard]] static foundation::Result<std::unique_ptr<AVAudioPlayer>> open(
        const std::filesystem::path& file,
        const foundation::RunLoop& loop,
        std::unique_ptr<AudioOutput> output);

    ~AVAudioPlayer();
    AVAudioPlayer(const AVAudioPlayer&) = delete;
    AVAudioPlayer& operator=(const AVAudioPlayer&) = delete;

    [[nodiscard]] double duration() const;

    /// How often the song repeats after its first pass; negative means forever. Default 0.
    [[nodiscard]] int numberOfLoops() const { return numberOfLoops_; }

    void setNumberOfLoops(int loops);

    /// Seeks the current position in the file, so that play() starts without delay.
    void prepareToPlay();

    /// The playback position; 0 after the song has ended. Values set are clamped to the song.
    [[nodiscard]] double currentTime() const;
    void setCurrentTime(double seconds);

    /// The current volume, also during a fade. Default 1.
    [[nodiscard]] float volume() const;
    void setVolume(float volume);
    /// Fades linearly from the current volume, whether it plays or not.
    void setVolume(float volume, double fadeDuration);

    /// A part of the song with its volume over time. It is heard exact to the sample, however far the
    /// sound device reads ahead.
    struct Passage {
        double duration = 0; ///< seconds; silence follows
        /// Times are in seconds from the beginning of the passage. Is called on any thread.
        std::function<double(double)> volumeAt;
    };

    /// The next play() plays this passage from the current position on, once. It ends with pause() or
    /// setCurrentTime(); until then, setVolume() is not heard.
    void setPassage(Passage next);

    void play();
    /// Keeps the position; play() continues there.
    void pause();

    /// False after the end of the song.
    [[nodiscard]] bool isPlaying() const;

    /// The file can no longer be read up to its end: it was cut off or taken away since it was opened.
    /// The rest is silent. A new position gives it another chance.
    [[nodiscard]] bool hasBrokenOff() const;

private:
    class Voice; // reads the samples; shared with the output's thread

    /// A fade; `duration` 0 means that it has ended.
    struct Fade {
        float from = 1.0F;
        float to = 1.0F;
        double start = 0.0;
        double duration = 0.0;
    };

    AVAudioPlayer(
        std::unique_ptr<Voice> voice,
        const foundation::RunLoop& loop,
        std::unique_ptr<AudioOutput> output);

    /// Seconds of playback since the start of the first pass, counted over all repeats.
    [[nodiscard]] double elapsed() const;
    [[nodiscard]] bool hasEnded() const;
    [[nodiscard]] double passageTime() const;
    void passVolumeOn();
    void startOutput();
    void startOutputAnew();
    void stopOutput();

    const foundation::RunLoop& loop;
    std::unique_ptr<Voice> voice;
    std::unique_ptr<AudioOutput> output; // destroyed first, because it calls the voice
    Fade fade;
    std::optional<Passage> passage;
    double passageStart = 0.0; // of the song
    double position = 0.0;     // at the last play, pause or set
    double startedAt = 0.0;    // time of the run loop
    int numberOfLoops_ = 0;
    bool wasStarted = false;
    bool isOutputRunning = false;
};

} // namespace zelvo::media
