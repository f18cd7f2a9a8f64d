// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zelvo::media {

/// Shows pictures in HDR on a display for sRGB. White of 203 cd/m² (Rec. ITU-R BT.2408-7, 2.2) becomes
/// full white; brighter lights are compressed by the curve of Rec. ITU-R BT.2390-10, 5.4.1, for a
/// source with a peak of 1000 cd/m². The curve follows the brightest channel, which keeps the hue.
/// Colours go from BT.2020 to the primaries of sRGB; those outside are cut off.
class HDRConversion {
public:
    /// Of Rec. ITU-R BT.2100-2, tables 4 and 5.
    enum class Transfer { pq, hlg };

    explicit HDRConversion(Transfer given);

    /// Turns pixels of four channels with 16 bits into pixels of 8 bits. Alpha stays.
    void convert(std::span<const std::uint16_t> from, std::span<std::uint8_t> to) const;

private:
    using Light = std::array<float, 3>;

    [[nodiscard]] Light shown(Light light) const;

    Transfer transfer;
    /// Light for each code of 12 bits; 1 is the source's peak.
    std::vector<float> decoded;
    /// The system gamma of HLG and the curve, by the square root of the light in 4096 steps.
    std::vector<float> systemGains;
    std::vector<float> curveGains;
    /// sRGB for each light of 16 bits; 1 is full white.
    std::vector<std::uint8_t> encoded;
};

} // namespace zelvo::media
