// SPDX-License-Identifier: MIT
#include "platform/image/LightProbe.h"
#include "render/StageFixture.h"

namespace zelvo::render {
namespace {

using image::Color;
using Pictures = Stage;

/// Eight columns with different colours; the fourth and fifth are in the middle.
image::ImagePtr makePanorama(std::uint8_t alpha) {
    std::vector<std::array<std::uint8_t, 4>> pixels;
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 8; ++x) {
            const bool isLeft = x < 4;
            pixels.push_back(
                {static_cast<std::uint8_t>(isLeft ? 200 : 0),
                 static_cast<std::uint8_t>(y < 2 ? 200 : 0),
                 static_cast<std::uint8_t>(isLeft ? 0 : 200),
                 alpha});
        }
    }
    return sharePicture(8, 4, pixels);
}

TEST_F(Pictures, APanoramaLiesAroundTheCamera) {
    camera->camera->fieldOfView = 90;
    scene->background.setImage(makePanorama(255));
    image::Image picture = draw();
    expectNear(at(picture, 2, 2), {200, 200, 0}, 2); // to the upper left
    expectNear(at(picture, 61, 61), {0, 0, 200}, 2);
    // If the camera turns left, the picture moves right.
    camera->setEulerAngles({0, 1.5707963f, 0});
    picture = draw();
    expectNear(at(picture, 61, 61), {200, 0, 0}, 2);
    scene->background.setImage(makePanorama(128));
    expectNear(at(draw(), 61, 61), {100, 0, 0}, 2); // over black
}

TEST_F(Pictures, ACubesFifthFaceLiesAhead) {
    scene::CubeImages faces;
    for (std::size_t i = 0; i < faces.size(); ++i) {
        const auto grey = static_cast<std::uint8_t>(40 * (i + 1));
        faces.at(i) = sharePicture(1, 1, {{grey, grey, grey, 255}});
    }
    // Not the size of the others.
    faces.at(4) = sharePicture(2, 1, {{200, 0, 0, 255}, {0, 0, 200, 255}});
    scene->background.contents = faces;
    camera->camera->fieldOfView = 80;
    const image::Image picture = draw();
    EXPECT_GT(at(picture, 8, 32)[0], at(picture, 8, 32)[2]);
    EXPECT_GT(at(picture, 56, 32)[2], at(picture, 56, 32)[0]);
    camera->setEulerAngles({0, -1.5707963f, 0}); // to the right: +x
    expectNear(middle(), {40, 40, 40}, 2);
    camera->setEulerAngles({1.5707963f, 0, 0}); // up: +y
    expectNear(middle(), {120, 120, 120}, 2);
    faces.at(2) = faces.at(0);
    scene->background.contents = faces;
    expectNear(middle(), {40, 40, 40}, 2); // another picture on one face
}

// A mirror that faces the camera shows what is behind the camera, where the panorama's ends meet.
TEST_F(Pictures, AReflectedPanoramaHasNoSeam) {
    const auto mirror = makeMaterial(Color::white(0));
    mirror->reflective.setImage(sharePicture(
        4, 1, {{0, 0, 0, 255}, {128, 128, 128, 255}, {128, 128, 128, 255}, {255, 255, 255, 255}}));
    addSquare(mirror);
    const image::Image picture = draw();
    EXPECT_NEAR(at(picture, 31, 32)[0], at(picture, 32, 32)[0], 12);
}

// In a room with an even light of 1, a white matte surface and a mirror are as bright as the room.
TEST_F(Pictures, AnEvenRoomLightsEvenly) {
    image::Radiance room{8, 4, std::vector<glm::vec3>(32, glm::vec3(0.5f))};
    auto picture = std::make_shared<image::Image>(8, 4);
    picture->lightProbe = std::make_shared<image::LightProbe>(image::LightProbe::filtered(room, 8));
    scene->lightingEnvironment.setImage(picture);
    const auto matte = makeMatte(Color::white(1));
    const auto square = addSquare(matte);
    const int half = 188; // 0.5 in linear light
    expectNear(middle(), {half, half, half}, 3);
    for (const float roughness : {0.1f, 0.5f, 0.9f}) {
        auto mirror = makeMaterial(Color::white(1), scene::SCNLightingModel::physicallyBased);
        mirror->metalness.contents = 1.0f;
        mirror->roughness.contents = roughness;
        square->geometry->materials = {mirror};
        expectNear(middle(), {half, half, half}, 5);
    }
    scene->lightingEnvironment.intensity = 0.5f;
    square->geometry->materials = {matte};
    expectNear(middle(), {137, 137, 137}, 3);
}

// Two ways to make the same picture: half the size at double scale, or a mirrored solid turned
// over.
TEST_F(Pictures, TwoWaysToTheSameSceneGiveOnePicture) {
    addLight(scene::SCNLightType::directional, {}, 800);
    const auto node = addNode({0.1f, 0, 0});
    node->setEulerAngles({0.3f, 0.4f, 0});
    const auto material = makeMatte(Color::hex(0xE6194C));
    node->geometry = std::make_shared<scene::SCNBox>(1, 1, 1, 0);
    node->geometry->materials = {material};
    const image::Image wanted = draw();
    const auto expectSame = [&](const char* how) {
        const image::Image picture = draw();
        int different = 0;
        for (std::size_t i = 0; i < wanted.pixels.size(); ++i) {
            different += std::abs(picture.pixels[i] - wanted.pixels[i]) > 2 ? 1 : 0;
        }
        EXPECT_LT(different, 40) << how;
    };
    node->geometry = std::make_shared<scene::SCNBox>(0.5, 0.5, 0.5, 0);
    node->geometry->materials = {material};
    node->scale = glm::vec3(2);
    expectSame("half size at double scale");
    node->scale = glm::vec3(-2, 2, 2);
    expectSame("mirrored: a box is its own mirror image");
}

} // namespace
} // namespace zelvo::render
