// SPDX-License-Identifier: MIT
#include "app/ProgramRun.h"
#include "platform/image/reading/ImageReader.h"
#include "support/GoldenPicture.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace zelvo::app {
namespace {

using Pixels = std::vector<std::uint8_t>;

// Measures of a sheet, in pixels.
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

/// Cuts out one picture of a sheet, or the caption below it.
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
    constexpr auto moments = std::to_array({-0.5, 0.0, 0.5, 1.0, 1.5});
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

TEST(Strip, DependsOnNothingThatEarlierRunsLeft) {
    const Program program;
    const std::string file = program.write("bevel.json", R"({"duration": 2, "scene": "Plain",
        "nodes": {"TX1": {"text": "B", "font": "Bungee-Regular", "bevel": 4, "fill": "outer"}},
        "cues": [{"at": 0, "tab": "IN1", "press": "Left In"}]})");
    const auto strip = [&] {
        const std::string out = program.path("strip.png");
        const Ending made = program.run(
            {"strip", file, "--from", "1", "--to", "1.5", "--count", "2", "--out", out});
        EXPECT_EQ(made.status, 0) << made.err;
        return contentOf(out);
    };
    const auto fresh = strip();
    // As after a run that was killed while it built letters.
    std::filesystem::create_directories(program.home() / "zelvo");
    program.write(
        "zelvo/defaults.json",
        R"({"CorruptFontNames": ["Bungee-Regular"], "PotentialCorruptFontName": "Abel-Regular"})");
    EXPECT_TRUE(strip() == fresh);
}

/// The names of `zelvo list`, one for each tile.
[[nodiscard]] std::vector<std::string> namesOf(const Program& program, const std::string& kind) {
    std::istringstream lines(program.run({"list", kind}).out);
    std::vector<std::string> names;
    for (std::string name; std::getline(lines, name);)
        names.push_back(name);
    return names;
}

/// A third of the size: each pixel is the mean of 3 x 3.
[[nodiscard]] image::Image smaller(const Pixels& pixels, int width, int height) {
    constexpr int kTimes = 3;
    image::Image small(width / kTimes, height / kTimes);
    for (int i = 0; i < 4 * small.width * small.height; ++i) {
        const int channel = i % 4, x = i / 4 % small.width, y = i / 4 / small.width;
        int sum = 0;
        for (int j = 0; j < kTimes * kTimes; ++j) {
            const int column = kTimes * x + j % kTimes, row = kTimes * y + j / kTimes;
            const int at = 4 * (row * width + column) + channel;
            sum += pixels[static_cast<std::size_t>(at)];
        }
        small.pixels[static_cast<std::size_t>(i)] =
            static_cast<std::uint8_t>(sum / (kTimes * kTimes));
    }
    return small;
}

/// Compares each tile with the stored one of its name. The stored tiles are one picture, a column of
/// tiles. ZELVO_UPDATE_GOLDEN=1 in the environment writes it anew.
void expectTilesLikeGolden(
    const std::vector<image::Image>& tiles,
    const std::vector<std::string>& names,
    const std::string& kind) {
    const auto file =
        std::filesystem::path(ZELVO_TEST_SOURCE_DIR) / fmt::format("app/golden/all-{}.png", kind);
    const int width = tiles.front().width, height = tiles.front().height;
    if (std::getenv("ZELVO_UPDATE_GOLDEN") != nullptr) {
        image::Image atlas(width, 0);
        for (const auto& tile : tiles) {
            atlas.pixels.insert(atlas.pixels.end(), tile.pixels.begin(), tile.pixels.end());
            atlas.height += height;
        }
        ASSERT_TRUE(image::savePNG(atlas, file).has_value());
    }
    const auto atlas = loaded(file);
    ASSERT_EQ(atlas->width, width);
    ASSERT_EQ(atlas->height, height * static_cast<int>(tiles.size()));
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        image::Image wanted(width, height);
        wanted.pixels = cutOut(*atlas, 0, height * static_cast<int>(i), width, height);
        EXPECT_LE(test::differingShare(tiles[i], wanted), test::kGoldenShare)
            << kind << ": " << names[i];
    }
}

// A square with texture coordinates: four places, four coordinates, six indices.
constexpr auto kSquare = "AACAvwAAgL8AAAAAAACAPwAAgL8AAAAAAACAPwAAgD8AAAAAAACAvwAAgD8AAAAAAAAAAA"
                         "AAgD8AAIA/AACAPwAAgD8AAAAAAAAAAAAAAAAAAAEAAgAAAAIAAwA=";

/// A picture of four colours; its last column is clear.
void writePicture(const Program& program) {
    image::Image picture(4, 4);
    const std::array<std::array<std::uint8_t, 3>, 4> corners{
        {{220, 40, 30}, {240, 220, 60}, {40, 90, 220}, {40, 170, 70}}};
    for (std::size_t i = 0; i < 16; ++i) {
        std::ranges::copy(corners.at(i % 4 / 2 + i / 8 * 2), &picture.pixels[4 * i]);
        picture.pixels[4 * i + 3] = i % 4 == 3 ? 0 : 255;
    }
    ASSERT_TRUE(image::savePNG(picture, program.path("four.png")).has_value());
}

/// A textured box without its right and its upper side; a metal ball above a carpet with colours at
/// its points, z up; a square with a part cut out.
[[nodiscard]] std::vector<std::string> writeObjects(const Program& program) {
    writePicture(program);
    program.write("box.mtl", "newmtl paper\nmap_Kd four.png\nnewmtl tin\nKd 0.6 0.6 0.7\nPm 1\n");
    return {
        program.write("box.obj", R"(mtllib box.mtl
v 3 0 4
v 5 0 4
v 5 2 4
v 3 2 4
v 3 0 2
v 5 0 2
v 5 2 2
v 3 2 2
vt 0 0
vt 1 0
vt 1 1
vt 0 1
usemtl paper
f 1/1 2/2 3/3 4/4
usemtl tin
f 4 3 7 8
f 2 6 7 3
)"),
        program.write("ball.usda", R"(#usda 1.0
( upAxis = "Z" )
def Sphere "Ball" ( apiSchemas = ["MaterialBindingAPI"] ) {
    double radius = 1
    double3 xformOp:translate = (0, 0, 1.2)
    uniform token[] xformOpOrder = ["xformOp:translate"]
    rel material:binding = </Gold>
}
def Material "Gold" {
    token outputs:surface.connect = </Gold/Surface.outputs:surface>
    def Shader "Surface" {
        uniform token info:id = "UsdPreviewSurface"
        color3f inputs:diffuseColor = (0.9, 0.6, 0.2)
        float inputs:metallic = 1
        float inputs:roughness = 0.3
        token outputs:surface
    }
}
def Mesh "Carpet" {
    point3f[] points = [(-2, -2, 0), (2, -2, 0), (2, 2, 0), (-2, 2, 0)]
    int[] faceVertexCounts = [4]
    int[] faceVertexIndices = [0, 1, 2, 3]
    color3f[] primvars:displayColor = [(1, 0, 0), (0, 1, 0), (0, 0, 1), (1, 1, 1)] (
        interpolation = "vertex"
    )
}
)"),
        program.write(
            "flag.gltf",
            fmt::format(
                R"({{"asset": {{"version": "2.0"}}, "scenes": [{{"nodes": [0]}}], "nodes": [{{"mesh": 0}}],
"meshes": [{{"primitives": [{{"attributes": {{"POSITION": 0, "TEXCOORD_0": 1}}, "indices": 2,
  "material": 0}}]}}],
"materials": [{{"alphaMode": "MASK", "doubleSided": true,
  "pbrMetallicRoughness": {{"baseColorTexture": {{"index": 0}}, "metallicFactor": 0}}}}],
"textures": [{{"source": 0}}], "images": [{{"uri": "four.png"}}],
"accessors": [
  {{"bufferView": 0, "componentType": 5126, "count": 4, "type": "VEC3", "min": [-1, -1, 0],
    "max": [1, 1, 0]}},
  {{"bufferView": 1, "componentType": 5126, "count": 4, "type": "VEC2"}},
  {{"bufferView": 2, "componentType": 5123, "count": 6, "type": "SCALAR"}}],
"bufferViews": [{{"buffer": 0, "byteLength": 48}}, {{"buffer": 0, "byteOffset": 48, "byteLength": 32}},
  {{"buffer": 0, "byteOffset": 80, "byteLength": 12}}],
"buffers": [{{"byteLength": 92, "uri": "data:application/octet-stream;base64,{}"}}]}})",
                kSquare))};
}

TEST(SheetOfObjects, ShowsEachFileAsItLooked) {
    const Program program;
    std::vector<std::string> arguments{"sheet", "objects"};
    const std::vector<std::string> files = writeObjects(program);
    arguments.insert(arguments.end(), files.begin(), files.end());
    const std::string none = program.write("none.obj", "v 0 0 0\n");
    arguments.insert(arguments.end(), {none, "--out", program.path("sheet.png")});
    const Ending made = program.run(arguments);
    EXPECT_EQ(made.status, 2) << "one of the files has nothing in it";
    const auto picture = loaded(program.path("sheet.png"));
    const Grid grid{4, 384, 288};
    ASSERT_EQ(picture->width, kGap + grid.columns * (grid.width + kGap)) << made.err;
    std::vector<image::Image> tiles;
    tiles.reserve(files.size());
    for (int i = 0; i < 3; ++i)
        tiles.push_back(smaller(grid.picture(*picture, i), grid.width, grid.height));
    expectTilesLikeGolden(tiles, files, "objects");

    EXPECT_EQ(program.run({"sheet", "objects", "--out", program.path("x.png")}).status, 2);
    EXPECT_EQ(program.run({"sheet", "masks", none, "--out", program.path("x.png")}).status, 2);
}

/// A colour takes its own materials away.
TEST(Frame, ShowsTheObjectThatThePerformanceNames) {
    const Program program;
    (void)writeObjects(program);
    /// Red and blue of a point of its picture.
    const auto shown = [&](const std::string& style) {
        const std::string out = program.path("frame.png");
        const std::string file = program.write(
            "object.json",
            fmt::format(
                R"({{"duration": 2, "scene": "Flat", "background": "#000000",
                    "nodes": {{"OBJ": {{"object": "flag.gltf"{}}}}},
                    "cues": [{{"at": -1.5, "tab": "IN1", "press": "Left In", "nodes": ["OBJ"]}}]}})",
                style));
        const Ending made =
            program.run({"frame", file, "--at", "1.9", "--out", out, "--size", "160x90"});
        EXPECT_EQ(made.status, 0) << made.err;
        const auto picture = loaded(out);
        constexpr std::size_t kPlace = 4 * (30 * 160 + 70);
        return std::to_array({picture->pixels.at(kPlace), picture->pixels.at(kPlace + 2)});
    };
    const auto own = shown("");
    EXPECT_GT(own[0], own[1] + 60) << "red";
    const auto tinted = shown(R"(, "color": "#0000FF")");
    EXPECT_GT(tinted[1], tinted[0] + 60) << "blue";
    EXPECT_EQ(
        program
            .run(
                {"frame",
                 program.write("both.json", R"({"nodes": {"OBJ":
                       {"object": "flag.gltf", "shape": "Cube"}}, "cues": []})"),
                 "--at",
                 "1",
                 "--out",
                 program.path("both.png")})
            .status,
        2);
}

struct Sheet {
    const char* kind;
    int columns, width, height; ///< of the tiles
    bool
        hasGolden; ///< the scenes are compared in TitleGoldenTest.cpp; fonts change with their files
};

class SheetShows : public testing::TestWithParam<Sheet> {};

TEST_P(SheetShows, EachNameOfItsKindAsItLooked) {
    const Sheet& sheet = GetParam();
    const Program program;
    const auto names = namesOf(program, sheet.kind);
    const int count = static_cast<int>(names.size());
    const std::string file = program.path("sheet.png");
    const Ending made = program.run({"sheet", sheet.kind, "--out", file});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(made.out, file + "\n");
    const auto picture = loaded(file);
    const int rows = (count + sheet.columns - 1) / sheet.columns;
    ASSERT_EQ(picture->width, kGap + sheet.columns * (sheet.width + kGap));
    ASSERT_EQ(picture->height, kGap + rows * (sheet.height + kCaption + kGap));

    const Grid grid{sheet.columns, sheet.width, sheet.height};
    std::vector<Pixels> pictures;
    std::vector<Pixels> captions;
    std::vector<image::Image> tiles;
    for (int i = 0; i < count; ++i) {
        const auto& name = names[static_cast<std::size_t>(i)];
        pictures.push_back(grid.picture(*picture, i));
        captions.push_back(grid.caption(*picture, i));
        EXPECT_EQ(std::ranges::count(pictures, pictures.back()), 1) << name << " is there twice";
        EXPECT_EQ(std::ranges::count(captions, captions.back()), 1) << name << " is named twice";
        tiles.push_back(smaller(pictures.back(), sheet.width, sheet.height));
    }
    if (sheet.hasGolden)
        expectTilesLikeGolden(tiles, names, sheet.kind);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds,
    SheetShows,
    testing::Values(
        Sheet{"materials", 4, 384, 216, true},
        Sheet{"scenes", 4, 384, 216, false},
        Sheet{"shapes", 6, 252, 168, true},
        Sheet{"masks", 6, 252, 168, true},
        Sheet{"fonts", 6, 252, 126, false}),
    [](const auto& each) { return std::string(each.param.kind); });

} // namespace
} // namespace zelvo::app
