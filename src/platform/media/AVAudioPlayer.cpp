// SPDX-License-Identifier: MIT
#include "platform/media/AVAudioPlayer.h"

#include "platform/media/AudioReader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <span>
#include <utility>

namespace zelvo::media {

using foundation::Result;

/// Reads the song for the output. Its time is counted in samples, not in seconds of a clock.
class AVAudioPlayer::Voice {
public:
    explicit Voice(AudioReader sound)
        : reader(std::move(sound)) {}

    [[nodiscard]] double duration() const { return reader.duration(); }

    void seek(double seconds) {
        const std::lock_guard lock(mutex);
        if (isPrepared && seconds == preparedAt)
            return;
        reader.seek(seconds);
        preparedAt = seconds;
        isPrepared = true;
    }

    void setLoops(int newLoops) {
        const std::lock_guard lock(mutex);
        loops = newLoops;
    }

    void setGain(float present, float newTarget, double seconds) {
        const std::lock_guard lock(mutex);
        gain = present;
        target = newTarget;
        framesLeft = std::llround(seconds * AudioReader::kSampleRate);
        if (framesLeft <= 0)
            gain = target;
    }

    void fill(std::span<float> out) {
        const std::lock_guard lock(mutex);
        isPrepared = false;
        std::size_t filled = 0;
        while (filled < out.size()) {
            const std::size_t frames = reader.read(out.subspan(filled));
            filled += frames * AudioReader::kChannels;
            if (filled >= out.size())
                break;
            if (loops == 0 || (frames == 0 && hasJustLooped))
                break;
            if (loops > 0)
                --loops;
            reader.seek(0.0);
            hasJustLooped = frames == 0;
        }
        std::ranges::fill(out.subspan(filled), 0.0F);
        applyGain(out);
    }

private:
    void applyGain(std::span<float> out) {
        for (std::size_t i = 0; i + 1 < out.size(); i += AudioReader::kChannels) {
            if (framesLeft > 0)
                gain += (target - gain) / static_cast<float>(framesLeft--);
            out[i] *= gain;
            out[i + 1] *= gain;
        }
    }

    std::mutex mutex; // guards everything below
    AudioReader reader;
    double preparedAt = 0.0;
    bool isPrepared = false;
    bool hasJustLooped = false;
    int loops = 0;
    float gain = 1.0F;
    float target = 1.0F;
    std::int64_t framesLeft = 0;
};

Result<std::unique_ptr<AVAudioPlayer>> AVAudioPlayer::open(
    const std::filesystem::path& file,
    const foundation::RunLoop& loop,
    std::unique_ptr<AudioOutput> output) {
    auto reader = AudioReader::open(file);
    if (!reader)
        return tl::unexpected(reader.error());
    auto voice = std::make_unique<Voice>(std::move(*reader));
    return std::unique_ptr<AVAudioPlayer>(
        new AVAudioPlayer(std::move(voice), loop, std::move(output)));
}

AVAudioPlayer::AVAudioPlayer(
    std::unique_ptr<Voice> soundingVoice,
    const foundation::RunLoop& runLoop,
    std::unique_ptr<AudioOutput> soundOutput)
    : loop(runLoop)
    , voice(std::move(soundingVoice))
    , output(std::move(soundOutput)) {}

AVAudioPlayer::~AVAudioPlayer() {
    stopOutput();
}

double AVAudioPlayer::duration() const {
    return voice->duration();
}

void AVAudioPlayer::setNumberOfLoops(int loops) {
    numberOfLoops_ = loops;
    voice->setLoops(loops);
}

void AVAudioPlayer::prepareToPlay() {
    if (!isPlaying())
        voice->seek(currentTime());
}

double AVAudioPlayer::elapsed() const {
    return wasStarted ? position + (loop.now() - startedAt) : position;
}

bool AVAudioPlayer::hasEnded() const {
    return numberOfLoops_ >= 0 && elapsed() >= duration() * (1.0 + numberOfLoops_);
}

double AVAudioPlayer::currentTime() const {
    return hasEnded() ? 0.0 : std::fmod(elapsed(), duration());
}

void AVAudioPlayer::setCurrentTime(double seconds) {
    const bool goesOn = isPlaying();
    stopOutput();
    position = std::clamp(seconds, 0.0, duration());
    startedAt = loop.now();
    wasStarted = goesOn;
    voice->seek(position);
    if (goesOn)
        startOutput();
}

float AVAudioPlayer::volume() const {
    const double passed = loop.now() - fade.start;
    if (passed >= fade.duration)
        return fade.to;
    return fade.from + (fade.to - fade.from) * static_cast<float>(passed / fade.duration);
}

void AVAudioPlayer::setVolume(float newVolume) {
    setVolume(newVolume, 0.0);
}

void AVAudioPlayer::setVolume(float newVolume, double fadeDuration) {
    fade = {volume(), std::clamp(newVolume, 0.0F, 1.0F), loop.now(), std::max(fadeDuration, 0.0)};
    passVolumeOn();
}

void AVAudioPlayer::passVolumeOn() {
    const double passed = std::min(loop.now() - fade.start, fade.duration);
    voice->setGain(volume(), fade.to, fade.duration - passed);
}

void AVAudioPlayer::play() {
    if (isPlaying())
        return;
    stopOutput();
    position = currentTime();
    startedAt = loop.now();
    wasStarted = true;
    voice->seek(position);
    voice->setLoops(numberOfLoops_);
    passVolumeOn();
    startOutput();
}

void AVAudioPlayer::pause() {
    position = currentTime();
    wasStarted = false;
    stopOutput();
}

bool AVAudioPlayer::isPlaying() const {
    return wasStarted && !hasEnded();
}

void AVAudioPlayer::startOutput() {
    if (!output)
        return;
    output->start([this](std::span<float> out) { voice->fill(out); });
    isOutputRunning = true;
}

void AVAudioPlayer::stopOutput() {
    if (isOutputRunning)
        output->stop();
    isOutputRunning = false;
}

} // namespace zelvo::media
