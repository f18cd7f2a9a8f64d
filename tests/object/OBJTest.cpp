// SPDX-License-Identifier: MIT
#include "object/ObjectSupport.h"
#include "platform/object/Polygons.h"

#include <fmt/format.h>
#include <glm/gtc/constants.hpp>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace zelvo::object {

namespace {

const std::string kSquare = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

/// The same text as little-endian UTF-16 with its mark.
std::string wide(const std::string& text) {
    std::string result = "\xFF\xFE";
    for (const char c : text)
        result += {c, '\0'};
    return result;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

TEST(OBJ, takes_what_many_programs_write) {
    struct Row {
        const char* what;
        std::string text;
        std::size_t faces, triangles;
        double area;
    };

    const std::string face = kSquare + "f 1 2 3 4\n";
    // A square of side 4 with a square hole of side 2; the bridge runs from corner 1 to 5 and back.
    const std::string framed =
        "v 0 0 0\nv 4 0 0\nv 4 4 0\nv 0 4 0\nv 1 1 0\nv 1 3 0\nv 3 3 0\nv 3 1 0\n"
        "f 1 2 3 4 1 5 6 7 8 5\n";
    // clang-format off
    const std::vector<Row> rows{
        {"a square",                 face,                                                        1, 2, 1   },
        {"a byte-order mark",        "\xEF\xBB\xBF" + face,                                       1, 2, 1   },
        {"UTF-16",                   wide(face),                                                  1, 2, 1   },
        {"CR LF",                    replaced(face, "\n", "\r\n"),                                1, 2, 1   },
        {"CR",                       replaced(face, "\n", "\r"),                                  1, 2, 1   },
        {"no last line end",         kSquare + "f 1 2 3 4",                                       1, 2, 1   },
        {"zero bytes and tabs",      replaced(face, " ", std::string("\0\t ", 3)),                1, 2, 1   },
        {"a continued line",         kSquare + "f 1 2 \\\r\n 3 \\  \n4",                          1, 2, 1   },
        {"no continued comment",     kSquare + "# C:\\models\\\nf 1 2 3 4",                       1, 2, 1   },
        {"upper case, comments",     kSquare + "  F 1 2 3 4# a square\n",                         1, 2, 1   },
        {"odd numbers",              "v 0 0 nan\nv +1 .0 0.\nv 1e0 1.0E+000 -1.#IND\n"
                                     "v -.0 1,0 1e99\nf 1 2 3 4",                                 1, 2, 1   },
        {"a weight",                 replaced(kSquare, "1 1 0", "1 1 0 2") + "f 1 2 3 4",         1, 2, 1   },
        {"negative indices",         kSquare + "f -4 -3 -2 -1\nv 9 9 9",                          1, 2, 1   },
        {"indices of later points",  "f 1 2 3 4\n" + kSquare,                                     1, 2, 1   },
        {"mixed corners",            "vt 0 0\nvn 0 0 1\n" + kSquare + "f 1/1 2//1 3/ 4//",        1, 2, 1   },
        {"bad texture and normal",   kSquare + "f 1/9/9 2/0/-7 3/x/y 4/1/1",                      1, 2, 1   },
        {"bad faces",                face + "f 1 2 9\nf 0 1 2\nf -9 1 2\nf 1 2\nf 1 x 3\nf\n",    1, 2, 1   },
        {"a face without area",      face + "f 1 2 2\nf 1 2 1 2\n",                               3, 2, 1   },
        {"repeated corners",         kSquare + "f 1 1 2 3 3 4 4 1",                               1, 2, 1   },
        {"other statements",         "o a\ng b c\ng\nvp 1 2\ncurv 0 1 1 2\nend\n" + face + "l 1 2\np 1", 1, 2, 1},
        {"a point that is no point", "v x\n" + kSquare + "f 2 3 4 5",                             1, 2, 1   },
        {"a folded-in quad",         "v 0 0 0\nv 4 0 0\nv 1 1 0\nv 0 4 0\nf 1 2 3 4",             1, 2, 4   },
        {"the same from its dent",   "v 0 0 0\nv 4 0 0\nv 1 1 0\nv 0 4 0\nf 2 3 4 1",             1, 2, 4   },
        {"a comb",                   "v 0 0 0\nv 0 0 5\nv 0 5 5\nv 0 5 4\nv 0 1 4\nv 0 1 3\nv 0 5 3\nv 0 5 2\n"
                                     "v 0 1 2\nv 0 1 1\nv 0 5 1\nv 0 5 0\nf 12 11 10 9 8 7 6 5 4 3 2 1", 1, 10, 17},
        {"a hole with a bridge",     framed,                                                      1, 8, 12  },
        {"a hole, other way round",  replaced(framed, "f 1 2 3 4 1 5 6 7 8 5",
                                              "f 5 8 7 6 5 1 4 3 2 1"),                           1, 8, 12  },
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const ObjectScene scene = objectOf(row.text);
        EXPECT_EQ(scene.figures.faces, row.faces);
        EXPECT_EQ(scene.figures.triangles, row.triangles);
        EXPECT_NEAR(areaOf(scene), row.area, 1e-6);
    }
}

TEST(OBJ, says_in_one_line_why_nothing_comes) {
    for (const std::string& text :
         {std::string(),
          kSquare,
          std::string(
              "\x7F"
              "ELF\0\1\2",
              7)}) {
        const auto scene = readOBJ({sourceOf(text), text.size(), "a.obj", NeighbourFiles({})}, {});
        ASSERT_FALSE(scene);
        EXPECT_EQ(scene.error().cause, foundation::Cause::malformed);
    }
    Watch stopped;
    std::stop_source stop;
    stopped.stop = stop.get_token();
    stop.request_stop();
    const std::string text = kSquare + "f 1 2 3";
    const auto scene = readOBJ({sourceOf(text), text.size(), "a.obj", NeighbourFiles({})}, stopped);
    ASSERT_FALSE(scene);
    EXPECT_EQ(scene.error().cause, foundation::Cause::cancelled);
}

TEST(OBJ, keeps_lines_whole_over_the_blocks_of_a_large_file) {
    std::string text = kSquare;
    constexpr std::size_t kFaces = 60'000; // more than two blocks
    for (std::size_t i = 0; i < kFaces; ++i)
        text += i % 3 == 0 ? "f 1 2 \\\r\n3\r\n" : "f 1 2 3\r\n";
    EXPECT_EQ(objectOf(text).figures.triangles, kFaces);
}

/// The distinct normals of a cube of side 2 around zero, each written with coordinates rounded.
std::set<std::string> normalsOfCube(const std::string& before, bool isSplit) {
    std::string text = before;
    const int faces[6][4] = {
        {0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& face : faces) {
        for (const int corner : face) {
            text += "v " + std::to_string(corner % 2 * 2 - 1) + " " +
                    std::to_string(corner / 2 % 2 * 2 - 1) + " " +
                    std::to_string(corner / 4 * 2 - 1) + "\n";
        }
        text += isSplit ? "vn 0 0 0\nf -4//-1 -3//-1 -2//-1 -1//-1\n" : "f -4 -3 -2 -1\n";
    }
    std::set<std::string> found;
    const ObjectScene scene = objectOf(text);
    for (const geometry::Vertex& vertex : scene.pieces.at(0).mesh.vertices) {
        std::string key;
        for (int i = 0; i < 3; ++i)
            key += std::to_string(std::lround(vertex.normal[i] * 100)) + " ";
        found.insert(key);
        EXPECT_GT(glm::dot(vertex.normal, vertex.position), 0.9F); // outwards
    }
    return found;
}

TEST(OBJ, makes_missing_normals_by_groups_or_by_angle) {
    EXPECT_EQ(normalsOfCube("", false).size(), 6U); // 90 degrees are above the crease angle
    EXPECT_EQ(normalsOfCube("s off\n", true).size(), 6U);
    const auto smooth = normalsOfCube("s 1\n", true);
    EXPECT_EQ(smooth.size(), 8U);
    EXPECT_TRUE(smooth.contains("58 58 58 ")); // the diagonal, although each face has own points
    // A tube of twelve sides bends by 30 degrees: smooth.
    std::string tube;
    for (int i = 0; i < 12; ++i) {
        const double angle = glm::two_pi<double>() * i / 12;
        tube += fmt::format("v {0} {1} 0\nv {0} {1} 1\n", std::cos(angle), std::sin(angle));
    }
    for (int i = 0; i < 12; ++i) {
        const auto corner = [i](int at) { return std::to_string((i * 2 + at) % 24 + 1) + " "; };
        tube += "f " + corner(0) + corner(2) + corner(3) + corner(1) + "\n";
    }
    const ObjectScene scene = objectOf(tube);
    EXPECT_EQ(scene.pieces.at(0).mesh.vertices.size(), 24U);
    for (const geometry::Vertex& vertex : scene.pieces.at(0).mesh.vertices) {
        const glm::vec3 outwards(vertex.position.x, vertex.position.y, 0);
        EXPECT_NEAR(glm::distance(vertex.normal, outwards), 0, 1e-4);
    }
}

TEST(OBJ, turns_texture_coordinates_to_the_pictures_top_with_tangents_along_u) {
    const ObjectScene scene = objectOf(
        "vt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\n" + kSquare + "f 1/1 2/2 3/3 4/4\nf 1/2 2/1 3/4 4/3\n");
    const auto& vertices = scene.pieces.at(0).mesh.vertices;
    ASSERT_EQ(vertices.size(), 8U);
    for (const geometry::Vertex& vertex : vertices) {
        EXPECT_EQ(vertex.uv.y, 1 - vertex.position.y);
        const bool isMirrored = vertex.uv.x != vertex.position.x;
        EXPECT_EQ(vertex.tangent, glm::vec4(isMirrored ? -1 : 1, 0, 0, isMirrored ? 1 : -1));
    }
}

TEST(OBJ, joins_equal_corners_also_where_very_many_meet) {
    constexpr int kFaces = 80; // more than a chain holds
    std::string text = kSquare;
    std::string faces;
    for (int i = 0; i < kFaces; ++i) {
        text += "vt 0." + std::to_string(i % 100) + " 0\n";
        faces += "f 1/" + std::to_string(i + 1) + " 2/1 3/1\n";
    }
    const ObjectScene scene = objectOf(text + faces + "usemtl other\n" + faces + faces);
    ASSERT_EQ(scene.pieces.size(), 2U);
    for (const Piece& piece : scene.pieces)
        EXPECT_EQ(piece.mesh.vertices.size(), kFaces + 2U);
}

TEST(OBJ, reads_colors_of_points) {
    struct Row {
        const char* text;
        glm::u8vec4 first, last;
    };

    const Row rows[] = {
        {"v 0 0 0 1 0.2 0\nv 1 0 0\nv 0 1 0\n", {255, 51, 0, 255}, {255, 255, 255, 255}},
        {"v 0 0 0 255 51 0\nv 1 0 0 0 0 0\nv 0 1 0 1 2 3\n", {255, 51, 0, 255}, {1, 2, 3, 255}},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\n#MRGB ff102030ff000000ff405060\n",
         {0x10, 0x20, 0x30, 255},
         {0x40, 0x50, 0x60, 255}},
    };
    for (const Row& row : rows) {
        const ObjectScene scene = objectOf(row.text + std::string("f 1 2 3"));
        ASSERT_EQ(scene.pieces.at(0).colors.size(), 3U);
        EXPECT_EQ(scene.pieces[0].colors[0], row.first);
        EXPECT_EQ(scene.pieces[0].colors[2], row.last);
    }
}

TEST(OBJ, keeps_the_detail_of_large_coordinates) {
    const ObjectScene scene = objectOf(
        "v 5000000.125 7000000 9\nv 5000000.375 7000000 9\nv 5000000.375 7000000.25 9\nf 1 2 3");
    EXPECT_NEAR(areaOf(scene), 0.25 * 0.25 / 2, 1e-9);
    EXPECT_NEAR(scene.figures.boxMin.x, 5000000.125, 1e-6);
    EXPECT_NEAR(scene.figures.boxMax.y, 7000000.25, 1e-6);
}

// Cut at every byte, and with each byte changed, a file gives an object or an error.
TEST(OBJ, survives_damage) {
    const std::string text =
        "mtllib a.mtl\nv 0 0 0\nv 1 0 0 1 1 1\nv 1 1 0\nv .3 .3 0\nv 0 1 0\nvt 0 1\n"
        "vn 0 0 1\nusemtl b\ns 1\nf 1/1/1 2/1 3//1 4 5\nf -1 -2 -3\n";
    std::size_t read = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (const char other : {'\\', '-', '/', '9', '\n', '\0'}) {
            std::string damaged = text;
            damaged[at] = other;
            read += readOBJ({sourceOf(damaged), 0, "a", NeighbourFiles({})}, {}) ? 1 : 0;
        }
        (void)readOBJ(
            {sourceOf(std::string_view(text).substr(0, at)), 0, "a", NeighbourFiles({})}, {});
    }
    EXPECT_GT(read, text.size() * 4); // one bad byte seldom costs more than a line
}

} // namespace

} // namespace zelvo::object
