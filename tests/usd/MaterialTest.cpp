// SPDX-License-Identifier: MIT
#include "usd/Package.h"

#include <glm/geometric.hpp>
#include <gtest/gtest.h>

namespace zelvo::usd {
namespace {

using object::Channel;
using object::Material;
using object::ObjectScene;
using object::Wrap;
using test::readText;
using test::squareWith;

/// A square with a material, whose surface and other shaders are given.
std::string painted(const std::string& inputs, const std::string& others = "") {
    return "#usda 1.0\n" + squareWith(R"(
        rel material:binding = </Paint>
        texCoord2f[] primvars:map1 = [(0, 0), (1, 0), (1, 1), (0, 1)] ( interpolation = "vertex" )
        texCoord2f[] primvars:second = [(0.5, 0.25)] ( interpolation = "constant" ))") +
           R"(def Material "Paint" {
        color3f inputs:tint = (0.1, 0.2, 0.3)
        token outputs:surface.connect = </Paint/Surface.outputs:surface>
        def Shader "Surface" { uniform token info:id = "UsdPreviewSurface"
        )" +
           inputs + "}\n" + others + "}\n";
}

std::string textureNode(const std::string& more) {
    return R"(def Shader "Tex" { token info:id = "UsdUVTexture" asset inputs:file = @pic.png@ )" +
           more + "}";
}

ObjectScene readPainted(const std::string& inputs, const std::string& others = "") {
    auto scene =
        test::readPackage({{"a.usda", painted(inputs, others)}, {"pic.png", "not looked at"}});
    EXPECT_TRUE(scene) << scene.error().message;
    return scene ? *std::move(scene) : ObjectScene();
}

TEST(Surface, constants_are_taken_and_clamped) {
    const Material material = readPainted(R"(
        color3f inputs:diffuseColor.connect = </Paint.inputs:tint>
        color3f inputs:emissiveColor = (2, 0, 0)
        float inputs:metallic = 3
        float inputs:roughness = 0.25
        int inputs:opacity = 1
        float inputs:opacityThreshold = 0.4
        normal3f inputs:normal = (1, 1, 1)
        float inputs:occlusion = 0.1)")
                                  .materials.at(0);
    EXPECT_EQ(material.baseColor.factor, glm::vec3(0.1F, 0.2F, 0.3F));
    EXPECT_EQ(material.emission.factor, glm::vec3(2, 0, 0));
    EXPECT_EQ(material.metalness.factor, 1);
    EXPECT_EQ(material.roughness.factor, 0.25F);
    EXPECT_EQ(material.cutOutBelow, 0.4F);
    EXPECT_FALSE(material.normal.picture);
    EXPECT_EQ(material.occlusion.factor, 1);
}

TEST(Surface, one_picture_gives_its_channels) {
    const ObjectScene scene = readPainted(
        R"(color3f inputs:diffuseColor.connect = </Paint/Graph.outputs:color>
           float inputs:roughness.connect = </Paint/Tex.outputs:g>
           float inputs:metallic.connect = </Paint/Tex.outputs:b>
           float inputs:opacity.connect = </Paint/Tex.outputs:a>
           float inputs:occlusion.connect = </Paint/Tex.outputs:r>
           normal3f inputs:normal.connect = </Paint/Tex.outputs:rgb>)",
        textureNode("token inputs:wrapS = \"clamp\" token inputs:wrapT = \"mirror\" token "
                    "inputs:sourceColorSpace = \"raw\"") +
            "def NodeGraph \"Graph\" { color3f outputs:color.connect = </Paint/Tex.outputs:rgb> }");
    const Material& material = scene.materials.at(0);
    EXPECT_EQ(scene.textures.size(), 1);
    EXPECT_EQ(
        std::string(scene.textures[0].bytes.begin(), scene.textures[0].bytes.end()),
        "not looked at");
    EXPECT_EQ(material.baseColor.picture->channel, Channel::color);
    EXPECT_TRUE(material.baseColor.picture->isData);
    EXPECT_EQ(material.roughness.picture->channel, Channel::green);
    EXPECT_EQ(material.metalness.picture->channel, Channel::blue);
    EXPECT_EQ(material.opacity.picture->channel, Channel::alpha);
    EXPECT_EQ(material.occlusion.picture->channel, Channel::red);
    EXPECT_EQ(material.metalness.factor, 1);
    EXPECT_EQ(material.normal.picture->wrapS, Wrap::clamp);
    EXPECT_EQ(material.normal.picture->wrapT, Wrap::mirror);
    EXPECT_EQ(material.normal.picture->scale, glm::vec4(1)); // the numbers are forgotten: as usual
}

TEST(Surface, numbers_of_a_normal_map_are_those_of_its_texels) {
    const ObjectScene scene = readPainted(
        "normal3f inputs:normal.connect = </Paint/Tex.outputs:rgb>",
        textureNode("float4 inputs:scale = (2, -2, 2, 2) float4 inputs:bias = (-1, 1, -1, -1)"));
    const auto& use = *scene.materials.at(0).normal.picture;
    EXPECT_EQ(use.scale, glm::vec4(1, -1, 1, 1));
    EXPECT_EQ(use.bias, glm::vec4(0, 1, 0, 0));
}

TEST(Surface, coordinates_come_from_the_primvar_that_is_named_and_are_transformed) {
    const ObjectScene scene = readPainted(
        "color3f inputs:diffuseColor.connect = </Paint/Tex.outputs:rgb>",
        textureNode("float2 inputs:st.connect = </Paint/Move.outputs:result>") +
            R"(def Shader "Move" { token info:id = "UsdTransform2d"
                   float2 inputs:scale = (2, 3) float inputs:rotation = 90 float2 inputs:translation = (0.25, 0)
                   float2 inputs:in.connect = </Paint/Reader.outputs:result> }
               def Shader "Reader" { token info:id = "UsdPrimvarReader_float2" string inputs:varname = "second" })");
    // The place (0.5, 0.25) with v upwards: scaled (1, 0.75), turned (-0.75, 1), moved (-0.5, 1).
    const glm::vec2 uv = scene.pieces.at(0).mesh.vertices.at(0).uv;
    EXPECT_EQ(uv, glm::vec2(0.5F, 0.75F));
    const glm::vec3 place = scene.materials.at(0).baseColor.picture->transform * glm::vec3(uv, 1);
    EXPECT_LT(glm::distance(place, glm::vec3(-0.5F, 0, 1)), 1e-6F);
}

TEST(Surface, a_missing_picture_leaves_the_constant_or_the_fallback) {
    const std::string lost =
        R"(def Shader "Tex" { token info:id = "UsdUVTexture" asset inputs:file = @lost.png@ float4 inputs:fallback = (0.5, 0.6, 0.7, 1) })";
    const std::string connect = "color3f inputs:diffuseColor.connect = </Paint/Tex.outputs:rgb>\n";
    const ObjectScene fallback = readPainted(connect, lost);
    EXPECT_EQ(fallback.materials.at(0).baseColor.factor, glm::vec3(0.5F, 0.6F, 0.7F));
    EXPECT_EQ(fallback.figures.textures, 0);
    EXPECT_EQ(fallback.warnings, std::vector<std::string>{"the picture lost.png is missing"});
    const ObjectScene constant =
        readPainted("color3f inputs:diffuseColor = (1, 0, 0)\n" + connect, lost);
    EXPECT_EQ(constant.materials.at(0).baseColor.factor, glm::vec3(1, 0, 0));
}

TEST(Surface, a_bright_reflection_without_metalness_is_a_metal) {
    const std::string workflow = "int inputs:useSpecularWorkflow = 1 float inputs:metallic = 1 "
                                 "color3f inputs:diffuseColor = (0, 0, 0)\n";
    const Material gold =
        readPainted(workflow + "color3f inputs:specularColor = (1, 0.8, 0.3)").materials.at(0);
    EXPECT_EQ(gold.metalness.factor, 1);
    EXPECT_EQ(gold.baseColor.factor, glm::vec3(1, 0.8F, 0.3F));
    EXPECT_EQ(
        readPainted(workflow + "color3f inputs:specularColor = (0.04, 0.04, 0.04)")
            .materials.at(0)
            .metalness.factor,
        0);
}

TEST(Surface, connections_in_a_circle_end) {
    const ObjectScene scene =
        readPainted("float inputs:roughness.connect = </Paint/Surface.inputs:roughness>\nfloat "
                    "inputs:roughness = 0.75");
    EXPECT_EQ(scene.materials.at(0).roughness.factor, 0.75F);
}

TEST(Binding, the_nearest_wins_unless_an_ancestor_is_stronger) {
    const auto boundTo = [](const std::string& outer, const std::string& inner) {
        const auto scene = readText(
            "def Xform \"A\" {" + outer + "\n" + squareWith(inner) +
            "}\ndef Material \"M\" {}\ndef Material \"N\" {}\n");
        EXPECT_TRUE(scene);
        const auto material = scene->pieces.at(0).material;
        return material ? scene->materials[*material].name : "";
    };
    const std::string outer = "rel material:binding = </M>";
    EXPECT_EQ(boundTo(outer, ""), "M");
    EXPECT_EQ(boundTo(outer, "rel material:binding = </N>"), "N");
    EXPECT_EQ(
        boundTo(
            outer + " ( bindMaterialAs = \"strongerThanDescendants\" )",
            "rel material:binding = </N>"),
        "M");
    EXPECT_EQ(boundTo("rel material:binding:preview = </M>", "rel material:binding = </N>"), "M");
    EXPECT_EQ(boundTo("", "rel material:binding = </Lost>"), "");
}

} // namespace
} // namespace zelvo::usd
