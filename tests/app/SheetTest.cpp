// SPDX-License-Identifier: MIT
#include "app/ProgramRun.h"
#include "platform/image/Image.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelvo::app {
namespace {

using Pixels = std::vector<std::uint8_t>;

// Of the sheets, in pixels.
constexpr int kGap = 12;
constexpr int kCaption = 30;

[[nodiscard]] image::ImagePtr loaded(const std::string& file) {
    auto picture = image::loadImage(file);
    EXPECT_TRUE(picture.has_value()) << picture.error().message;
    return picture ? *picture : std::make_shared<image::Image>();
}

[[nodiscard]] Pixels cutOut(const image::Image& sheet, int left, int top, int width, int height) {
    Pixels cut;
    for (int y = top; y < top + height; ++y) {
        const auto row = sheet.pixels.begin() + 4 * (y * sheet.width + left);
        cut.insert(cut.end(), row, row + 4 * width);
    }
    return cut;
}

/// A sheet's picture or the strip below it with its caption, by its place.
struct Grid {
    int columns, width, height;

    [[nodiscard]] Pixels picture(const image::Image& sheet, int place) const {
        return cutOut(sheet, left(place), top(place), width, height);
    }

    [[nodiscard]] Pixels caption(const image::Image& sheet, int place) const {
        return cutOut(sheet, left(place), top(place) + height, width, kCaption);
    }

    [[nodiscard]] int left(int place) const { return kGap + place % columns * (width + kGap); }

    [[nodiscard]] int top(int place) const {
        return kGap + place / columns * (height + kCaption + kGap);
    }
};

TEST(Strip, ShowsTheFramesOfItsMomentsInRows) {
    const Program program;
    const std::string file = program.write("fly.json", R"({"duration": 2, "scene": "Flat",
        "cues": [{"at": 0, "tab": "IN3", "press": "Implode In"}]})");
    const std::string strip = program.path("strip.png");
    const Ending made = program.run(
        {"strip",
         file,
         "--from",
         "-0.5",
         "--to",
         "1.5",
         "--count",
         "5",
         "--out",
         strip,
         "--size",
         "96x54"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(made.out, strip + "\n");
    const auto sheet = loaded(strip);
    ASSERT_EQ(sheet->width, kGap + 3 * (96 + kGap));
    ASSERT_EQ(sheet->height, kGap + 2 * (54 + kCaption + kGap));

    const Grid grid{3, 96, 54};
    const double moments[] = {-0.5, 0, 0.5, 1, 1.5};
    for (int i = 0; i < 5; ++i) {
        const std::string picture = program.path("frame.png");
        const Ending frame = program.run(
            {"frame",
             file,
             "--at",
             fmt::format("{}", moments[i]),
             "--out",
             picture,
             "--size",
             "96x54"});
        ASSERT_EQ(frame.status, 0) << frame.err;
        EXPECT_TRUE(grid.picture(*sheet, i) == loaded(picture)->pixels) << moments[i];
        for (int other = 0; other < i; ++other)
            EXPECT_FALSE(grid.caption(*sheet, other) == grid.caption(*sheet, i)) << other << i;
    }
    EXPECT_FALSE(grid.picture(*sheet, 2) == grid.picture(*sheet, 3));
}

TEST(Strip, SaysInOneLineWhatIsWrongWithItsMoments) {
    const Program program;
    const std::string file = program.write("a.json", R"({"duration": 2, "cues": []})");

    struct Row {
        Program::Arguments moments;
        std::string part;
    };

    const std::vector<Row> rows = {
        {{"--from", "0", "--to", "2.1", "--count", "2"},                      "--to must be -2 to 2"},
        {{"--from", "-9", "--to", "1", "--count", "2"},                       "--from must be"      },
        {{"--from", "1", "--to", "0.5", "--count", "2"},                      "before --from, 1"    },
        {{"--from", "0", "--to", "1", "--count", "0"},                        "1 to 100"            },
        {{"--from", "0", "--to", "nan", "--count", "2"},                      "--to"                },
        {{"--from", "0", "--to", "1", "--count", "9", "--size", "4096x4096"}, "smaller --size"      },
    };
    for (const auto& row : rows) {
        Program::Arguments arguments{"strip", file, "--out", program.path("no/strip.png")};
        arguments.insert(arguments.end(), row.moments.begin(), row.moments.end());
        const Ending ending = program.run(arguments);
        EXPECT_NE(ending.status, 0) << row.part;
        EXPECT_NE(ending.err.find(row.part), std::string::npos) << ending.err;
    }
}

} // namespace
} // namespace zelvo::app
