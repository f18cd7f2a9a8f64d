// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace zelvo::sound {

/// How strongly something new begins at each moment of a sound, in mono at 48 kHz. Both lists grow as
/// samples are added.
class OnsetStrength {
public:
    static constexpr int kSampleRate = 48000;
    static constexpr int kHop = 256;  ///< samples from one strength to the next
    static constexpr int kBlock = 48; ///< samples of one value of the energy: 1 ms
    static constexpr double kHopSeconds = double(kHop) / kSampleRate;
    static constexpr double kBlockSeconds = double(kBlock) / kSampleRate;

    OnsetStrength();
    ~OnsetStrength();
    OnsetStrength(const OnsetStrength&) = delete;
    OnsetStrength& operator=(const OnsetStrength&) = delete;

    void add(std::span<const float> samples);

    /// How far the levels of the bands of hearing rise, in units of what each moves without onsets, so
    /// that noise hides few of them. Strength i belongs to the time i times kHopSeconds.
    [[nodiscard]] const std::vector<float>& strengths() const { return strengths_; }

    /// The mean square of each block.
    [[nodiscard]] const std::vector<float>& energies() const { return energies_; }

private:
    struct Analysis;
    void addEnergy(float sample);

    std::unique_ptr<Analysis> analysis;
    std::vector<float> strengths_;
    std::vector<float> energies_;
    int hopsToDrop;
    std::size_t inHop = 0;
    int inBlock = 0;
    float blockSum = 0.0F;
};

} // namespace zelvo::sound
