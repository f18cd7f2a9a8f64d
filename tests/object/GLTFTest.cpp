// SPDX-License-Identifier: MIT
#include "object/ObjectSupport.h"
#include "platform/object/reading/ObjectReader.h"
#include "platform/object/reading/STLReader.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace zelvo::object {

namespace {

class GLTF : public testing::Test {
protected:
    void SetUp() override {
        // Four corners of a unit square, then 0 1 2 2 1 3 as unsigned short.
        const std::array<float, 12> points{0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0};
        const std::array<std::uint16_t, 6> indices{0, 1, 2, 2, 1, 3};
        std::string bytes(sizeof points + sizeof indices, '\0');
        std::memcpy(bytes.data(), points.data(), sizeof points);
        std::memcpy(bytes.data() + sizeof points, indices.data(), sizeof indices);
        write("square 1.bin", bytes);
    }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder.path() / name, std::ios::binary) << bytes;
    }

    [[nodiscard]] static std::string
    text(const std::string& primitive, const std::string& nodes, const std::string& more) {
        return R"({"asset": {"version": "2.0"}, "buffers": [{"uri": "square%201.bin", "byteLength": 60}],
            "bufferViews": [{"buffer": 0, "byteLength": 48}, {"buffer": 0, "byteOffset": 48, "byteLength": 12}],
            "accessors": [{"bufferView": 0, "componentType": 5126, "count": 4, "type": "VEC3",
                           "min": [0, 0, 0], "max": [1, 1, 0]},
                          {"bufferView": 1, "componentType": 5123, "count": 6, "type": "SCALAR"},
                          {"bufferView": 1, "componentType": 5125, "count": 6, "type": "SCALAR"}],
            "meshes": [{"primitives": [{"attributes": {"POSITION": 0}, )" +
               primitive + R"(}]}], "nodes": [)" + nodes + "]" + more + "}";
    }

    [[nodiscard]] foundation::Result<ObjectScene> read(const std::string& given) const {
        write("a.gltf", given);
        return readObject(folder.path() / "a.gltf");
    }

    test::TemporaryFolder folder;
};

TEST_F(GLTF, places_its_meshes_by_the_tree_of_nodes) {
    struct Row {
        const char* primitive;
        const char* nodes;
        const char* more;
        std::size_t meshes, triangles;
        glm::dvec3 min, max;
    };

    // clang-format off
    const Row rows[] = {
        {R"("indices": 1)", R"({"mesh": 0})", "", 1, 2, {0, 0, 0}, {1, 1, 0}},
        {R"("mode": 5)", R"({"mesh": 0})", "", 1, 2, {0, 0, 0}, {1, 1, 0}},
        {R"("mode": 1)", R"({"mesh": 0}, {"mesh": 0})", R"(, "scenes": [])", 0, 0, {}, {}},
        {R"("indices": 1)", R"({"mesh": 0, "children": [1]}, {"mesh": 0, "translation": [4, 0, 0], "children": [0]})",
         R"(, "scenes": [{"nodes": [0]}], "scene": 0)", 2, 4, {0, 0, 0}, {5, 1, 0}},
        {R"("indices": 1)", R"({"scale": [2, 2, 2], "rotation": [0, 0, 0.70710678, 0.70710678], "children": [1]}, {"mesh": 0})",
         "", 1, 2, {-2, 0, 0}, {0, 2, 0}},
        {R"("indices": 1)", R"({"mesh": 0, "matrix": [1,0,0,0, 0,1,0,0, 0,0,1,0, 7,8,9,1]})", "", 1, 2, {7, 8, 9}, {8, 9, 9}},
        {R"("indices": 2)", R"({"mesh": 0})", "", 0, 0, {}, {}}, // indices beyond their buffer
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.nodes);
        const auto scene = read(text(row.primitive, row.nodes, row.more));
        ASSERT_EQ(scene.has_value(), row.meshes > 0);
        if (!scene)
            continue;
        EXPECT_EQ(scene->figures.meshes, row.meshes);
        EXPECT_EQ(scene->figures.points, row.meshes * 4);
        EXPECT_EQ(scene->figures.triangles, row.triangles);
        EXPECT_LT(glm::distance(scene->figures.boxMin, row.min), 1e-6);
        EXPECT_LT(glm::distance(scene->figures.boxMax, row.max), 1e-6);
        EXPECT_EQ(scene->pieces.at(0).mesh.vertices.at(0).normal, glm::vec3(0, 0, 1));
    }
}

TEST_F(GLTF, takes_materials_and_pictures_from_everywhere) {
    write("leaf one.png", "x");
    const auto scene = read(text(
        R"("indices": 1, "material": 1)",
        R"({"mesh": 0})",
        R"(, "materials": [{}, {"alphaMode": "MASK", "alphaCutoff": 0.25, "doubleSided": true,
            "pbrMetallicRoughness": {"baseColorFactor": [0.5, 1, 1, 0.5], "metallicFactor": 0.25,
                "baseColorTexture": {"index": 0, "extensions": {"KHR_texture_transform": {"offset": [0.5, 0], "scale": [2, 3]}}},
                "metallicRoughnessTexture": {"index": 1}},
            "occlusionTexture": {"index": 0, "texCoord": 1}, "normalTexture": {"index": 2, "scale": 0.5}}],
            "textures": [{"source": 0}, {"source": 1}, {"source": 2}],
            "images": [{"uri": "leaf%20one.png"}, {"uri": "data:image/png;base64,AAEC"}, {"uri": "none.png"}])"));
    ASSERT_TRUE(scene) << scene.error().message;
    ASSERT_EQ(scene->materials.size(), 1U);
    const Material& material = scene->materials[0];
    EXPECT_EQ(material.cutOutBelow, 0.25F);
    EXPECT_EQ(material.opacity.factor, 0.5F);
    EXPECT_EQ(material.baseColor.factor, glm::vec3(0.5F, 1, 1));
    EXPECT_EQ(material.baseColor.picture->transform * glm::vec3(1, 1, 1), glm::vec3(2.5F, 3, 1));
    EXPECT_EQ(material.roughness.picture->channel, Channel::green);
    EXPECT_EQ(material.metalness.picture->channel, Channel::blue);
    EXPECT_EQ(material.metalness.factor, 0.25F);
    EXPECT_EQ(material.normal.factor, 0.5F);
    EXPECT_TRUE(material.isDoubleSided);
    EXPECT_EQ(scene->textures.at(0).file, folder.path() / "leaf one.png");
    EXPECT_EQ(scene->textures.at(1).bytes, (std::vector<std::uint8_t>{0, 1, 2}));
    EXPECT_FALSE(material.occlusion.picture) << "there is one set of coordinates";
    EXPECT_EQ(
        scene->warnings,
        (std::vector<std::string>{
            "the picture leaf one.png is left out, because it has texture coordinates of its own",
            "the picture none.png is missing"}));
    EXPECT_EQ(scene->figures.textures, 3U);
}

TEST_F(GLTF, says_what_it_cannot_read) {
    const auto compressed = read(text(
        R"("indices": 1)",
        R"({"mesh": 0})",
        R"(, "extensionsRequired": ["KHR_draco_mesh_compression"])"));
    ASSERT_FALSE(compressed);
    EXPECT_EQ(compressed.error().cause, foundation::Cause::unsupported);
    EXPECT_TRUE(compressed.error().message.starts_with("a.gltf: its geometry is compressed"));
    const auto outside =
        read(R"({"asset": {"version": "2.0"}, "buffers": [{"uri": "../x.bin", "byteLength": 1}]})");
    EXPECT_FALSE(outside);
    for (const char* name : {"a.txt", "none.obj"})
        EXPECT_FALSE(readObject(folder.path() / name));
}

TEST(STL, is_read_as_text_and_binary) {
    const std::string facets =
        "facet normal 0 0 0\n outer loop\n  vertex 0 0 0\n  vertex 2 0 0\n"
        "  VERTEX +2 2. 0\n endloop\nendfacet\n"
        "facet\nouter loop\nvertex 0 0 0\nvertex 2 2 0\nvertex 0 2 -0\nendloop\nendfacet\n";
    std::string binary("solid but binary");
    binary.resize(80);
    const std::uint32_t wrongCount = 99; // more than are there
    binary.append(reinterpret_cast<const char*>(&wrongCount), sizeof wrongCount);
    const std::array<std::array<float, 12>, 2> triangles{
        {{0, 0, 1, 0, 0, 0, 2, 0, 0, 2, 2, 0}, {0, 0, 1, 0, 0, 0, 2, 2, 0, 0, 2, 0}}};
    for (const auto& triangle : triangles) {
        binary.append(reinterpret_cast<const char*>(triangle.data()), sizeof triangle);
        binary.append(2, '\0');
    }
    for (const std::string& file :
         {"solid a\n" + facets + "endsolid a", " SOLID\n" + facets, binary}) {
        const auto scene = readSTL(sourceOf(file), file.size(), "a", {});
        ASSERT_TRUE(scene) << scene.error().message;
        EXPECT_EQ(scene->figures.points, 4U);
        EXPECT_EQ(scene->figures.triangles, 2U);
        EXPECT_EQ(areaOf(*scene), 4);
        EXPECT_EQ(scene->pieces[0].mesh.vertices[0].normal, glm::vec3(0, 0, 1));
        EXPECT_EQ(scene->upAxis, UpAxis::z);
    }
    EXPECT_FALSE(readSTL(sourceOf("solid"), 5, "a", {}));
    EXPECT_FALSE(readSTL(sourceOf(""), 0, "a", {}));
}

} // namespace

} // namespace zelvo::object
