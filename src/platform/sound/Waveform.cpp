// SPDX-License-Identifier: MIT
#include "platform/sound/Waveform.h"

#include "platform/media/AudioReader.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <span>
#include <utility>

namespace zelvo::sound {

using foundation::Error;
using foundation::Result;
using media::AudioReader;

namespace {

/// The first piece is small, so that the picture begins to show at once; then the pieces grow, so
/// that a long song does not busy the main thread.
constexpr std::size_t kFirstPiece = 16; ///< values
constexpr std::size_t kMaxPiece = 128;

constexpr int kSamplesPerValue = Waveform::kSamplesPerValue;

float meanOf(std::span<const float> samples) {
    double sum = 0.0;
    for (const float sample : samples)
        sum += std::abs(sample);
    return static_cast<float>(sum / static_cast<double>(samples.size()));
}

} // namespace

struct Waveform::Piece {
    std::vector<float> values{};
    double valuesASecond = 0.0;
    std::optional<Error> error{};
    bool isLast = false;
};

/// The decoding of one song. Only `giveUp` and `isGivenUp` may be called on another thread than the
/// queue's.
class Waveform::Job {
public:
    explicit Job(std::filesystem::path song)
        : file(std::move(song)) {}

    void giveUp() { isGivenUp_ = true; }

    [[nodiscard]] bool isGivenUp() const { return isGivenUp_; }

    Piece decodePiece() {
        if (!reader) {
            auto opened = AudioReader::openFirstChannel(file);
            if (!opened)
                return {.error = opened.error(), .isLast = true};
            reader.emplace(std::move(*opened));
        }
        Piece piece{.valuesASecond = double(reader->sampleRate()) / kSamplesPerValue};
        while (piece.values.size() < pieceSize && !isGivenUp_) {
            if (reader->read(samples) < samples.size() || made == kMaxValues) {
                piece.isLast = true;
                break;
            }
            piece.values.push_back(meanOf(samples));
            ++made;
        }
        pieceSize = std::min(2 * pieceSize, kMaxPiece);
        return piece;
    }

private:
    std::filesystem::path file;
    std::atomic<bool> isGivenUp_ = false;
    std::optional<AudioReader> reader;
    std::array<float, kSamplesPerValue> samples{};
    std::size_t pieceSize = kFirstPiece;
    std::size_t made = 0;
};

Waveform::Waveform(foundation::RunLoop& runLoop, std::function<void()> changed)
    : loop(runLoop)
    , tellChange(std::move(changed))
    , queue(runLoop.makeSerialQueue("waveform")) {}

Waveform::~Waveform() {
    clear();
}

void Waveform::load(const std::filesystem::path& song) {
    clear();
    job = std::make_shared<Job>(song);
    decodeNext();
}

void Waveform::clear() {
    if (job)
        job->giveUp();
    job = nullptr;
    values_.clear();
    valuesASecond_ = 0.0;
    error_.reset();
}

// One piece at a time: a busy main thread is not flooded, and another song has to wait for one piece
// at most.
void Waveform::decodeNext() {
    const auto done = lifetime.guard(
        [this](const std::shared_ptr<Job>& from, const Piece& piece) { take(from, piece); });
    queue->async([&runLoop = loop, from = job, done] {
        if (from->isGivenUp())
            return;
        runLoop.post([from, done, piece = from->decodePiece()] { done(from, piece); });
    });
}

void Waveform::take(const std::shared_ptr<Job>& from, const Piece& piece) {
    if (from != job)
        return; // of a song that was given up
    values_.insert(values_.end(), piece.values.begin(), piece.values.end());
    valuesASecond_ = piece.valuesASecond;
    error_ = piece.error;
    if (piece.isLast)
        job = nullptr;
    else
        decodeNext();
    if (tellChange)
        tellChange();
}

} // namespace zelvo::sound
