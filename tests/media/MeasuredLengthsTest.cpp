// SPDX-License-Identifier: MIT
#include "platform/media/MeasuredLengths.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace zelvo::media {

TEST(MeasuredLengths, AFileIsMeasuredAgainOnlyWhenItHasChanged) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "song.wav";
    std::ofstream(file) << "sound";
    int measured = 0;
    const auto lengthOf = [&measured](const std::filesystem::path& song) {
        return measuredLength(song, [&measured] { return ++measured; });
    };
    EXPECT_EQ(lengthOf(file), 1);
    const auto moved = folder.path() / "moved.wav";
    std::filesystem::rename(file, moved);
    EXPECT_EQ(lengthOf(moved), 1);
    std::ofstream(moved, std::ios::app) << " and more";
    EXPECT_EQ(lengthOf(moved), 2);
    std::ofstream(file) << "sound";
    EXPECT_EQ(lengthOf(file), 3) << "another file of the same name";
    EXPECT_EQ(lengthOf(folder.path() / "none.wav"), 4);
    EXPECT_EQ(lengthOf(folder.path() / "none.wav"), 5);
}

} // namespace zelvo::media
