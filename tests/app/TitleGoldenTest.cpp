// SPDX-License-Identifier: MIT
#include "app/ProgramRun.h"
#include "platform/image/reading/ImageReader.h"
#include "support/GoldenPicture.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string>

namespace zelvo::app {
namespace {

/// A title for each environment. Together they use every kind of surface.
struct Title {
    const char* scene;
    const char* background;
    const char* front; ///< material of the first line
    const char* other; ///< material of the second line
    const char* font;
};

// clang-format off
constexpr auto kTitles = std::to_array<Title>({
    {"Flat",       "#6CE71E", "Flat",           "Reflecting",           "Bungee-Regular"   },
    {"Plain",      "#E6B219", "Plain",          "Cracked",              "Philosopher-Bold" },
    {"Shiny",      "#194CE6", "Iron",           "Plastic / Reflecting", "Audiowide-Regular"},
    {"Stage",      "#E61919", "Iron / Circuit", "Dynamic / Flat",       "Shrikhand-Regular"},
    {"Spherical",  "#E67F19", "Plain",          "Iron",                 "Bungee-Regular"   },
    {"Ancient",    "#E6B219", "Rock",           "Plain",                "Philosopher-Bold" },
    {"Backlight",  "#19B2E6", "Iron",           "Plain",                "Audiowide-Regular"},
    {"SpaceBox",   "#194CE6", "Old Metal",      "Plain",                "Audiowide-Regular"},
    {"Brilliance", "#E61980", "Iron",           "Plain",                "Shrikhand-Regular"},
    {"Subtle",     "#19E6E6", "Plastic",        "Iron",                 "Philosopher-Bold" },
});

// clang-format on

/// The title of an environment without a row.
constexpr Title kUsual{"", "#E61919", "Iron", "Plain", "Bungee-Regular"};

[[nodiscard]] Title titleOf(const std::string& scene) {
    const auto* const row = std::ranges::find(kTitles, scene, &Title::scene);
    return row == kTitles.end() ? kUsual : *row;
}

TEST(TitleGolden, EachEnvironmentShowsItsTitleAsBefore) {
    const Program program;
    std::istringstream scenes(program.run({"list", "scenes"}).out);
    for (std::string scene; std::getline(scenes, scene);) {
        const Title title = titleOf(scene);
        const std::string style = fmt::format(
            R"("font": "{}", "profile": "rounded", "bevel": 2.5, "fill": "outer", "depth": 30)",
            title.font);
        const std::string file = program.write(
            "title.json",
            fmt::format(
                R"({{"duration": 2, "scene": "{}", "background": "{}", "nodes": {{
                    "TX1": {{"text": "Rag8", "material": "{}", "scale": 1.5, "frontColor": "#FFFFFF",
                             "bandColor": "#E67F19", {}}},
                    "TX2": {{"text": "BOWL&", "material": "{}", "frontColor": "#19CCE6", {}}}}},
                    "cues": [{{"at": 0, "tab": "OT3", "press": "Tilt 2 Out", "nodes": ["TX2"]}},
                             {{"at": 0, "tab": "IN1", "press": "Left In", "nodes": ["TX1"]}}]}})",
                scene,
                title.background,
                title.front,
                style,
                title.other,
                style));
        const std::string picture = program.path("title.png");
        const Ending ending =
            program.run({"frame", file, "--at", "0.4", "--out", picture, "--size", "192x108"});
        ASSERT_EQ(ending.status, 0) << ending.err;
        const auto loaded = image::loadImage(picture);
        ASSERT_TRUE(loaded.has_value()) << loaded.error().message;
        test::expectLikeGolden(**loaded, fmt::format("app/golden/{}", scene));
    }
}

} // namespace
} // namespace zelvo::app
