// SPDX-License-Identifier: MIT
#include "document/Settings.h"

#include "document/PerformanceReader.h"
#include "document/TestNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelvo::document {

namespace {

const std::string kFile = R"({
  "duration": 4, "background": "#102030",
  "nodes": {"TX1": {"text": "ONE", "depth": 20, "position": [1, 2, 3]}, "OBJ": {"shape": "Heart"}},
  "cues": [{"at": 1, "tab": "IN1", "press": "Left In"}, {"at": 2, "tab": "IN1", "press": "Right In"}]
})";

[[nodiscard]] std::vector<Setting> settings(const std::vector<std::string>& texts) {
    std::vector<Setting> all;
    for (const std::string& text : texts) {
        auto setting = parseSetting(text, "--set", "/home/me");
        EXPECT_TRUE(setting) << setting.error().message;
        if (setting)
            all.push_back(*setting);
    }
    return all;
}

/// The file with these settings.
[[nodiscard]] Performance with(const std::vector<std::string>& texts) {
    const auto all = settings(texts);
    const auto read = readPerformance(kFile, testNames(), all);
    if (!read)
        ADD_FAILURE() << message(read.error().front(), "f.json", all);
    return read.value_or(Performance());
}

TEST(Settings, change_what_their_key_leads_to_and_nothing_else) {
    // The same key twice: the last one counts. A key that the file has not is added.
    const auto changed = with(
        {"TX1.text=never",
         "TX1.text=2024",
         "nodes.TX2.text=a=b",
         "TX1.position.1=-7.5",
         "duration=5",
         "background=#FF0000",
         "OBJ.shape=null",
         "OBJ.object=models/ship.glb",
         "audio.file=../song.mp3",
         "IMG.image=/pictures/logo.png",
         "TX1.fontFile=My.ttf",
         "audio.in=3",
         "cues.1.at=0.5",
         "cues.1.speed=fast",
         "TX2.visible=false",
         "TX2.rotation=[0, 90, 0]",
         "TX2.maxWidth=300"});
    EXPECT_EQ(changed.nodes.at("TX1").text, "2024");
    EXPECT_EQ(changed.nodes.at("TX1").depth, 20);
    EXPECT_EQ(changed.nodes.at("TX1").position, glm::dvec3(1, -7.5, 3));
    EXPECT_EQ(changed.nodes.at("TX2").text, "a=b");
    EXPECT_EQ(changed.nodes.at("TX2").visible, false);
    EXPECT_NEAR(changed.nodes.at("TX2").rotation->y, 1.5708, 1e-4);
    EXPECT_EQ(changed.nodes.at("TX2").maxWidth, 300);
    EXPECT_EQ(changed.duration, 5);
    EXPECT_EQ(changed.background, image::Color::parse("#FF0000"));
    EXPECT_FALSE(changed.object->shape);
    EXPECT_EQ(changed.object->object, "/home/me/models/ship.glb");
    EXPECT_EQ(changed.music->file, "/home/song.mp3");
    EXPECT_EQ(changed.music->in, 3);
    EXPECT_EQ(changed.picture->image, "/pictures/logo.png");
    EXPECT_EQ(changed.nodes.at("TX1").fontFile, "/home/me/My.ttf");
    EXPECT_EQ(with({"IMG.image=logo.png"}).picture->image, "/home/me/logo.png");
    // The cues are sorted by their new times.
    ASSERT_EQ(changed.cues.size(), 2U);
    EXPECT_EQ(std::get<Press>(changed.cues[0].act).title, "Right In");
    EXPECT_EQ(std::get<Press>(changed.cues[0].act).speed, "Fast");
    EXPECT_FALSE(std::get<Press>(changed.cues[1].act).speed);
    EXPECT_EQ(with({}), *readPerformance(kFile, testNames()));
}

TEST(Settings, that_are_wrong_are_told_by_their_names) {
    struct Row {
        std::string text;
        std::string told;
    };

    // clang-format off
    const Row rows[] = {
        {"TX1.txt=a",            R"(--set TX1.txt: unknown key "txt" in node TX1; did you mean "text"?)"        },
        {"TX3.text=a",           "--set TX3.text: unknown key \"TX3\" in the performance"                        },
        {"TX1.depth=500",        "--set TX1.depth: \"depth\" in node TX1 must be 1 to 150, not 500"              },
        {"TX1.depth=deep",       "--set TX1.depth: \"depth\" in node TX1 must be a number, not a text"           },
        {"TX1=5",                "--set TX1: node TX1 must be an object {…}, not a number"                       },
        {"TX1.material=Irn",     R"(--set TX1.material: unknown material "Irn"; did you mean "Iron"?)"          },
        {"background=red",       "--set background: \"background\" in the performance must be a colour"          },
        {"duration.seconds=2",   "--set duration.seconds: there is no \"seconds\" in a number"                   },
        {"cues.2.at=1",          "--set cues.2.at: \"2\" is no entry of a list that has 0 to 1"                  },
        {"cues.first.at=1",      "--set cues.first.at: \"first\" is no entry of a list"                          },
        {"cues.0.press=Lef In",  "--set cues.0.press: unknown button \"Lef In\" in tab IN1; did you mean"        },
        {R"(TX1={"txt": 1})",     R"(--set TX1: unknown key "txt" in node TX1; did you mean "text"?)"},
        {"TX1..text=a",          "--set TX1..text: a part of the key is empty"                                   },
        {"audio.in=3",           "--set audio.in: audio needs a \"file\""                                        },
        {"IMG.image=",           "--set IMG.image: \"image\" in node IMG must be the path"                       },
        {"OBJ.object=a.glb",     R"(--set OBJ.object: node OBJ can have an "object" or a "shape", not both)"    },
        {"cues=5",               "--set cues: "                                                                  },
    };
    // clang-format on
    for (const auto& row : rows) {
        // Among others that are right, before and behind it.
        const auto all = settings({"duration=3", row.text, "scene=Stage"});
        const auto read = readPerformance(kFile, testNames(), all);
        ASSERT_FALSE(read) << row.text;
        const auto told = message(read.error().front(), "f.json", all);
        EXPECT_TRUE(told.starts_with(row.told)) << told;
        EXPECT_EQ(read.error().size(), 1U) << row.text;
    }

    // A fault of the file keeps its line, and comes after that of the setting.
    const auto all = settings({"TX1.depth=0"});
    const auto read = readPerformance("{\"cues\": [],\n\"durtion\": 3}", testNames(), all);
    ASSERT_FALSE(read);
    ASSERT_EQ(read.error().size(), 2U);
    EXPECT_TRUE(message(read.error()[0], "f.json", all).starts_with("--set TX1.depth: "));
    EXPECT_TRUE(message(read.error()[1], "f.json", all).starts_with("f.json:2: unknown key"));

    for (const char* const text : {"", "TX1.text", "=a"})
        EXPECT_FALSE(parseSetting(text, "--set", "/")) << text;
    EXPECT_FALSE(parseSetting("TX1.text=" + std::string(kMaxSettingBytes + 1, 'a'), "--set", "/"));
}

} // namespace

} // namespace zelvo::document
