// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/AudioOutput.h"

#include <filesystem>
#include <memory>

namespace zelvo::media {

/// Plays one sound file. Its state (position, volume, whether it plays) follows the run loop's
/// clock alone, so it is the same with a sound device and without one; a device sounds along.
///
/// Times are song seconds, volumes 0 to 1. Everything belongs to the run loop's thread.
class AVAudioPlayer {
public:
    /// `output` may be null: silence. Errors are those of the file.
    [[nodiscard]] static foundation::Result<std::unique_ptr<AVAudioPlayer>> open(
        const std::filesystem::path& file,
        const foundation::RunLoop& loop,
        std::unique_ptr<AudioOutput> output);

    ~AVAudioPlayer();
    AVAudioPlayer(const AVAudioPlayer&) = delete;
    AVAudioPlayer& operator=(const AVAudioPlayer&) = delete;

    [[nodiscard]] double duration() const;

    /// How often the song is repeated after its first pass; negative is for ever. The default is 0.
    [[nodiscard]] int numberOfLoops() const { return numberOfLoops_; }

    void setNumberOfLoops(int loops);

    /// Finds the present position in the file, so that play() sounds at once.
    void prepareToPlay();

    /// The playing position; 0 again after the song has ended. Set values are clamped to the song.
    [[nodiscard]] double currentTime() const;
    void setCurrentTime(double seconds);

    /// The volume of this moment, also within a fade. The default is 1.
    [[nodiscard]] float volume() const;
    void setVolume(float volume);
    /// Travels from the present volume linearly, playing or not.
    void setVolume(float volume, double fadeDuration);

    void play();
    /// Stays where it is; play() goes on from there.
    void pause();

    /// False from the song's end on.
    [[nodiscard]] bool isPlaying() const;

private:
    class Voice; // the sounding side, shared with the output's thread

    /// A volume on its way; `duration` 0 has arrived.
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

    /// Song seconds passed since position 0 of the first pass, not wrapped.
    [[nodiscard]] double elapsed() const;
    [[nodiscard]] bool hasEnded() const;
    void passVolumeOn();
    void startOutput();
    void stopOutput();

    const foundation::RunLoop& loop;
    std::unique_ptr<Voice> voice;
    std::unique_ptr<AudioOutput> output; // goes first: it calls the voice
    Fade fade;
    double position = 0.0;  // at the last play, pause or setting
    double startedAt = 0.0; // on the loop's clock
    int numberOfLoops_ = 0;
    bool wasStarted = false;
    bool isOutputRunning = false;
};

} // namespace zelvo::media
