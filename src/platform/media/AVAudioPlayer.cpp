// SPDX-License-Identifier: MIT
#include "platform/media/AVAudioPlayer.h"

#include "platform/media/AudioReader.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <optional>
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

    [[nodiscard]] bool hasBrokenOff() const { return brokenOff; }

    void seek(double seconds) {
        const std::lock_guard lock(mutex);
        if (isPrepared && seconds == preparedAt)
            return;
        reader.seek(seconds);
        preparedAt = seconds;
        given = 0;
        brokenOff = false;
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

    /// `seconds` of the passage have passed where the next fill begins.
    void setPassage(const Passage& next, double seconds) {
        const std::lock_guard lock(mutex);
        passage = next;
        passed = std::llround(seconds * AudioReader::kSampleRate);
    }

    void endPassage() {
        const std::lock_guard lock(mutex);
        passage.reset();
    }

    void fill(std::span<float> out) {
        const std::lock_guard lock(mutex);
        isPrepared = false;
        std::size_t filled = 0;
        while (filled < out.size()) {
            const std::size_t frames = reader.read(out.subspan(filled));
            filled += frames * AudioReader::kChannels;
            given += static_cast<std::int64_t>(frames);
            if (filled >= out.size())
                break;
            brokenOff = brokenOff || endsTooEarly();
            if (loops == 0 || (frames == 0 && hasJustLooped))
                break;
            if (loops > 0)
                --loops;
            reader.seek(0.0);
            preparedAt = 0;
            given = 0;
            hasJustLooped = frames == 0;
        }
        std::ranges::fill(out.subspan(filled), 0.0F);
        if (passage)
            applyPassage(out);
        else
            applyGain(out);
    }

private:
    /// The file was whole when it was opened.
    [[nodiscard]] bool endsTooEarly() const {
        constexpr double kTolerance = 0.5; // seconds; some decoders hold back their last samples
        const double at = preparedAt + static_cast<double>(given) / AudioReader::kSampleRate;
        return at < duration() - kTolerance;
    }

    void applyPassage(std::span<float> out) {
        const auto end = std::llround(passage->duration * AudioReader::kSampleRate);
        for (std::size_t i = 0; i + 1 < out.size(); i += AudioReader::kChannels, ++passed) {
            const double seconds = static_cast<double>(passed) / AudioReader::kSampleRate;
            const double volume = passed < end ? passage->volumeAt(seconds) : 0.0;
            out[i] *= static_cast<float>(volume);
            out[i + 1] *= static_cast<float>(volume);
        }
    }

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
    std::int64_t given = 0; ///< frames since `preparedAt`
    std::atomic<bool> brokenOff = false;
    bool isPrepared = false;
    bool hasJustLooped = false;
    int loops = 0;
    float gain = 1.0F;
    float target = 1.0F;
    std::int64_t framesLeft = 0;
    std::optional<Passage> passage;
    std::int64_t passed = 0; ///< frames of the passage
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
    , output(std::move(soundOutput)) {
    if (output) {
        output->onDeviceChange = [this] {
            if (isPlaying())
                startOutputAnew();
        };
    }
}

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
    passage.reset();
    voice->endPassage();
    position = std::clamp(seconds, 0.0, duration());
    startedAt = loop.now();
    wasStarted = goesOn;
    voice->seek(position);
    if (goesOn)
        startOutput();
}

float AVAudioPlayer::volume() const {
    if (passage)
        return static_cast<float>(passage->volumeAt(passageTime()));
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

void AVAudioPlayer::setPassage(Passage next) {
    passage = std::move(next);
    passageStart = currentTime();
}

double AVAudioPlayer::passageTime() const {
    return elapsed() - passageStart;
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
    // What was read of a passage is heard to its last sample, although the device is behind the clock.
    constexpr double kTick = 0.02; // the clock may come to the end a tick early
    const bool isAtEnd = wasStarted && passage && passageTime() >= passage->duration - kTick;
    position = currentTime();
    wasStarted = false;
    if (isAtEnd && isOutputRunning) {
        output->finish();
        isOutputRunning = false;
    }
    stopOutput();
    passage.reset();
    voice->endPassage();
}

bool AVAudioPlayer::hasBrokenOff() const {
    return voice->hasBrokenOff();
}

bool AVAudioPlayer::isPlaying() const {
    return wasStarted && !hasEnded();
}

void AVAudioPlayer::startOutput() {
    if (!output)
        return;
    if (passage)
        voice->setPassage(*passage, passageTime());
    output->start([this](std::span<float> out) { voice->fill(out); });
    isOutputRunning = true;
}

void AVAudioPlayer::startOutputAnew() {
    stopOutput();
    voice->seek(currentTime());
    passVolumeOn();
    startOutput();
}

void AVAudioPlayer::stopOutput() {
    if (isOutputRunning)
        output->stop();
    isOutputRunning = false;
}

} // namespace zelvo::media
