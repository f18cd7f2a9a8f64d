// SPDX-License-Identifier: MIT
#include "platform/media/HDRConversion.h"

#include "platform/foundation/Check.h"

#include <algorithm>
#include <cmath>

namespace zelvo::media {
namespace {

constexpr double kPeak = 1000.0; // cd/m², of the source
constexpr double kWhite = 203.0; // cd/m², becomes full white
constexpr std::size_t kCodes = 4096;
constexpr std::size_t kLevels = 65536;
constexpr std::size_t kChannels = 4;

// The constants of PQ, BT.2100-2, table 4.
constexpr double kM1 = 2610.0 / 16384;
constexpr double kM2 = 2523.0 / 4096 * 128;
constexpr double kC1 = 3424.0 / 4096;
constexpr double kC2 = 2413.0 / 4096 * 32;
constexpr double kC3 = 2392.0 / 4096 * 32;
constexpr double kMaxOfPQ = 10000.0; // cd/m²

/// cd/m² of a PQ signal from 0 to 1.
double lightOfPQ(double signal) {
    const double power = std::pow(signal, 1 / kM2);
    return kMaxOfPQ * std::pow(std::max(power - kC1, 0.0) / (kC2 - kC3 * power), 1 / kM1);
}

double pqOfLight(double light) {
    const double power = std::pow(light / kMaxOfPQ, kM1);
    return std::pow((kC1 + kC2 * power) / (1 + kC3 * power), kM2);
}

/// Scene light, 0 to 1, of an HLG signal (BT.2100-2, table 5).
double sceneLightOfHLG(double signal) {
    constexpr double kA = 0.17883277;
    constexpr double kB = 1 - 4 * kA;
    const double c = 0.5 - kA * std::log(4 * kA);
    return signal <= 0.5 ? signal * signal / 3 : (std::exp((signal - c) / kA) + kB) / 12;
}

/// What the curve of BT.2390 makes of light; both in cd/m².
double compressed(double light) {
    const double sourcePeak = pqOfLight(kPeak);
    const double most = pqOfLight(kWhite) / sourcePeak;
    const double knee = 1.5 * most - 0.5;
    const double in = std::min(pqOfLight(light) / sourcePeak, 1.0);
    if (in < knee)
        return light;
    const double t = (in - knee) / (1 - knee);
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double out =
        (2 * t3 - 3 * t2 + 1) * knee + (t3 - 2 * t2 + t) * (1 - knee) + (-2 * t3 + 3 * t2) * most;
    return lightOfPQ(out * sourcePeak);
}

/// The transfer function of IEC 61966-2-1.
double signalOfSRGB(double light) {
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

std::size_t step(float share, std::size_t count) {
    return static_cast<std::size_t>(std::clamp(share, 0.0F, 1.0F) * static_cast<float>(count - 1));
}

} // namespace

HDRConversion::HDRConversion(Transfer given)
    : transfer(given)
    , decoded(kCodes)
    , systemGains(kCodes)
    , curveGains(kCodes)
    , encoded(kLevels) {
    for (std::size_t i = 0; i < kCodes; ++i) {
        const double share = static_cast<double>(i) / (kCodes - 1);
        decoded[i] = static_cast<float>(
            transfer == Transfer::pq ? lightOfPQ(share) / kPeak : sceneLightOfHLG(share));
        systemGains[i] = static_cast<float>(std::pow(share * share, 0.2));
        const double light = std::max(share * share * kPeak, 1e-4);
        curveGains[i] = static_cast<float>(compressed(light) / light * kPeak / kWhite);
    }
    for (std::size_t i = 0; i < kLevels; ++i) {
        const double signal = signalOfSRGB(static_cast<double>(i) / (kLevels - 1));
        encoded[i] = static_cast<std::uint8_t>(std::lround(signal * 255));
    }
}

/// Light of the display for full white, in the primaries of BT.2020.
HDRConversion::Light HDRConversion::shown(Light light) const {
    if (transfer == Transfer::hlg) {
        // The system gamma of 1.2, for a display of 1000 cd/m².
        const float luma = 0.2627F * light[0] + 0.6780F * light[1] + 0.0593F * light[2];
        const float gain = systemGains[step(std::sqrt(luma), kCodes)];
        for (float& channel : light)
            channel *= gain;
    }
    const float brightest = std::max({light[0], light[1], light[2]});
    const float clipped = brightest > 1 ? 1 / brightest : 1;
    const float gain = clipped * curveGains[step(std::sqrt(brightest), kCodes)];
    for (float& channel : light)
        channel *= gain;
    return light;
}

void HDRConversion::convert(std::span<const std::uint16_t> from, std::span<std::uint8_t> to) const {
    CHECK(from.size() == to.size(), "{} and {} channels", from.size(), to.size());
    constexpr unsigned kSmaller = 4; // bits
    for (std::size_t i = 0; i + kChannels <= from.size(); i += kChannels) {
        const Light light = shown(
            {decoded[from[i] >> kSmaller],
             decoded[from[i + 1] >> kSmaller],
             decoded[from[i + 2] >> kSmaller]});
        const auto [r, g, b] = light;
        // BT.2087-0, 2: from BT.2020 to BT.709, whose primaries sRGB has.
        to[i] = encoded[step(1.6605F * r - 0.5876F * g - 0.0728F * b, kLevels)];
        to[i + 1] = encoded[step(-0.1246F * r + 1.1329F * g - 0.0083F * b, kLevels)];
        to[i + 2] = encoded[step(-0.0182F * r - 0.1006F * g + 1.1187F * b, kLevels)];
        to[i + 3] = static_cast<std::uint8_t>(from[i + 3] >> 8U);
    }
}

} // namespace zelvo::media
