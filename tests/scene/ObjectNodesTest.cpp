// SPDX-License-Identifier: MIT
#include "platform/scene/ObjectNodes.h"

#include "platform/scene/ObjectBatches.h"
#include "platform/scene/SCNColoredGeometry.h"
#include "support/TemporaryFolder.h"

#include <glm/geometric.hpp>
#include <glm/gtc/matrix_transform.hpp>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace zelvo::scene {

namespace {

using object::Channel;
using object::ObjectScene;
using object::PictureUse;

using Texel = std::array<int, 4>;

class ObjectMaterials : public testing::Test {
protected:
    /// A picture of two texels becomes the scene's next texture.
    PictureUse picture(ObjectScene& scene, const Texel& left, const Texel& right) {
        image::Image image(2, 1);
        for (std::size_t i = 0; i < 4; ++i) {
            image.pixels[i] = static_cast<std::uint8_t>(left[i]);
            image.pixels[i + 4] = static_cast<std::uint8_t>(right[i]);
        }
        const auto file = folder.path() / (std::to_string(scene.textures.size()) + ".png");
        EXPECT_TRUE(image::savePNG(image, file));
        scene.textures.push_back({file.string(), file, {}});
        PictureUse use;
        use.texture = scene.textures.size() - 1;
        return use;
    }

    static Texel texel(const SCNMaterialProperty& slot, std::size_t at) {
        const image::ImagePtr image = slot.image();
        if (!image)
            return {-1, -1, -1, -1};
        const auto* first = &image->pixels[at * 4];
        return {first[0], first[1], first[2], first[3]};
    }

    test::TemporaryFolder folder;
};

TEST_F(ObjectMaterials, take_single_channels_with_scale_and_bias) {
    ObjectScene scene;
    object::Material given;
    given.roughness = {0.5F, picture(scene, {10, 20, 30, 255}, {1, 2, 3, 255})};
    given.roughness.picture->channel = Channel::green;
    given.metalness = {1, given.roughness.picture};
    given.metalness.picture->channel = Channel::blue;
    given.metalness.picture->scale = glm::vec4(-2);
    given.metalness.picture->bias = glm::vec4(1);
    given.baseColor = {glm::vec3(1, 0, 1), given.roughness.picture};
    scene.materials = {given};
    const SCNMaterialPtr made = materialsOf(scene).at(0);
    EXPECT_EQ(texel(made->roughness, 0), (Texel{20, 20, 20, 255}));
    EXPECT_EQ(made->roughness.intensity, 0.5F);
    EXPECT_EQ(texel(made->metalness, 1), (Texel{249, 249, 249, 255}));
    EXPECT_EQ(texel(made->diffuse, 0), (Texel{10, 0, 30, 255}));
}

TEST_F(ObjectMaterials, take_the_opacity_that_is_meant) {
    struct Row {
        Channel channel;
        int leftAlpha, rightAlpha;
        float cutOutBelow;
        int left, right; ///< alpha of the base colour
    };

    const Row rows[] = {
        {Channel::alpha, 255, 128, 0, 255, 128},
        {Channel::alpha, 100, 200, 0.5F, 0, 255},
        {Channel::alphaIfVaried, 0, 0, 0, 255, 255},
        {Channel::alphaIfVaried, 0, 64, 0, 0, 64},
        {Channel::alphaOrBrightness, 255, 255, 0, 50, 200},
    };
    for (const Row& row : rows) {
        ObjectScene scene;
        object::Material given;
        given.baseColor.picture =
            picture(scene, {50, 50, 50, row.leftAlpha}, {200, 200, 200, row.rightAlpha});
        given.opacity.picture = given.baseColor.picture;
        given.opacity.picture->channel = row.channel;
        given.cutOutBelow = row.cutOutBelow;
        scene.materials = {given};
        // A picture of its own, then the same one.
        given.opacity.picture->transform[0][0] = 2;
        scene.materials.push_back(given);
        const auto made = materialsOf(scene);
        EXPECT_EQ(texel(made[0]->diffuse, 0)[3], row.left);
        EXPECT_EQ(texel(made[0]->diffuse, 1)[3], row.right);
        EXPECT_EQ(texel(made[1]->diffuse, 0)[3], 255);
        const bool isOpaque = row.left == 255 && row.right == 255;
        EXPECT_EQ(texel(made[1]->transparent, 1)[3], isOpaque ? -1 : row.right);
    }
}

TEST_F(ObjectMaterials, tell_normal_maps_from_heights) {
    ObjectScene scene;
    object::Material given;
    given.normalPicture = object::NormalPicture::unknown;
    given.normal.picture = picture(scene, {140, 120, 250, 255}, {128, 128, 255, 255});
    scene.materials.push_back(given);
    given.normal.picture = picture(scene, {255, 255, 255, 255}, {255, 255, 255, 255});
    scene.materials.push_back(given);
    const auto made = materialsOf(scene);
    EXPECT_EQ(texel(made[0]->normal, 0), (Texel{140, 120, 250, 255}));
    EXPECT_EQ(texel(made[1]->normal, 0), (Texel{128, 128, 255, 255})); // flat ground
}

TEST_F(ObjectMaterials, go_on_without_a_picture_that_is_damaged) {
    ObjectScene scene;
    object::Material given;
    given.baseColor.picture = picture(scene, {0, 0, 0, 0}, {0, 0, 0, 0});
    std::ofstream(scene.textures[0].file) << "no picture";
    given.baseColor.factor = glm::vec3(1, 0, 0);
    scene.materials = {given, given};
    const SCNMaterialPtr made = materialsOf(scene).at(1);
    EXPECT_NEAR(made->diffuse.colorOr({}).red, 1, 1e-5);
    EXPECT_EQ(made->diffuse.colorOr({}).green, 0);
    EXPECT_EQ(scene.warnings.size(), 1U);
}

TEST(ObjectNodes, stand_upright_and_near_zero) {
    ObjectScene scene;
    scene.upAxis = object::UpAxis::z;
    object::Piece piece;
    piece.mesh.vertices.resize(3);
    piece.mesh.vertices[1].position = {1, 0, 0};
    piece.mesh.vertices[2].position = {0, 0, 2};
    piece.mesh.indices = {0, 1, 2};
    piece.mesh.elements = {{0, 3}};
    piece.isDoubleSided = true;
    scene.pieces = {piece};
    const glm::dvec3 far(5'000'000.125, 0, 0);
    scene.placements = {
        {0, glm::translate(glm::dmat4(1), far)},
        {0, glm::translate(glm::dmat4(1), far + glm::dvec3(0.25, 0, 0))},
        {0, glm::dmat4(0)}};
    scene.placements.back().transform[3][3] = 1; // scaled to nothing
    scene.figures.boxMin = far;
    scene.figures.boxMax = far + glm::dvec3(1.25, 0, 2);
    const SCNNodePtr node = nodeOf(std::move(scene), {});
    ASSERT_EQ(node->childNodes().size(), 2U);
    const geometry::Box box = node->boundingBox();
    EXPECT_LT(glm::distance(box.max - box.min, glm::vec3(1.25F, 2, 0)), 1e-5F);
    EXPECT_LT(glm::length(box.min), 2);
    const glm::vec4 top = node->childNodes()[0]->worldTransform() * glm::vec4(0, 0, 2, 1);
    EXPECT_NEAR(top.y, box.max.y, 1e-5F) << "upside down";
    EXPECT_TRUE(node->childNodes()[0]->geometry->materialFor(0)->isDoubleSided);
}

TEST(ObjectNodes, show_the_colors_of_vertices_with_their_own_material) {
    ObjectScene scene;
    object::Piece piece;
    piece.mesh.vertices.resize(3);
    piece.colors = {{255, 0, 0, 255}, {0, 0, 255, 255}, {0, 255, 0, 100}};
    piece.mesh.indices = {0, 1, 2};
    piece.mesh.elements = {{0, 3}};
    scene.pieces = {piece};
    scene.placements = {{0, glm::dmat4(1)}};
    const SCNNodePtr node = nodeOf(std::move(scene), {});
    SCNGeometry& geometry = *node->childNodes().at(0)->geometry;
    EXPECT_EQ(geometry.materialFor(0)->diffuse.colorOr({}), image::Color::white(1));
    const SCNColoredGeometry* const colored = coloredGeometry(geometry, *geometry.materialFor(0));
    ASSERT_NE(colored, nullptr);
    EXPECT_EQ(colored->colors(), piece.colors);
    EXPECT_TRUE(colored->isSeenThrough());
    const SCNMaterial other = *geometry.materialFor(0);
    EXPECT_EQ(coloredGeometry(geometry, other), nullptr);
}

TEST(ObjectNodes, are_joined_where_there_are_very_many) {
    ObjectScene scene;
    object::Piece piece;
    piece.mesh.vertices.resize(3);
    piece.mesh.vertices[1].position = {1, 0, 0};
    piece.mesh.vertices[2].position = {0, 1, 0};
    piece.mesh.indices = {0, 1, 2};
    piece.mesh.elements = {{0, 3}};
    piece.material = 0;
    scene.pieces = {piece, piece, piece};
    scene.pieces[1].material = 1;
    scene.pieces[2].isDoubleSided = true;
    scene.materials.resize(2);
    scene.materials[1].opacity.factor = 0.5F;
    for (std::size_t i = 0; i < 90; ++i) {
        auto transform = glm::translate(glm::dmat4(1), glm::dvec3(static_cast<double>(i), 5, 0));
        if (i % 2 == 1)
            transform = glm::scale(transform, glm::dvec3(1, 1, -2)); // mirrored
        scene.placements.push_back({i % 3, transform});
    }
    scene.figures.boxMax = {90, 6, 0};
    joinSmallPieces(scene);
    const auto materials = materialsOf(scene);
    const SCNNodePtr node = nodeOf(std::move(scene), materials);
    // One for each of the two that can be joined, and the thirty that are seen through.
    ASSERT_EQ(node->childNodes().size(), 32U);
    const geometry::Box box = node->boundingBox();
    EXPECT_EQ(box.min, glm::vec3(0, 5, 0));
    EXPECT_EQ(box.max, glm::vec3(90, 6, 0));
    const geometry::Mesh& mesh = node->childNodes()[30]->geometry->mesh();
    ASSERT_EQ(mesh.indices.size(), 90U);
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        const geometry::Vertex& a = mesh.vertices.at(mesh.indices[i]);
        const glm::vec3 up = glm::cross(
            mesh.vertices.at(mesh.indices[i + 1]).position - a.position,
            mesh.vertices.at(mesh.indices[i + 2]).position - a.position);
        EXPECT_GT(glm::dot(up, a.normal), 0) << "the front stays the front";
    }
}

} // namespace

} // namespace zelvo::scene
