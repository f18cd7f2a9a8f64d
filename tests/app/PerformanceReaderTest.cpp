// SPDX-License-Identifier: MIT
#include "app/PerformanceReader.h"

#include "app/TestNames.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace zelvo::app {

namespace {

const std::string kWhole = R"({
  "$schema": "../performance.schema.json",
  "duration": 6.0, "speed": "fast", "scene": "Stage", "background": "#194CE6",
  "nodes": {
    "TX1": {"text": "NIGHT", "font": "Audiowide-Regular", "material": "Iron", "frontColor": "#FFFFFF",
            "bandColor": "#000000", "depth": 150, "bevel": 0, "profile": "rounded", "fill": "outer",
            "position": [0, 32.5, -1], "scale": 0.15, "rotation": [180, -90, 0], "visible": false}
  },
  "audio": {"file": "a b.mp3", "in": 3.0, "end": 5.0, "preRoll": 0.5, "fade": "fadeInOut"},
  "cues": [
    {"at": 5.9, "undo": true},
    {"at": 0.5, "tab": "OT2", "press": "Falling Out"},
    {"at": 0.5, "tab": "IN1", "press": "Left In", "nodes": ["TX2", "TX1"], "speed": "SLOW"},
    {"at": -2.0, "redo": true}
  ]
})";

/// All problems of a text, one a line.
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

TEST(PerformanceReader, takes_every_field_to_its_place) {
    const auto read = readPerformance(kWhole, testNames());
    ASSERT_TRUE(read) << problemsOf(kWhole);
    EXPECT_EQ(read->duration, 6.0);
    EXPECT_EQ(read->speed, "Fast");
    EXPECT_EQ(read->scene, "Stage");
    EXPECT_EQ(read->background, image::Color::hex(0x194CE6));
    ASSERT_EQ(read->nodes.size(), 1U);
    const auto& style = read->nodes.at("TX1");
    EXPECT_EQ(style.text, "NIGHT");
    EXPECT_EQ(style.material, "Iron");
    EXPECT_EQ(style.bandColor, image::Color::hex(0));
    EXPECT_EQ(style.depth, 150.0);
    EXPECT_EQ(style.bevel, 0.0);
    EXPECT_EQ(style.profile, "rounded");
    EXPECT_EQ(style.fill, "outer");
    EXPECT_EQ(style.position, glm::dvec3(0, 32.5, -1));
    EXPECT_EQ(style.visible, false);
    EXPECT_NEAR(style.rotation->y, -std::numbers::pi / 2, 1e-12);
    EXPECT_EQ(read->music->file, "a b.mp3");
    EXPECT_EQ(read->music->line, 9);
    EXPECT_EQ(read->music->fade, "fadeInOut");
}

TEST(PerformanceReader, sorts_cues_by_time_and_keeps_the_order_of_equal_times) {
    const auto read = readPerformance(kWhole, testNames());
    ASSERT_TRUE(read);
    ASSERT_EQ(read->cues.size(), 4U);
    EXPECT_TRUE(std::holds_alternative<Redo>(read->cues[0].act));
    EXPECT_EQ(std::get<Press>(read->cues[1].act).title, "Falling Out");
    const auto& press = std::get<Press>(read->cues[2].act);
    EXPECT_EQ(press.nodes, (std::vector<std::string>{"TX2", "TX1"}));
    EXPECT_EQ(press.speed, "Slow");
    EXPECT_TRUE(std::holds_alternative<Undo>(read->cues[3].act));
}

struct BadRow {
    const char* text;
    const char* problems;
};

TEST(PerformanceReader, says_line_and_remedy_of_each_problem) {
    // Line breaks are what many rows are about, so they stand there as escapes.
    // NOLINTBEGIN(modernize-raw-string-literal)
    const BadRow rows[] = {
  // grammar
        {"",                                                                                         "1: not JSON: the file is empty"                                                     },
        {"{\n\"cues\": [1,]}",                                                                       "2: not JSON: a value is expected here"                                              },
        {"{\"cues\": []\n\"speed\": 1}",                                                             "2: not JSON: a comma or a closing } is missing"                                     },
        {R"({"cues": []} x)",                                                                        "1: not JSON: there is more text behind the end of the first value"                  },
        {"[]",                                                                                       "1: the performance must be an object {…}, not a list"                             },
 // keys
        {"{\"cues\": [],\n \"durations\": 3}",
         R"(2: unknown key "durations" in the performance; did you mean "duration"?)"                                                                                                     },
        {"{\"cues\": [], \"cues\": []}",                                                             "1: key \"cues\" stands twice in the performance"                                    },
        {"{}",                                                                                       R"(1: "cues" is missing: the list of what is pressed when)"                          },
        {"{\"cues\": [], \"nodes\": {\"IMG\": {}}}",                                                 "1: \"IMG\" in nodes is not supported yet"                                           },
        {R"({"cues": [], "nodes": {"TX3": {}}})",
         "1: unknown key \"TX3\" in nodes; did you mean \"TX1\"?"                                                                                                                         },
 // values
        {R"({"cues": [], "duration": 1.9})",
         "1: \"duration\" in the performance must be 2 to 3599, not 1.9"                                                                                                                  },
        {R"({"cues": [], "duration": "8"})",
         "1: \"duration\" in the performance must be a number, not a text"                                                                                                                },
        {R"({"cues": [], "background": "194CE6"})",
         "1: \"background\" in the performance must be a colour like \"#194CE6\", not "
         R"("194CE6")"                                                                                                                                                                    },
        {"{\"cues\": [], \"scene\": \"Flares\"}",                                                    "1: scene \"Flares\" is not supported yet"                                           },
        {R"({"cues": [], "scene": "Beach"})",                                                        "1: unknown scene \"Beach\"; there is Plain, Stage"                                  },
        {R"({"cues": [], "speed": "fsat"})",                                                         "1: unknown speed \"fsat\"; did you mean \"Fast\"?"                                  },
        {"{\"cues\": [], \"nodes\": {\"TX1\": {\"font\": \"Abel\\nRegular\", \"depth\": 0.9,\n"
         R"("bevel": 4.1, "rotation": [0, 181, 0], "position": [0, 0], "text": "a\nb"}}})", "1: unknown font \"Abel Regular\"; did you mean \"Abel-Regular\"?\n"
         "1: \"depth\" in node TX1 must be 1 to 150, not 0.9\n"
         R"(2: "text" in node TX1 must be a single line without tabs; use TX2 for the second )"
         "line\n"
         "2: \"bevel\" in node TX1 must be 0 to 4, not 4.1\n"
         "2: \"position\" in node TX1 must be three numbers [x, y, z] of -1000 to 1000\n"
         R"(2: "rotation" in node TX1 must be three numbers [x, y, z] of -180 to 180)"},
        {"{\"cues\": [], \"audio\": {\"in\": 1, \"end\": 2.5, \"fade\": \"in\"}}",
         "1: audio needs a \"file\": the path of a sound file\n"
         "1: unknown fade \"in\"; there is noFade, fadeIn, fadeOut, fadeInOut\n"
         R"(1: "end" in audio must be at least 2 seconds after "in"; that is 3 or more)"                                                                                                  },
 // cues
        {"{\"cues\": [{\"at\": 0, \"tab\": \"IN1\",\n\"press\": \"Lef In\"}]}",
         R"(2: unknown button "Lef In" in tab IN1; did you mean "Left In"?)"                                                                                                              },
        {"{\"cues\": [{\"at\": 0, \"tab\": \"IN1\", \"press\": \"Fade Out\"}]}",
         R"(1: unknown button "Fade Out" in tab IN1; it is in tab OT2)"                                                                                                                   },
        {"{\"cues\": [{\"at\": 0, \"tab\": \"CAM\", \"press\": \"Zoom\"}]}",
         "1: the buttons of tab CAM are not supported yet"                                                                                                                                },
        {R"({"cues": [{"at": 0, "tab": "IN9", "press": "Zoom"}]})",
         "1: unknown tab \"IN9\"; did you mean \"IN1\"?"                                                                                                                                  },
        {R"({"cues": [{"at": 0}]})",
         "1: cue needs \"tab\" and \"press\", or \"undo\": true, or \"redo\": true"                                                                                                       },
        {R"({"cues": [{"undo": true}]})",
         "1: cue needs \"at\": the second of the movie when it comes"                                                                                                                     },
        {R"({"cues": [{"at": 8, "undo": true}]})",
         "1: \"at\" in cue must be from -2 up to, but not at, the movie's 8 seconds; it is 8"                                                                                             },
        {R"({"cues": [{"at": 1, "undo": false, "tab": "IN1"}]})",
         "1: \"undo\" in cue can only be true; leave the cue out\n"
         R"(1: "tab" does not go with "undo" or "redo" in one cue)"                                                                                                                       },
        {"{\"cues\": [{\"at\": 0, \"undo\": true, \"hold\": 1}]}",
         R"(1: "hold" in cue is not supported yet)"                                                                                                                                       },
        {"{\"cues\": [{\"at\": 0, \"tab\": \"IN1\", \"press\": \"Left In\",\n"
         R"("nodes": ["TX1", "TX1", "OBJ", "tx2", 4]}]})",                                  "2: node \"TX1\" stands twice in one cue\n"
         "2: node \"OBJ\" in cue is not supported yet\n"
         "2: unknown node \"tx2\"; did you mean \"TX2\"?\n"
         R"(2: "nodes" in cue must be a list of node names, not a number)"                                             },
        {"{\"cues\": [{\"at\": 0, \"tab\": \"IN1\", \"press\": \"Left In\", \"nodes\": []}]}",
         R"(1: "nodes" in cue must name at least one node; leave it out for all of them)"                                                                                                 },
    };
    // NOLINTEND(modernize-raw-string-literal)
    for (const auto& row : rows)
        EXPECT_EQ(problemsOf(row.text), row.problems) << row.text;
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
    EXPECT_EQ(problemsOf(std::string(kMaxJsonBytes + 1, ' ')), "1: the file is larger than 16 MiB");
    const auto many = problemsOf(R"({"cues": [)" + repeated(24, "\n0,") + "\n0]}");
    EXPECT_TRUE(many.ends_with("21: cue must be an object {…}, not a number\n21: and 5 more"))
        << many;

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

} // namespace zelvo::app
