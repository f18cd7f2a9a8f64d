// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelvo::app {

namespace {

using Arguments = std::vector<std::string>;

TEST(CommandLine, takes_every_option_to_its_place) {
    const auto perform = parseCommandLine(
        {"perform",
         "a b.json",
         "--movie",
         "out.mov",
         "--frames",
         "dir",
         "--size",
         "192x108",
         "--seed",
         "18446744073709551615",
         "--codec",
         "hevc",
         "--timing"});
    ASSERT_TRUE(perform) << perform.error().message;
    const auto& command = std::get<PerformCommand>(*perform);
    EXPECT_EQ(command.file, "a b.json");
    EXPECT_EQ(command.movie, "out.mov");
    EXPECT_EQ(command.frames, "dir");
    EXPECT_EQ(command.size, (PictureSize{192, 108}));
    EXPECT_EQ(command.seed, 18446744073709551615U);
    EXPECT_EQ(command.codec, media::VideoCodec::hevc);
    EXPECT_TRUE(command.showsTiming);

    const auto frame =
        parseCommandLine({"frame", "--out", "p.png", "--at", "-1.5", "f.json", "--seed=3"});
    ASSERT_TRUE(frame) << frame.error().message;
    EXPECT_EQ(std::get<FrameCommand>(*frame).at, -1.5);
    EXPECT_EQ(std::get<FrameCommand>(*frame).out, "p.png");
    EXPECT_EQ(std::get<FrameCommand>(*frame).size, (PictureSize{1920, 1080}));

    const auto strip = parseCommandLine(
        {"strip", "f.json", "--from", "-1", "--to", "2.5", "--count", "7", "--out", "s.png"});
    ASSERT_TRUE(strip) << strip.error().message;
    EXPECT_EQ(std::get<StripCommand>(*strip).from, -1);
    EXPECT_EQ(std::get<StripCommand>(*strip).to, 2.5);
    EXPECT_EQ(std::get<StripCommand>(*strip).count, 7);
    EXPECT_EQ(std::get<StripCommand>(*strip).size, (PictureSize{384, 216}));

    const auto list = parseCommandLine({"list", "speeds"});
    ASSERT_TRUE(list) << list.error().message;
    EXPECT_EQ(std::get<ListCommand>(*list).what, Listing::speeds);
}

TEST(CommandLine, prints_help_and_version) {
    struct Row {
        Arguments arguments;
        const char* part;
    };

    // clang-format off
    const Row rows[] = {
        {{"--help"},            "Exit status:"},
        {{"perform", "--help"}, "--timing"    },
        {{"--version"},         "zelvo 0."    },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto parsed = parseCommandLine(row.arguments);
        ASSERT_TRUE(parsed) << parsed.error().message;
        EXPECT_NE(std::get<TextCommand>(*parsed).text.find(row.part), std::string::npos);
    }
}

TEST(CommandLine, opens_the_window_where_no_command_is_given) {
    const std::string file = ZELVO_TEST_SOURCE_DIR "/CMakeLists.txt";
    for (const Arguments& files : {Arguments{}, Arguments{file}, Arguments{file, file}}) {
        const auto parsed = parseCommandLine(files);
        ASSERT_TRUE(parsed) << parsed.error().message;
        EXPECT_EQ(std::get<WindowCommand>(*parsed).files.size(), files.size());
    }
    EXPECT_FALSE(parseCommandLine({file + ".missing"}));
    for (const bool shows : {false, true}) {
        const auto parsed = parseCommandLine(shows ? Arguments{"--show-touches"} : Arguments{});
        ASSERT_TRUE(parsed) << parsed.error().message;
        EXPECT_EQ(std::get<WindowCommand>(*parsed).showsTouches, shows);
    }
    const auto marked = parseCommandLine({file, "--show-touches"});
    ASSERT_TRUE(marked) << marked.error().message;
    EXPECT_TRUE(std::get<WindowCommand>(*marked).showsTouches);
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
        {{"perform", "a.json", "--codec", "vp9"},        "vp9"      },
        {{"frame", "a.json", "--at", "x", "--out", "p"}, "--at"     },
        {{"frame", "a.json", "--out", "p.png"},          "--at"     },
        {{"list", "animals"},                            "animals"  },
        {{"dance"},                                      "dance"    },
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
