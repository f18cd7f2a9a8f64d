// SPDX-License-Identifier: MIT
#include "platform/sound/BeatEstimate.h"

#include "platform/media/AudioReader.h"
#include "platform/sound/BeatTracker.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <optional>
#include <utility>

namespace zelvo::sound {

using media::AudioReader;

static_assert(AudioReader::kSampleRate == OnsetStrength::kSampleRate);

namespace {

constexpr std::size_t kPieceFrames = 20UL * OnsetStrength::kSampleRate;
constexpr std::size_t kReadFrames = 4096;

/// So much is heard before the stretch, in seconds: where it begins within the music, that is no onset.
constexpr double kRunUp = 0.25;
/// A beat may be found so much too early, in seconds.
constexpr double kEarly = 0.005;

} // namespace

/// Listens to one stretch. Only `giveUp` and `isGivenUp` may be called on another thread than the
/// queue's.
class BeatEstimate::Job {
public:
    Job(std::filesystem::path song, double from, double to)
        : file(std::move(song))
        , start(std::max(from, 0.0))
        , heardFrom(std::max(start - kRunUp, 0.0))
        , framesLeft(static_cast<std::size_t>(
              (start - heardFrom + std::clamp(to - start, 0.0, kMaxStretch)) *
              OnsetStrength::kSampleRate)) {}

    void giveUp() { isGivenUp_ = true; }

    [[nodiscard]] bool isGivenUp() const { return isGivenUp_; }

    /// Listens to the next piece. The beats, when the stretch has ended.
    [[nodiscard]] std::optional<Found> listen() {
        if (!reader && !open())
            return Found{};
        std::vector<float> both(kReadFrames * AudioReader::kChannels);
        std::vector<float> mono;
        for (std::size_t heard = 0; heard < kPieceFrames && !isGivenUp_;) {
            const std::size_t wanted = std::min(kReadFrames, framesLeft);
            const std::size_t frames =
                reader->read(std::span(both).first(wanted * AudioReader::kChannels));
            mono.clear();
            for (std::size_t i = 0; i < frames; ++i)
                mono.push_back((both[2 * i] + both[2 * i + 1]) / 2);
            strength.add(mono);
            heard += frames;
            framesLeft -= frames;
            if (frames < kReadFrames)
                return beats();
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] bool open() {
        auto opened = AudioReader::open(file);
        if (!opened)
            return false;
        reader.emplace(std::move(*opened));
        reader->seek(heardFrom);
        return true;
    }

    [[nodiscard]] Found beats() const {
        TrackedBeats tracked = trackBeats(strength);
        for (double& time : tracked.times)
            time += heardFrom;
        std::erase_if(tracked.times, [this](double time) { return time < start - kEarly; });
        for (double& time : tracked.times)
            time = std::max(time, start);
        return {std::move(tracked.times), tracked.tempo};
    }

    std::filesystem::path file;
    double start;
    double heardFrom;
    std::size_t framesLeft;
    std::atomic<bool> isGivenUp_ = false;
    std::optional<AudioReader> reader;
    OnsetStrength strength;
};

BeatEstimate::BeatEstimate(foundation::RunLoop& runLoop, std::function<void()> changed)
    : loop(runLoop)
    , tellChange(std::move(changed))
    , queue(runLoop.makeSerialQueue("beats")) {}

BeatEstimate::~BeatEstimate() {
    clear();
}

void BeatEstimate::estimate(const std::filesystem::path& song, double from, double to) {
    if (job)
        job->giveUp();
    if (song != songOfBeats)
        found = {};
    songOfBeats = song;
    job = std::make_shared<Job>(song, from, to);
    listenOn();
}

void BeatEstimate::clear() {
    if (job)
        job->giveUp();
    job = nullptr;
    found = {};
    songOfBeats.clear();
}

void BeatEstimate::listenOn() {
    const auto done =
        lifetime.guard([this](const std::shared_ptr<Job>& from, const std::optional<Found>& beats) {
            take(from, beats);
        });
    queue->async([&runLoop = loop, from = job, done] {
        if (from->isGivenUp())
            return;
        runLoop.post([from, done, beats = from->listen()] { done(from, beats); });
    });
}

void BeatEstimate::take(const std::shared_ptr<Job>& from, const std::optional<Found>& beats) {
    if (from != job)
        return; // of a stretch that was given up
    if (!beats)
        return listenOn();
    job = nullptr;
    found = *beats;
    if (tellChange)
        tellChange();
}

} // namespace zelvo::sound
