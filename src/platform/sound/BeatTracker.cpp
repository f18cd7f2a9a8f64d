// SPDX-License-Identifier: MIT
#include "platform/sound/BeatTracker.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <optional>
#include <span>

namespace zelvo::sound {

namespace {

using Strengths = std::vector<float>;

constexpr double kHop = OnsetStrength::kHopSeconds;

// The range of tempos, in beats a minute. Of tempos that fit equally well, the one nearest to
// kUsualTempo is chosen, but twice as fast if the beats between are as strong.
constexpr double kMinTempo = 50.0;
constexpr double kMaxTempo = 200.0;
constexpr double kUsualTempo = 120.0;
constexpr double kOctavesOfDoubt = 1.0; ///< standard deviation around the usual tempo
constexpr double kEquallyStrong = 0.85;

/// Onsets that repeat at no distance at least this well have no tempo. 1 is exact repetition. Noise
/// repeats by chance, the better the shorter it lasts; the standard deviation is one by the root of the
/// number of independent strengths. As strengths are smoothed, these are some hops apart.
constexpr double kMinRepetition = 0.1;
constexpr double kDeviationsOfChance = 4.0;
constexpr double kIndependentHops = 5.0;
/// A sound without a strength above this has no onsets: noise of rounding, a steady tone.
constexpr float kMinStrength = 1.0F;
constexpr float kMaxOnset = 6.0F; ///< standard deviations
constexpr std::size_t kMinBeats = 4;

/// How strictly the tempo is held, against how strong onsets are.
constexpr double kTightness = 400.0;

int hopsOf(double tempo) {
    return static_cast<int>(std::lround(60.0 / tempo / kHop));
}

/// Weighted means with a bell of this standard deviation, in hops.
Strengths smoothed(const Strengths& values, double deviation) {
    const auto reach = static_cast<std::ptrdiff_t>(std::ceil(3.0 * deviation));
    std::vector<double> weights;
    for (auto i = -reach; i <= reach; ++i)
        weights.push_back(std::exp(-0.5 * std::pow(double(i) / deviation, 2)));
    const double all = std::accumulate(weights.begin(), weights.end(), 0.0);
    const auto count = std::ssize(values);
    Strengths result;
    result.reserve(values.size());
    for (std::ptrdiff_t at = 0; at < count; ++at) {
        const auto first = std::max<std::ptrdiff_t>(at - reach, 0);
        const auto end = std::min(at + reach + 1, count);
        const double sum = std::inner_product(
            values.begin() + first,
            values.begin() + end,
            weights.begin() + (first - at + reach),
            0.0);
        result.push_back(static_cast<float>(sum / all));
    }
    return result;
}

/// What stands out of the mean around it, in units of its standard deviation. Empty without onsets.
/// A single loud onset, as where the sound begins, must not pull beats out of their tempo.
Strengths onsetsOf(const Strengths& strengths) {
    if (strengths.empty() || *std::ranges::max_element(strengths) < kMinStrength)
        return {};
    constexpr double kAround = 0.25; // seconds
    const Strengths mean = smoothed(strengths, kAround / kHop);
    Strengths onsets = smoothed(strengths, 1.5);
    double squares = 0.0;
    for (std::size_t i = 0; i < onsets.size(); ++i) {
        onsets[i] = std::max(onsets[i] - mean[i], 0.0F);
        squares += onsets[i] * onsets[i];
    }
    const double deviation = std::sqrt(squares / static_cast<double>(onsets.size()));
    for (float& onset : onsets)
        onset = std::min(static_cast<float>(onset / deviation), kMaxOnset);
    return onsets;
}

/// How well the onsets repeat at a distance of 0, 1, 2 … hops; 1 for an exact repetition.
std::vector<double> repetitionsOf(const Strengths& onsets, int maxLag) {
    const double mean =
        std::accumulate(onsets.begin(), onsets.end(), 0.0) / static_cast<double>(onsets.size());
    const auto count = static_cast<int>(onsets.size());
    std::vector<double> result;
    for (int lag = 0; lag <= std::min(maxLag, count / 2); ++lag) {
        double sum = 0.0;
        for (int i = lag; i < count; ++i)
            sum += (onsets[static_cast<std::size_t>(i)] - mean) *
                   (onsets[static_cast<std::size_t>(i - lag)] - mean);
        result.push_back(sum / (count - lag));
    }
    const double whole = result.front();
    for (double& value : result)
        value /= whole;
    return result;
}

/// The largest value within one hop of that distance, because a beat seldom is a whole number of hops.
double repetitionNear(const std::vector<double>& repetitions, int lag) {
    const auto first = repetitions.begin() + std::max(lag - 1, 0);
    return *std::max_element(first, std::min(first + 3, repetitions.end()));
}

/// Less is chance in a sound of so many hops.
double leastRepetition(std::size_t hops) {
    const double independent = static_cast<double>(hops) / kIndependentHops;
    return std::max(kMinRepetition, kDeviationsOfChance / std::sqrt(independent));
}

/// Hops from beat to beat.
std::optional<int> periodOf(const Strengths& onsets) {
    const int longest = hopsOf(kMinTempo);
    const auto repetitions = repetitionsOf(onsets, longest);
    int best = 0;
    double bestScore = 0.0;
    for (int lag = hopsOf(kMaxTempo); lag < static_cast<int>(repetitions.size()); ++lag) {
        const double octaves = std::log2(60.0 / (lag * kHop) / kUsualTempo) / kOctavesOfDoubt;
        const double score =
            repetitions[static_cast<std::size_t>(lag)] * std::exp(-0.5 * octaves * octaves);
        if (score > bestScore) {
            best = lag;
            bestScore = score;
        }
    }
    if (best == 0 || repetitions[static_cast<std::size_t>(best)] < leastRepetition(onsets.size()))
        return std::nullopt;
    const int half = (best + 1) / 2;
    const bool isTwiceAsFast = half >= hopsOf(kMaxTempo) &&
                               repetitionNear(repetitions, half) >
                                   kEquallyStrong * repetitions[static_cast<std::size_t>(best)];
    return isTwiceAsFast ? half : best;
}

/// The best series of beats that ends at each hop.
struct Series {
    std::vector<double> scores;
    std::vector<int> previous; ///< the beat before; -1 for none
};

struct Link {
    double score = 0.0;
    int from = -1; ///< a hop; -1 for none
};

/// The best series that a beat at this hop can go on with. `costs` are by the distance of two beats.
Link bestLink(const Series& series, const std::vector<double>& costs, int at) {
    Link best;
    for (int distance = 1; distance <= std::min(static_cast<int>(costs.size()) - 1, at);
         ++distance) {
        const double score = series.scores[static_cast<std::size_t>(at - distance)] -
                             costs[static_cast<std::size_t>(distance)];
        if (score > best.score)
            best = {score, at - distance};
    }
    return best;
}

Series bestSeries(const Strengths& onsets, int period) {
    std::vector<double> costs{0.0};
    for (int distance = 1; distance <= 2 * period; ++distance)
        costs.push_back(kTightness * std::pow(std::log(double(distance) / period), 2));
    Series series;
    for (int at = 0; at < static_cast<int>(onsets.size()); ++at) {
        const Link link = bestLink(series, costs, at);
        series.scores.push_back(onsets[static_cast<std::size_t>(at)] + link.score);
        series.previous.push_back(link.from);
    }
    return series;
}

/// The hops of the beats, without those before the first and after the last onset.
std::vector<int> beatsOf(const Strengths& onsets, int period) {
    const Series series = bestSeries(onsets, period);
    const auto last = std::ranges::max_element(series.scores);
    std::vector<int> beats;
    for (auto at = static_cast<int>(last - series.scores.begin()); at >= 0;
         at = series.previous[static_cast<std::size_t>(at)])
        beats.push_back(at);
    std::ranges::reverse(beats);
    constexpr float kWeak = 0.5F;
    const auto isStrong = [&](int at) { return onsets[static_cast<std::size_t>(at)] > kWeak; };
    const auto first = std::ranges::find_if(beats, isStrong);
    const auto end = std::find_if(beats.rbegin(), std::make_reverse_iterator(first), isStrong);
    return {first, end.base()};
}

double meanOf(std::span<const float> energies) {
    return std::accumulate(energies.begin(), energies.end(), 0.0) /
           static_cast<double>(energies.size());
}

/// The moment near `time` where the energy grows most; `time` itself where it does not grow clearly.
double attackNear(double time, double reach, std::span<const float> energies) {
    constexpr std::size_t kSide = 5;     // blocks that are compared before and after
    constexpr double kClearGrowth = 2.0; // 3 dB
    constexpr double kSilence = 1e-9;    // far below hearing
    const auto blockOf = [&](double seconds) {
        const auto block = std::lround(std::max(seconds, 0.0) / OnsetStrength::kBlockSeconds);
        return std::min(static_cast<std::size_t>(block), energies.size());
    };
    double most = kSilence;
    double attack = time;
    for (auto at = blockOf(time - reach); at < blockOf(time + reach); ++at) {
        const auto sideBefore = std::min(kSide, at);
        const double before = at == 0 ? 0.0 : meanOf(energies.subspan(at - sideBefore, sideBefore));
        const double after = meanOf(energies.subspan(at, std::min(kSide, energies.size() - at)));
        if (after > kClearGrowth * before && after - before > most) {
            most = after - before;
            attack = static_cast<double>(at) * OnsetStrength::kBlockSeconds;
        }
    }
    return attack;
}

} // namespace

TrackedBeats trackBeats(const OnsetStrength& sound) {
    const Strengths onsets = onsetsOf(sound.strengths());
    if (onsets.empty())
        return {};
    const auto period = periodOf(onsets);
    if (!period)
        return {};
    const auto hops = beatsOf(onsets, *period);
    if (hops.size() < kMinBeats)
        return {};
    constexpr double kMaxReach = 0.03; // seconds; a beat may be moved so far
    TrackedBeats beats;
    for (const int hop : hops)
        beats.times.push_back(attackNear(hop * kHop, kMaxReach, sound.energies()));
    const double span = beats.times.back() - beats.times.front();
    beats.tempo = 60.0 * static_cast<double>(beats.times.size() - 1) / span;
    return beats;
}

} // namespace zelvo::sound
