// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelvo::app {

namespace {

using Arguments = std::vector<std::string>;

/// The command that the arguments stand for.
template <class Kind> [[nodiscard]] Kind parsed(const Arguments& arguments) {
    const auto command = parseCommandLine(arguments);
    if (command && std::holds_alternative<Kind>(*command))
        return std::get<Kind>(*command);
    ADD_FAILURE() << (command ? "another command" : command.error().message);
    return {};
}

TEST(CommandLine, takes_every_option_to_its_place) {
    // clang-format off
    const auto perform = parsed<PerformCommand>(
        {"perform", "a b.json", "--movie", "out.mov", "--frames", "dir", "--size", "192x108",
         "--seed", "18446744073709551615", "--codec", "hevc", "--timing", "--motion-blur", "8",
         "--quality", "finest"});
    // clang-format on
    EXPECT_EQ(perform.source.file, "a b.json");
    EXPECT_EQ(perform.movie, "out.mov");
    EXPECT_EQ(perform.format, media::Container::quickTime);
    EXPECT_EQ(perform.frames, "dir");
    EXPECT_EQ(perform.size, (PictureSize{192, 108}));
    EXPECT_EQ(perform.seed, 18446744073709551615U);
    EXPECT_EQ(perform.codec, media::VideoCodec::hevc);
    EXPECT_TRUE(perform.showsTiming);
    EXPECT_EQ(perform.quality.moments, 8);
    EXPECT_GT(perform.quality.passes, 8);

    const auto changed = parsed<PerformCommand>(
        {"perform", "--set", "a=b", "--template", "night", "--set", "TX1.text=--c d=e"});
    EXPECT_EQ(changed.source.templateName, "night");
    ASSERT_EQ(changed.source.settings.size(), 2U);
    EXPECT_EQ(changed.source.settings[1].origin, "--set TX1.text");
    EXPECT_EQ(changed.source.settings[1].value, "--c d=e");
    EXPECT_EQ(
        parsed<StripCommand>({"strip",
                              "--from",
                              "0",
                              "--set",
                              "a=b",
                              "f.json",
                              "--to",
                              "2",
                              "--count",
                              "7",
                              "--out",
                              "s.png"})
            .source.file,
        "f.json");

    const auto batch = parsed<BatchCommand>(
        {"batch",
         "t.csv",
         "--template",
         "night",
         "--movies",
         "m",
         "--set",
         "a=b",
         "--size",
         "720p"});
    EXPECT_EQ(batch.table, "t.csv");
    EXPECT_EQ(batch.movies, "m");
    EXPECT_EQ(batch.source.settings.size(), 1U);
    EXPECT_EQ(batch.size, (PictureSize{1280, 720}));

    const auto frame =
        parsed<FrameCommand>({"frame", "--out", "p.png", "--at", "-1.5", "f.json", "--seed=3"});
    EXPECT_EQ(frame.at, -1.5);
    EXPECT_EQ(frame.out, "p.png");
    EXPECT_EQ(frame.size, (PictureSize{1920, 1080}));
    EXPECT_EQ(frame.seed, 3U);
    EXPECT_EQ(
        parsed<PerformCommand>({"perform", "a.json", "--size", "upright"}).size,
        (PictureSize{1080, 1920}));

    const auto webm = parsed<PerformCommand>({"perform", "a.json", "--movie", "a.b/c.WebM"});
    EXPECT_EQ(webm.format, media::Container::webm) << "as its name ends";
    EXPECT_EQ(
        parsed<PerformCommand>({"perform", "a.json", "--format", "mp4", "--movie", "title"}).movie,
        "title.mp4");
    EXPECT_TRUE(parsed<PerformCommand>({"perform", "a.json", "--alpha", "--frames", "d"}).hasAlpha);

    const auto strip = parsed<StripCommand>(
        {"strip", "f.json", "--from", "-1", "--to", "2.5", "--count", "7", "--out", "s.png"});
    EXPECT_EQ(strip.from, -1);
    EXPECT_EQ(strip.to, 2.5);
    EXPECT_EQ(strip.count, 7);
    EXPECT_EQ(strip.size, (PictureSize{384, 216}));

    EXPECT_EQ(parsed<ListCommand>({"list", "speeds"}).what, Listing::speeds);
    EXPECT_EQ(parsed<InspectCommand>({"inspect", "a.obj", "b c.usdz"}).files.at(1), "b c.usdz");
    EXPECT_NE(parsed<TextCommand>({"--help"}).text.find("Exit status:"), std::string::npos);
    EXPECT_NE(parsed<TextCommand>({"perform", "--help"}).text.find("--timing"), std::string::npos);
    EXPECT_TRUE(parsed<TextCommand>({"--version"}).text.starts_with("zelvo 0."));
}

TEST(CommandLine, opens_the_window_where_no_command_is_given) {
    const std::string file = ZELVO_TEST_SOURCE_DIR "/CMakeLists.txt";
    for (const Arguments& files : {Arguments{}, Arguments{file}, Arguments{file, file}}) {
        EXPECT_EQ(parsed<WindowCommand>(files).files.size(), files.size());
        EXPECT_FALSE(parsed<WindowCommand>(files).showsTouches);
    }
    EXPECT_TRUE(parsed<WindowCommand>({file, "--show-touches"}).showsTouches);
}

TEST(CommandLine, refuses_in_one_line_what_it_does_not_know) {
    struct Row {
        Arguments arguments;
        const char* part;
    };

    // clang-format off
    const Row rows[] = {
        {{"perform"},                                    "FILE"     },
        {{"perform", "a.json", "--sise", "2x2"},         "--sise"   },
        {{"perform", "a.json", "--movie"},               "--movie"  },
        {{"perform", "a.json", "--size", "1920"},        "1920x1080"},
        {{"perform", "a.json", "--size", "101x100"},     "even"     },
        {{"perform", "a.json", "--size", "64x64x64"},    "even"     },
        {{"perform", "a.json", "--size", "99999999x2"},  "4096"     },
        {{"perform", "a.json", "--seed", "-1"},          "seed"     },
        {{"perform", "a.json", "--motion-blur", "0"},    "--motion" },
        {{"perform", "a.json", "--quality", "best"},     "draft"    },
        {{"perform", "a.json", "--alpha", "--format", "mp4"}, "MP4"  },
        {{"perform", "a.json", "--alpha", "--movie", "a.MP4"}, "MP4" },
        {{"perform", "a.json", "--movie", "a.avi"},      ".webm"    },
        {{"perform", "a.json", "--movie", "a.mov", "--format", "webm"}, ".webm"},
        {{"perform", "a.json", "--alpha", "--codec", "hevc"}, "codec"},
        {{"perform", "a.json", "--format", "avi"},       "webm"     },
        {{"perform", "a.json", "--codec", "vp9"},        "vp9"      },
        {{"frame", "a.json", "--at", "x", "--out", "p"}, "--at"     },
        {{"frame", "a.json", "--out", "p.png"},          "--at"     },
        {{"perform", "a.json", "--template", "b"},       "excludes" },
        {{"perform", "a.json", "--set", "text"},         "KEY=VALUE"},
        {{"batch", "t.csv", "--template", "b"},          "--movies" },
        {{"inspect"},                                    "FILE"     },
        {{"list", "animals"},                            "animals"  },
        {{"dance"},                                      "dance"    },
        {{"missing.json"},                               "missing"  },
        {{"perform", "a.json", "list", "tabs"},          ""         },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto parsed = parseCommandLine(row.arguments);
        ASSERT_FALSE(parsed) << row.part;
        EXPECT_NE(parsed.error().message.find(row.part), std::string::npos)
            << parsed.error().message;
        EXPECT_EQ(parsed.error().message.find('\n'), std::string::npos);
    }
}

} // namespace

} // namespace zelvo::app
