// SPDX-License-Identifier: MIT
#include "app/Progress.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelvo::app {

namespace {

TEST(Progress, tells_rate_and_time_left) {
    EXPECT_EQ(progressText(120, 360, 20, 0), "  120/360 frames  6.0 fps  0:40 left");
    EXPECT_EQ(progressText(0, 360, 2, 0), "  0/360 frames");
    EXPECT_EQ(progressText(1, 4, 1, 4), "█░░░  1/4 frames  1.0 fps  0:03 left");
    EXPECT_EQ(progressText(1, 100, 1, 0), "  1/100 frames  1.0 fps  1:39 left");
    EXPECT_EQ(progressText(133, 130, 13, 0), "  130/130 frames  10.0 fps  0:00 left");
}

TEST(Progress, is_not_drawn_more_often_than_a_person_can_read) {
    struct Row {
        Progress::Kind kind;
        std::size_t writes;
    };

    // 1000 frames, one every 10 ms: ten seconds.
    const Row rows[] = {
        {Progress::Kind::bar, 100},
        {Progress::Kind::lines, 2},
    };
    for (const auto& row : rows) {
        double now = 7;
        std::vector<std::string> written;
        Progress progress(
            row.kind,
            [&now] { return now; },
            [&written](const std::string& text) { written.push_back(text); });
        for (int frame = 1; frame <= 1000; ++frame) {
            now += 0.01;
            progress.update(frame, 1000);
        }
        EXPECT_NEAR(static_cast<double>(written.size()), static_cast<double>(row.writes), 10);
        EXPECT_EQ(written.back().ends_with('\n'), row.kind == Progress::Kind::lines);
        progress.finish();
        EXPECT_EQ(written.back() == "\r\x1B[K", row.kind == Progress::Kind::bar)
            << "the bar is removed";
    }
}

} // namespace

} // namespace zelvo::app
