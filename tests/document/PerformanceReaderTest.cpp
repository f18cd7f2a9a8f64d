// SPDX-License-Identifier: MIT
#include "document/PerformanceReader.h"

#include "document/TestNames.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace zelvo::document {

namespace {

const std::string kWhole = R"({
  "$schema": "../performance.schema.json",
  "duration": 6.0, "speed": "fast", "scene": "Stage", "background": "#194CE6",
  "nodes": {
    "TX1": {"text": "NIGHT", "font": "Audiowide-Regular", "material": "Iron", "frontColor": "#FFFFFF",
            "bandColor": "#000000", "depth": 150, "bevel": 0, "profile": "rounded", "fill": "outer",
            "position": [0, 32.5, -1], "scale": 0.15, "rotation": [180, -90, 0], "visible": false},
    "IMG": {"image": "a b.png", "sound": false, "hideAtEnd": true, "mask": "Mask 12",
            "flipH": false, "flipV": true, "quarterTurns": 3, "position": [1, 2, 3], "visible": false},
    "OBJ": {"shape": "Heart", "material": "Iron", "color": "#E6B219", "scale": 2, "rotation": [0, 0, 180]}
  },
  "audio": {"file": "a b.mp3", "in": 3.0, "end": 5.0, "preRoll": 0.5, "fade": "fadeInOut"},
  "cues": [
    {"at": 5.9, "undo": true},
    {"at": 0.5, "tab": "OT2", "press": "Falling Out"},
    {"at": 0.5, "tab": "IN1", "press": "Left In", "nodes": ["TX2", "TX1"], "speed": "SLOW"},
    {"at": 1.0, "tab": "FX1", "hold": "Blur", "for": 1.5},
    {"at": 2.0, "pan": [[640, 360], [700, 380], [760.5, -3]], "for": 0.6},
    {"at": 3.0, "pinch": [0.5, -1], "for": 0.4},
    {"at": 3.5, "doubleTap": true},
    {"at": -2.0, "redo": true}
  ]
})";

/// All problems of a text, one per line.
[[nodiscard]] std::string problemsOf(const std::string& text) {
    const auto read = readPerformance(text, testNames());
    if (read)
        return "none";
    std::string result;
    for (const auto& problem : read.error()) {
        result += fmt::format("{}{}: {}", result.empty() ? "" : "\n", problem.line, problem.text);
    }
    return result;
}

/// The whole performance, read.
class WholePerformance : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(read) << problemsOf(kWhole); }

    template <class Act> [[nodiscard]] const Act& act(std::size_t cue) const {
        return std::get<Act>(read->cues.at(cue).act);
    }

    const tl::expected<Performance, std::vector<foundation::Problem>> read =
        readPerformance(kWhole, testNames());
};

// Not every member is checked: if one is read from a wrong key, the reader itself refuses its own
// key as unknown.
TEST_F(WholePerformance, has_every_field_in_its_place) {
    EXPECT_EQ(read->duration, 6.0);
    EXPECT_EQ(read->speed, "Fast");
    EXPECT_EQ(read->background, image::Color::hex(0x194CE6));
    ASSERT_EQ(read->nodes.size(), 1U);
    const auto& style = read->nodes.at("TX1");
    EXPECT_EQ(style.frontColor, image::Color::hex(0xFFFFFF));
    EXPECT_EQ(style.bandColor, image::Color::hex(0));
    EXPECT_EQ(style.depth, 150.0);
    EXPECT_EQ(style.profile, "rounded");
    EXPECT_EQ(style.position, glm::dvec3(0, 32.5, -1));
    EXPECT_EQ(style.scale, 0.15);
    EXPECT_EQ(style.visible, false);
    EXPECT_NEAR(style.rotation->y, -std::numbers::pi / 2, 1e-12);
    ASSERT_TRUE(read->music && read->picture && read->object);
    EXPECT_EQ(read->music->line.number, 12);
    EXPECT_EQ(read->music->in, 3);
    EXPECT_EQ(read->music->end, 5);
    EXPECT_EQ(read->music->preRoll, 0.5);
    EXPECT_EQ(read->picture->line.number, 8);
    EXPECT_EQ(read->picture->flipH, false);
    EXPECT_EQ(read->picture->flipV, true);
    EXPECT_EQ(read->picture->quarterTurns, 3);
    EXPECT_EQ(read->picture->visible, false);
    EXPECT_EQ(read->object->shape, "Heart");
    EXPECT_EQ(read->object->color, image::Color::hex(0xE6B219));
}

TEST(PerformanceReader, takes_the_sound_of_a_video_as_the_music) {
    const auto read = readPerformance(
        R"({"nodes": {"IMG": {"image": "a.mp4", "sound": true}}, "cues": []})", testNames());
    ASSERT_TRUE(read);
    ASSERT_TRUE(read->music);
    EXPECT_EQ(read->music->file, "a.mp4");
    const char* const why =
        "1: \"sound\" in node IMG needs a video in \"image\" and no \"audio\": a movie has one "
        "sound";
    EXPECT_EQ(problemsOf(R"({"nodes": {"IMG": {"sound": true}}, "cues": []})"), why);
    EXPECT_EQ(
        problemsOf(R"({"nodes": {"IMG": {"image": "a.mp4", "sound": true}},
                       "audio": {"file": "b.mp3"}, "cues": []})"),
        why);
}

TEST_F(WholePerformance, has_its_cues_by_time_and_those_of_one_time_in_their_order) {
    ASSERT_EQ(read->cues.size(), 8U);
    EXPECT_TRUE(std::holds_alternative<Redo>(read->cues[0].act));
    EXPECT_EQ(act<Press>(1).title, "Falling Out");
    EXPECT_EQ(act<Press>(2).nodes, (std::vector<std::string>{"TX2", "TX1"}));
    EXPECT_EQ(act<Press>(2).speed, "Slow");
    EXPECT_FALSE(act<Press>(2).held);
    EXPECT_EQ(act<Press>(3).held, 1.5);
    EXPECT_EQ(act<Pan>(4).points, (std::vector<glm::dvec2>{{640, 360}, {700, 380}, {760.5, -3}}));
    EXPECT_EQ(act<Pan>(4).lasts, 0.6);
    EXPECT_EQ(act<Pinch>(5).velocities, (std::vector<double>{0.5, -1}));
    EXPECT_EQ(act<Pinch>(5).lasts, 0.4);
    EXPECT_TRUE(std::holds_alternative<DoubleTap>(read->cues[6].act));
    EXPECT_TRUE(std::holds_alternative<Undo>(read->cues[7].act));
}

/// A text, and all its problems.
struct BadCase {
    std::string text;
    std::string problems;
};

[[nodiscard]] std::string joined(const std::string& text, const std::string& line) {
    return text.empty() ? line : fmt::format("{}\n{}", text, line);
}

[[nodiscard]] std::vector<BadCase> badCases() {
    std::ifstream file(ZELVO_TEST_SOURCE_DIR "/document/data/problems.txt");
    std::vector<BadCase> cases(1);
    for (std::string line; std::getline(file, line);) {
        auto& last = cases.back();
        if (line.starts_with('#'))
            continue;
        if (line.starts_with("=> ")) {
            last.problems = joined(last.problems, line.substr(3));
        } else if (!line.empty()) {
            last.text = joined(last.text, line);
        } else if (!last.problems.empty()) {
            cases.emplace_back();
        }
    }
    return cases;
}

TEST(PerformanceReader, says_line_and_remedy_of_each_problem) {
    const auto cases = badCases();
    EXPECT_GT(cases.size(), 25U);
    for (const auto& one : cases)
        EXPECT_EQ(problemsOf(one.text), one.problems) << one.text;
    EXPECT_EQ(problemsOf(""), "1: not JSON: the file is empty");
}

TEST(PerformanceReader, keeps_to_its_limits) {
    const auto repeated = [](int count, const std::string& part) {
        std::string result;
        for (int i = 0; i < count; ++i)
            result += part;
        return result;
    };
    EXPECT_EQ(problemsOf(repeated(100'000, "[")), "1: brackets are nested more than 32 deep");
    EXPECT_EQ(
        problemsOf(R"({"cues": [)" + repeated(10'000, "0,") + "0]}"),
        "1: 10001 cues are too many; at most 10000 are allowed");
    EXPECT_EQ(
        problemsOf(std::string(foundation::kMaxJsonBytes + 1, ' ')),
        "1: the file is larger than 16 MiB");
    const auto many = problemsOf(R"({"cues": [)" + repeated(24, "\n0,") + "\n0]}");
    EXPECT_TRUE(many.ends_with("21: cue must be an object {…}, not a number\n21: and 5 more"))
        << many;
    const auto endless = problemsOf(R"({"cues": [)" + repeated(9'999, R"({"tba":0},)") + "0]}");
    EXPECT_TRUE(endless.ends_with("and many more")) << endless;

    const auto withText = [](const std::string& text) {
        return R"({"cues": [], "nodes": {"TX1": {"text": ")" + text + R"("}}})";
    };
    EXPECT_EQ(problemsOf(withText(repeated(2'000, "é"))), "none");
    EXPECT_EQ(
        problemsOf(withText(repeated(2'001, "é"))),
        R"(1: "text" in node TX1 has 2001 characters; at most 2000 are allowed)");
}

TEST(PerformanceReader, survives_a_cut_at_every_byte_and_every_damaged_byte) {
    for (std::size_t length = 0; length < kWhole.size(); ++length) {
        const auto text = kWhole.substr(0, length);
        EXPECT_NE(problemsOf(text), "none") << length;
    }
    for (std::size_t i = 0; i < kWhole.size(); ++i) {
        for (const unsigned flip : {0x01U, 0x20U, 0x80U, 0xFFU}) {
            auto text = kWhole;
            text[i] = static_cast<char>(static_cast<unsigned char>(text[i]) ^ flip);
            const auto read = readPerformance(text, testNames());
            EXPECT_TRUE(read || !read.error().empty()) << i;
        }
    }
}

} // namespace

} // namespace zelvo::document
