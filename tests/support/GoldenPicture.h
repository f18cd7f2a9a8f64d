// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/reading/ImageReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace zelvo::test {

inline constexpr double kGoldenShare = 0.004; ///< share of channels that may differ by more

/// The share of channels (0 to 1) that differ by more than drivers round differently.
inline double differingShare(const image::Image& one, const image::Image& other) {
    constexpr int kMaxDifference = 8; // differences up to this are ignored
    std::size_t different = 0;
    for (std::size_t i = 0; i < one.pixels.size(); ++i)
        different += std::abs(one.pixels[i] - other.pixels[i]) > kMaxDifference ? 1U : 0U;
    return static_cast<double>(different) / static_cast<double>(one.pixels.size());
}

/// Compares a picture with tests/<name>.png. Channels may differ a little, and a small share of
/// them more, because drivers round differently. With ZELVO_UPDATE_GOLDEN=1 in the environment the
/// stored picture is replaced; look at it before you commit it.
inline void expectLikeGolden(const image::Image& picture, const std::string& name) {
    const auto file = std::filesystem::path(ZELVO_TEST_SOURCE_DIR) / (name + ".png");
    if (std::getenv("ZELVO_UPDATE_GOLDEN") != nullptr) {
        std::filesystem::create_directories(file.parent_path());
        ASSERT_TRUE(image::savePNG(picture, file).has_value());
    }
    const auto wanted = image::loadImage(file);
    ASSERT_TRUE(wanted.has_value()) << wanted.error().message;
    ASSERT_EQ((*wanted)->pixels.size(), picture.pixels.size());
    const double share = differingShare(picture, **wanted);
    if (share <= kGoldenShare)
        return;
    const auto seen =
        std::filesystem::temp_directory_path() / ("zelvo-" + file.filename().string());
    ADD_FAILURE() << name << " differs in " << share * 100 << " % of its channels, see " << seen;
    EXPECT_TRUE(image::savePNG(picture, seen).has_value());
}

} // namespace zelvo::test
