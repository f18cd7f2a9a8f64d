// SPDX-License-Identifier: MIT
#pragma once

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace zelvo::media {

/// Each test has a folder of its own, which is deleted at its end.
class MediaTest : public ::testing::Test {
protected:
    [[nodiscard]] std::filesystem::path file(const std::string& name) const {
        return folder / name;
    }

    [[nodiscard]] std::vector<std::string> filesLeft() const;

    const test::TemporaryFolder temporary;
    const std::filesystem::path& folder = temporary.path();
};

using Bytes = std::vector<std::uint8_t>;

[[nodiscard]] Bytes readBytes(const std::filesystem::path& file);
void writeBytes(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);

/// Mono samples over time in seconds.
using Wave = std::function<double(double)>;

[[nodiscard]] Wave sine(double frequency, double amplitude);

/// A 16-bit mono WAV file.
void writeWav(const std::filesystem::path& file, int sampleRate, double seconds, const Wave& wave);

/// A mono file of the format that its name says, by the FFmpeg encoder of that name. False if this
/// machine lacks one of the two.
[[nodiscard]] bool encodeSound(
    const std::filesystem::path& file,
    const char* encoder,
    double seconds,
    const Wave& wave,
    int sampleRate = 44100);

/// A movie that FFmpeg has decoded to the end.
struct DecodedMovie {
    std::string videoTag;
    std::string audioCodec;
    bool isBt709Limited = false;
    std::vector<double> frameTimes;                   ///< seconds
    std::vector<std::array<std::uint8_t, 3>> centres; ///< Y, Cb, Cr of each frame at the probe
    std::vector<double> left;                         ///< sound, left channel, at 48 kHz
    double soundStart = 0.0;                          ///< seconds

    /// Root mean square of the sound between two movie times.
    [[nodiscard]] double loudness(double from, double to) const;
};

/// The colour of each frame is taken at `probeX`, `probeY`.
[[nodiscard]] DecodedMovie decodeMovie(const std::filesystem::path& file, int probeX, int probeY);

/// The four-letter names of a QuickTime file's top-level atoms, in order.
[[nodiscard]] std::vector<std::string> topAtoms(const std::filesystem::path& file);

} // namespace zelvo::media
