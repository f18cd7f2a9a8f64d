// SPDX-License-Identifier: MIT
#include "platform/sound/OnsetStrength.h"

#include <aubio/aubio.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <span>

namespace zelvo::sound {

namespace {

constexpr int kWindow = 1024;
/// A strength belongs to the middle of its window; so many strengths lie before the first sample.
constexpr int kHopsToMiddle = kWindow / 2 / OnsetStrength::kHop - 1;
constexpr int kBands = 32;
constexpr smpl_t kLowest = 30.0F; // Hz
constexpr smpl_t kHighest = 16000.0F;
constexpr float kCompression = 10.0F;

/// The level of a band is compared with its mean over these hops before it. The windows of nearer hops
/// hold the same samples.
constexpr int kNearest = 2;
constexpr int kFarthest = 6;

/// How much the level of a band moves without onsets is learned over about this time.
constexpr float kLearning = static_cast<float>(OnsetStrength::kHopSeconds / 2.0);
constexpr float kUsualMove = 0.3F; ///< until it is learned; levels are natural logarithms
constexpr float kMinMove = 0.15F;
constexpr float kClearMove = 2.0F; ///< so many times the usual movement is more than chance

template <class T, void (*destroy)(T*)> struct Destroy {
    void operator()(T* object) const { destroy(object); }
};

template <class T, void (*destroy)(T*)> using Owned = std::unique_ptr<T, Destroy<T, destroy>>;

/// What is remembered of a band of the spectrum.
class Band {
public:
    /// How far the level rises above the levels before it, in units of its usual movement. The level of
    /// noise moves by chance, and most in narrow bands; such movements count for nothing.
    [[nodiscard]] float rise(float level) {
        const auto before = std::span(levels).subspan<kNearest - 1>();
        const float sum = std::accumulate(before.begin(), before.end(), 0.0F);
        const float move = level - sum / static_cast<float>(before.size());
        std::shift_right(levels.begin(), levels.end(), 1);
        levels.front() = level;
        const float times = move / std::max(usualMove, kMinMove);
        usualMove += kLearning * (std::abs(move) - usualMove);
        return std::max(times - kClearMove, 0.0F);
    }

private:
    std::array<float, kFarthest> levels{}; ///< of the hops before, the nearest first
    float usualMove = kUsualMove;
};

} // namespace

struct OnsetStrength::Analysis {
    Owned<aubio_pvoc_t, del_aubio_pvoc> transform{new_aubio_pvoc(kWindow, kHop)};
    Owned<aubio_filterbank_t, del_aubio_filterbank> bank{new_aubio_filterbank(kBands, kWindow)};
    Owned<fvec_t, del_fvec> hop{new_fvec(kHop)};
    Owned<cvec_t, del_cvec> spectrum{new_cvec(kWindow)};
    Owned<fvec_t, del_fvec> bands{new_fvec(kBands)};
    std::array<Band, kBands> memory{};

    Analysis() {
        aubio_filterbank_set_mel_coeffs(bank.get(), OnsetStrength::kSampleRate, kLowest, kHighest);
    }

    /// Of the hop that has been filled.
    [[nodiscard]] float strength() {
        aubio_pvoc_do(transform.get(), hop.get(), spectrum.get());
        aubio_filterbank_do(bank.get(), spectrum.get(), bands.get());
        float sum = 0.0F;
        for (std::size_t i = 0; i < memory.size(); ++i) {
            const float magnitude = fvec_get_sample(bands.get(), static_cast<uint_t>(i));
            sum += memory[i].rise(std::log1p(kCompression * magnitude));
        }
        return sum;
    }
};

OnsetStrength::OnsetStrength()
    : analysis(std::make_unique<Analysis>())
    , hopsToDrop(kHopsToMiddle) {}

OnsetStrength::~OnsetStrength() = default;

void OnsetStrength::add(std::span<const float> samples) {
    for (const float sample : samples) {
        addEnergy(sample);
        fvec_set_sample(analysis->hop.get(), sample, static_cast<uint_t>(inHop));
        if (++inHop < kHop)
            continue;
        inHop = 0;
        const float strength = analysis->strength();
        if (hopsToDrop > 0)
            --hopsToDrop;
        else
            strengths_.push_back(strength);
    }
}

void OnsetStrength::addEnergy(float sample) {
    blockSum += sample * sample;
    if (++inBlock < kBlock)
        return;
    energies_.push_back(blockSum / kBlock);
    blockSum = 0.0F;
    inBlock = 0;
}

} // namespace zelvo::sound
