// SPDX-License-Identifier: MIT
#include "usd/Package.h"

#include <glm/geometric.hpp>
#include <glm/mat4x4.hpp>
#include <gtest/gtest.h>

#include <algorithm>

namespace zelvo::usd {
namespace {

using object::ObjectScene;
using object::Piece;
using test::kSquare;
using test::readText;
using test::squareWith;

void expectBox(const std::string& text, const glm::dvec3& min, const glm::dvec3& max) {
    SCOPED_TRACE(text);
    const auto scene = readText(text);
    ASSERT_TRUE(scene) << scene.error().message;
    EXPECT_LT(glm::distance(scene->figures.boxMin, min), 1e-5)
        << scene->figures.boxMin.x << ' ' << scene->figures.boxMin.y << ' '
        << scene->figures.boxMin.z;
    EXPECT_LT(glm::distance(scene->figures.boxMax, max), 1e-5)
        << scene->figures.boxMax.x << ' ' << scene->figures.boxMax.y << ' '
        << scene->figures.boxMax.z;
}

TEST(Transforms, the_last_operation_acts_first) {
    struct Row {
        std::string operations, order;
        glm::dvec3 min, max;
    };

    const Row rows[] = {
        {"double3 xformOp:translate = (5, 0, 0) float xformOp:rotateZ = 90",
         R"("xformOp:translate", "xformOp:rotateZ")",
         {4, 0, 0},
         {5, 1, 0}},
        {"double3 xformOp:translate = (5, 0, 0) float xformOp:rotateZ = 90",
         R"("xformOp:rotateZ", "xformOp:translate")",
         {-1, 5, 0},
         {0, 6, 0}},
        {"float3 xformOp:rotateXYZ = (90, 0, 90)", R"("xformOp:rotateXYZ")", {0, 0, 0}, {0, 1, 1}},
        {"float3 xformOp:rotateZYX = (90, 0, 90)", R"("xformOp:rotateZYX")", {-1, 0, 0}, {0, 0, 1}},
        {"quatf xformOp:orient = (1, 0, 0, 1)", R"("xformOp:orient")", {-1, 0, 0}, {0, 1, 0}},
        {"matrix4d xformOp:transform = ((2,0,0,0), (0,1,0,0), (0,0,1,0), (7,8,9,1))",
         R"("xformOp:transform")",
         {7, 8, 9},
         {9, 9, 9}},
        {"half3 xformOp:scale:odd = (2, 3, 1)", R"("xformOp:scale:odd")", {0, 0, 0}, {2, 3, 0}},
        {"double3 xformOp:translate:pivot = (1, 1, 0) float xformOp:rotateZ = 180",
         R"("xformOp:translate:pivot", "xformOp:rotateZ", "!invert!xformOp:translate:pivot")",
         {1, 1, 0},
         {2, 2, 0}},
        {"double3 xformOp:translate = (5, 0, 0)", "", {0, 0, 0}, {1, 1, 0}},
        {"double3 xformOp:translate.timeSamples = { 3: (1, 0, 0), 4: (9, 0, 0) }",
         R"("xformOp:translate", "xformOp:lost")",
         {1, 0, 0},
         {2, 1, 0}},
    };
    for (const Row& row : rows)
        expectBox(
            squareWith(row.operations + "\ntoken[] xformOpOrder = [" + row.order + "]"),
            row.min,
            row.max);
}

TEST(Transforms, parents_act_unless_they_are_reset) {
    const auto moved = [](const std::string& order) {
        return "def Xform \"A\" { double3 xformOp:translate = (10, 0, 0) token[] xformOpOrder = "
               "[\"xformOp:translate\"]\n" +
               squareWith(
                   "double3 xformOp:translate = (0, 1, 0) token[] xformOpOrder = [" + order + "]") +
               "}";
    };
    expectBox(moved(R"("xformOp:translate")"), {10, 1, 0}, {11, 2, 0});
    expectBox(moved(R"("!resetXformStack!", "xformOp:translate")"), {0, 1, 0}, {1, 2, 0});
}

TEST(Shapes, have_the_size_and_axis_that_they_say) {
    expectBox("def Cube \"A\" {}", {-1, -1, -1}, {1, 1, 1});
    expectBox("def Sphere \"A\" { double radius = 3 }", {-3, -3, -3}, {3, 3, 3});
    expectBox(
        R"(def Cylinder "A" { double height = 6 token axis = "X" })", {-3, -1, -1}, {3, 1, 1});
    expectBox(R"(def Cone "A" { token axis = "Y" double height = 8 })", {-1, -4, -1}, {1, 4, 1});
    expectBox("def Capsule \"A\" {}", {-0.5, -0.5, -1}, {0.5, 0.5, 1});
    expectBox(
        "def Cylinder_1 \"A\" { double radiusTop = 0 double radiusBottom = 2 }",
        {-2, -2, -1},
        {2, 2, 1});
    expectBox(
        R"(def Plane "A" { double width = 4 double length = 6 token axis = "X" })",
        {0, -3, -2},
        {0, 3, 2});
    expectBox(
        R"(def Plane "A" { double width = 4 double length = 6 token axis = "Y" })",
        {-2, 0, -3},
        {2, 0, 3});
}

/// Twice the area that all triangles pass over, seen from outside; a closed solid has its volume.
double volumeOf(const ObjectScene& scene) {
    double volume = 0;
    for (const object::Placement& placement : scene.placements) {
        const geometry::Mesh& mesh = scene.pieces[placement.piece].mesh;
        const auto at = [&](std::size_t i) {
            return glm::dvec3(
                placement.transform * glm::dvec4(mesh.vertices[mesh.indices[i]].position, 1));
        };
        for (std::size_t i = 0; i < mesh.indices.size(); i += 3)
            volume += glm::dot(at(i), glm::cross(at(i + 1), at(i + 2))) / 6;
    }
    return volume;
}

/// A face that is turned inside out would take away from the volume.
TEST(Shapes, are_closed_and_face_outwards) {
    struct Row {
        std::string shape;
        double volume;
    };

    const Row rows[] = {
        {"Cube \"A\" {}", 8},
        {"Sphere \"A\" {}", 4.18879},
        {R"(Cylinder "A" { token axis = "Y" })", 6.28319},
        {"Cone \"A\" {}", 2.0944},
        {R"(Capsule "A" { token axis = "X" })", 1.309}};
    for (const Row& row : rows) {
        const auto scene = readText("def " + row.shape);
        ASSERT_TRUE(scene) << scene.error().message;
        EXPECT_NEAR(volumeOf(*scene), row.volume, row.volume * 0.02) << row.shape;
    }
}

TEST(Meshes, holes_and_broken_faces_are_left_out) {
    const auto scene = readText(R"(def Mesh "A" {
        int[] faceVertexCounts = [3, 2, 3, 3, 3, 9]
        int[] faceVertexIndices = [0,1,2, 0,1, 0,1,7, 0,2,3, 1,2,3, 0]
        int[] holeIndices = [4, -1, 99]
        point3f[] points = [(0,0,0), (1,0,0), (1,1,0), (0,1,0)]
    })");
    ASSERT_TRUE(scene) << scene.error().message;
    EXPECT_EQ(scene->figures.faces, 2);
    EXPECT_EQ(scene->figures.triangles, 2);
}

glm::vec3 faceNormal(const Piece& piece) {
    const auto at = [&](std::size_t i) {
        return piece.mesh.vertices[piece.mesh.indices[i]].position;
    };
    return glm::normalize(glm::cross(at(1) - at(0), at(2) - at(0)));
}

TEST(Meshes, a_left_handed_mesh_is_turned_round) {
    EXPECT_EQ(faceNormal(readText(squareWith(""))->pieces[0]).z, 1);
    EXPECT_EQ(
        faceNormal(readText(squareWith("token orientation = \"leftHanded\""))->pieces[0]).z, -1);
}

/// Two squares side by side, with six points.
const std::string kPair = R"(
    int[] faceVertexCounts = [4, 4]
    int[] faceVertexIndices = [0,1,4,3, 1,2,5,4]
    point3f[] points = [(0,0,0), (1,0,0), (2,0,0), (0,1,0), (1,1,0), (2,1,0)]
)";

/// Which vertices of the pair are red, as places of x, in order and each once.
std::vector<float> redPlaces(const std::string& statements) {
    const auto scene = readText("def Mesh \"A\" {" + kPair + statements + "}");
    EXPECT_TRUE(scene);
    std::vector<float> places;
    for (const Piece& piece : scene->pieces) {
        for (std::size_t i = 0; i < piece.mesh.vertices.size(); ++i) {
            const geometry::Vertex& vertex = piece.mesh.vertices[i];
            const glm::vec4 place =
                glm::mat4(scene->placements[0].transform) * glm::vec4(vertex.position, 1);
            if (piece.colors.at(i).r == 255 && place.y == 0)
                places.push_back(place.x);
        }
    }
    std::ranges::sort(places);
    return places;
}

TEST(Meshes, primvars_belong_to_what_their_interpolation_says) {
    const std::string red = "(1,0,0)";
    const std::string blue = "(0,0,1)";
    const auto colors = [](const std::string& values, const std::string& interpolation) {
        return "color3f[] primvars:displayColor = [" + values + "] ( interpolation = \"" +
               interpolation + "\" )\n";
    };
    using Places = std::vector<float>;
    EXPECT_EQ(redPlaces(colors(red, "constant")), (Places{0, 1, 2}));
    EXPECT_EQ(redPlaces(colors(blue + "," + red, "uniform")), (Places{1, 2}));
    EXPECT_EQ(
        redPlaces(colors(red + "," + blue + "," + red + ",(0,0,0),(0,0,0),(0,0,0)", "vertex")),
        (Places{0, 2}));
    // Of the corners: only the second face is red at the shared point.
    const std::string corners = blue + "," + blue + "," + blue + "," + blue + "," + red + "," +
                                blue + "," + blue + "," + blue;
    EXPECT_EQ(redPlaces(colors(corners, "faceVarying")), (Places{1}));
    // With the wrong word, the count tells.
    EXPECT_EQ(redPlaces(colors(blue + "," + red, "vertex")), (Places{1, 2}));
    EXPECT_EQ(
        redPlaces(
            colors(blue + "," + red, "uniform") + "int[] primvars:displayColor:indices = [1, 0]"),
        (Places{0, 1}));
    EXPECT_EQ(redPlaces(colors(red + "," + red + "," + red, "vertex")), Places{}); // fits nothing
}

TEST(Meshes, subsets_have_their_own_materials) {
    const auto scene = readText("def Mesh \"A\" {" + kPair + R"(
            rel material:binding = </Own>
            def GeomSubset "S" { int[] indices = [1, 1, 99, -3] rel material:binding = </Other> }
            def GeomSubset "Late" { int[] indices = [1] rel material:binding = </Third> }
            def GeomSubset "Unbound" { int[] indices = [0] }
        }
        def Material "Own" {}
        def Material "Other" {}
        def Material "Third" {})");
    ASSERT_TRUE(scene);
    ASSERT_EQ(scene->pieces.size(), 2);
    EXPECT_EQ(scene->figures.materials, 2);
    std::vector<std::string> names;
    for (const Piece& piece : scene->pieces)
        names.push_back(scene->materials[*piece.material].name);
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"Other", "Own"}));
}

TEST(Meshes, normals_of_a_primvar_are_stronger_and_may_have_indices) {
    const auto scene = readText(squareWith(R"(
        normal3f[] normals = [(0,0,1), (0,0,1), (0,0,1), (0,0,1)]
        normal3f[] primvars:normals = [(0,1,0), (1,0,0)] ( interpolation = "faceVarying" )
        int[] primvars:normals:indices = [1, 1, 1, 1])"));
    ASSERT_TRUE(scene);
    for (const geometry::Vertex& vertex : scene->pieces[0].mesh.vertices)
        EXPECT_EQ(vertex.normal, glm::vec3(1, 0, 0));
}

TEST(Visibility, hidden_things_and_helpers_are_not_drawn) {
    const auto meshes = [](const std::string& text) {
        const auto scene = readText(text + squareWith(""));
        return scene ? scene->figures.meshes : 0;
    };
    EXPECT_EQ(meshes("def Cube \"A\" {}"), 2);
    EXPECT_EQ(
        meshes("def Xform \"A\" { token visibility = \"invisible\" def Cube \"B\" { token "
               "visibility = \"inherited\" } }"),
        1);
    EXPECT_EQ(
        meshes("def Xform \"A\" { token purpose = \"proxy\" def Cube \"B\" {} def Cube \"C\" { "
               "token purpose = \"render\" } }"),
        2);
    EXPECT_EQ(meshes("def Cube \"A\" { token purpose = \"guide\" }"), 1);
    EXPECT_EQ(meshes("class Cube \"A\" {} over Cube \"B\" { def Cube \"C\" {} }"), 1);
}

TEST(Instances, stand_where_the_instancer_says) {
    const auto scene = readText(
        R"(def PointInstancer "P" {
            rel prototypes = [</P/One>, </Else/Two>]
            int[] protoIndices = [0, 1, 1, 5]
            int64[] invisibleIds = [2]
            point3f[] positions = [(10, 0, 0), (0, 20, 0), (99, 0, 0), (99, 0, 0)]
            quath[] orientations = [(1, 0, 0, 1), (1, 0, 0, 0), (1, 0, 0, 0), (1, 0, 0, 0)]
            float3[] scales = [(2, 2, 2), (1, 1, 1), (1, 1, 1), (1, 1, 1)]
            def Xform "One" {)" +
        squareWith("") + "} }\nover \"Else\" { def \"Two\" {" + squareWith("") + "} }");
    ASSERT_TRUE(scene) << scene.error().message;
    EXPECT_EQ(scene->figures.meshes, 2);
    EXPECT_LT(glm::distance(scene->figures.boxMin, glm::dvec3(0, 0, 0)), 1e-5);
    EXPECT_LT(glm::distance(scene->figures.boxMax, glm::dvec3(10, 21, 0)), 1e-5);
}

TEST(Stage, units_and_axis_have_defaults) {
    EXPECT_EQ(readText(squareWith(""))->metersPerUnit, 0.01);
    EXPECT_EQ(readText(squareWith(""))->upAxis, object::UpAxis::y);
    const auto scene = readText("( upAxis = \"Z\" metersPerUnit = 1 )\n" + squareWith(""));
    EXPECT_EQ(scene->metersPerUnit, 1);
    EXPECT_EQ(scene->upAxis, object::UpAxis::z);
}

} // namespace
} // namespace zelvo::usd
