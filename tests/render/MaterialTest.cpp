// SPDX-License-Identifier: MIT
#include "platform/scene/SCNColoredGeometry.h"
#include "render/StageFixture.h"

namespace zelvo::render {
namespace {

using image::Color;
using Materials = Stage;

TEST_F(Materials, AConstantColourAndABackgroundAreExactAtAnyOversampling) {
    const auto square = addSquare(makeMaterial({}), 0, 1);
    camera->camera->wantsHDR = true;
    camera->camera->exposureOffset = 2;
    const auto colorOf = [](const Pixel& p) {
        return Color::hex(static_cast<unsigned>(p[0] << 16 | p[1] << 8 | p[2]));
    };
    for (const double oversampling : {1.0, 1.5, 2.0}) {
        for (const Pixel& wanted : {Pixel{0x19, 0x4C, 0xE6}, {255, 255, 255}, {1, 2, 3}}) {
            const Pixel other{wanted[1], 0x80, wanted[0]};
            scene->background.contents = colorOf(wanted);
            square->geometry->materials[0]->diffuse.contents = colorOf(other);
            const image::Image picture = draw(oversampling);
            EXPECT_EQ(at(picture, 10, 50), wanted);
            EXPECT_EQ(at(picture, 31, 27), other);
        }
    }
}

// Dark colours, too, and pictures: decoding and encoding must not add up to a wrong step.
TEST_F(Materials, WhatOnlyAmbientLightFallsOnKeepsItsColourInSpiteOfTheToneMap) {
    camera->camera->wantsHDR = true;
    addLight(scene::SCNLightType::ambient, {}, 1000);
    const auto material = makeMatte(Color::white(1));
    addSquare(material);
    for (const int level : {1, 3, 9, 12, 30, 90, 178, 255}) {
        const Pixel wanted{level, 0x19, 255 - level};
        material->diffuse.contents =
            Color::hex(static_cast<unsigned>(wanted[0] << 16 | wanted[1] << 8 | wanted[2]));
        EXPECT_EQ(middle(), wanted);
        material->diffuse.setImage(sharePicture(
            1,
            1,
            {{static_cast<std::uint8_t>(level),
              0x19,
              static_cast<std::uint8_t>(255 - level),
              255}}));
        EXPECT_EQ(middle(), wanted) << "in a picture";
    }
}

TEST_F(Materials, APictureStandsUpright) {
    const auto material = makeMaterial(Color::white(1));
    material->diffuse.setImage(sharePicture(
        2, 2, {{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 255, 255, 255}}));
    addSquare(material);
    const image::Image picture = draw();
    expectNear(at(picture, 4, 4), {255, 0, 0}, 1);
    expectNear(at(picture, 59, 4), {0, 255, 0}, 1);
    expectNear(at(picture, 4, 59), {0, 0, 255}, 1);
    expectNear(at(picture, 59, 59), {255, 255, 255}, 1);
}

TEST_F(Materials, ContentsRepeatAfterTheirTransform) {
    const auto picture = sharePicture(2, 1, {{255, 0, 0, 255}, {0, 0, 255, 255}});
    const auto material = makeMaterial(Color::white(1));
    material->diffuse.setImage(picture);
    material->diffuse.wrapS = scene::SCNWrapMode::repeat;
    material->setContentsScale(2);
    addSquare(material);
    const image::Image drawn = draw();
    expectNear(at(drawn, 8, 32), {255, 0, 0}, 40);
    expectNear(at(drawn, 24, 32), {0, 0, 255}, 40);
    expectNear(at(drawn, 40, 32), {255, 0, 0}, 40);
    material->multiply.setImage(picture);
    material->multiply.contentsTransform = glm::mat4(1); // slots have their own transforms
    const image::Image multiplied = draw();
    expectNear(at(multiplied, 8, 32), {255, 0, 0}, 40);
    expectNear(at(multiplied, 40, 32), {30, 0, 0}, 40); // red times blue
}

TEST_F(Materials, PicturesOfNumbersCountByTheirRed) {
    const auto red = sharePicture(1, 1, {{255, 0, 0, 255}});
    const auto cyan = sharePicture(1, 1, {{0, 255, 255, 255}});
    addLight(scene::SCNLightType::ambient, {}, 1000);
    const auto material = makeMatte();
    addSquare(material);
    material->metalness.setImage(red);
    expectNear(middle(), {0, 0, 0}, 1); // metal has no diffuse colour
    material->metalness.setImage(cyan);
    expectNear(middle(), {128, 128, 128}, 1);
    material->ambientOcclusion.setImage(cyan);
    expectNear(middle(), {0, 0, 0}, 1);
    material->ambientOcclusion.setImage(red);
    expectNear(middle(), {128, 128, 128}, 1);
}

// With light from the right, a normal map that leans right is brighter than one that leans left.
// The same with light from above, for green.
TEST_F(Materials, NormalMapsLeanAsTheirColoursSay) {
    struct Row {
        glm::vec3 light;
        std::array<std::uint8_t, 4> towards;
        std::array<std::uint8_t, 4> away;
    };

    const auto material = makeMatte();
    addSquare(material);
    auto light = addLight(scene::SCNLightType::omni, {}, 100000);
    const scene::SCNNodePtr node = scene->rootNode()->childNodes().back();
    for (const Row& row :
         {Row{{7, 0, 7}, {200, 128, 230, 255}, {56, 128, 230, 255}},
          {{0, 7, 7}, {128, 200, 230, 255}, {128, 56, 230, 255}}}) {
        node->position = row.light;
        material->normal.setImage(sharePicture(1, 1, {row.towards}));
        const int towards = middle()[1];
        material->normal.setImage(sharePicture(1, 1, {row.away}));
        const int away = middle()[1];
        material->normal.intensity = 0.2f;
        const int awayALittle = middle()[1];
        material->normal.intensity = 1;
        EXPECT_GT(towards, away + 20);
        EXPECT_GT(awayALittle, away + 10);
        EXPECT_LT(awayALittle, towards);
    }
}

TEST_F(Materials, SlotsChangeWhatTheyShould) {
    struct Row {
        const char* what;
        scene::SCNMaterialProperty scene::SCNMaterial::*slot;
        Color contents;
        Pixel wanted;
    };

    // A white surface without light or tone map, changed by one slot. What is brighter than white keeps
    // its hue: at twice white, 57 % of the other channels.
    using M = scene::SCNMaterial;
    for (const Row& row :
         {Row{"multiply", &M::multiply, Color::hex(0xFF8000), {255, 128, 0}},
          {"emission", &M::emission, Color::hex(0x00FF00), {198, 255, 198}},
          {"diffuse", &M::diffuse, Color::hex(0x123456), {0x12, 0x34, 0x56}},
          {"ambient follows diffuse", &M::ambient, Color::hex(0xFF0000), {255, 255, 255}},
          {"displacement is not drawn", &M::displacement, Color::hex(0xFF0000), {255, 255, 255}}}) {
        const auto material = makeMaterial(Color::white(1));
        ((*material).*row.slot).contents = row.contents;
        const auto square = addSquare(material);
        EXPECT_EQ(middle(), row.wanted) << row.what;
        square->removeFromParentNode();
    }
}

TEST_F(Materials, OpacityHidingAndTransparencyMix) {
    scene->background.contents = Color::hex(0x0000FF);
    const auto material = makeMaterial(Color::hex(0xFF0000));
    const auto square = addSquare(material);
    square->opacity = 0.5f;
    expectNear(middle(), {lit(0.5, 255), 0, lit(0.5, 255)}, 1);
    material->transparency = 0.5f;
    expectNear(middle(), {lit(0.25, 255), 0, lit(0.75, 255)}, 1);
    material->transparency = 1;
    material->transparent.contents = Color{0, 0, 0, 0.25f};
    expectNear(middle(), {lit(0.125, 255), 0, lit(0.875, 255)}, 1);
    material->transparencyMode = scene::SCNTransparencyMode::rgbZero; // black is opaque
    expectNear(middle(), {lit(0.5, 255), 0, lit(0.5, 255)}, 1);
    square->opacity = 0.001f;
    EXPECT_EQ(middle(), (Pixel{0, 0, 255}));
    square->opacity = 1.0f;
    square->isHidden = true;
    EXPECT_EQ(middle(), (Pixel{0, 0, 255}));
}

TEST_F(Materials, TranslucentSurfacesMixFromBackToFrontWhateverTheTree) {
    for (const bool isRedFirst : {true, false}) {
        const auto first = addSquare(
            makeMaterial(Color::hex(isRedFirst ? 0xFF0000 : 0x00FF00)), isRedFirst ? 0 : 1);
        const auto second = addSquare(
            makeMaterial(Color::hex(isRedFirst ? 0x00FF00 : 0xFF0000)), isRedFirst ? 1 : 0);
        first->opacity = 0.5f;
        second->opacity = 0.5f;
        expectNear(middle(), {lit(0.25, 255), lit(0.5, 255), 0}, 1); // green is in front
        first->removeFromParentNode();
        second->removeFromParentNode();
    }
}

TEST_F(Materials, AFadingNodeHidesWhatStandsInsideIt) {
    const scene::SCNNodePtr whole = addNode({0, 0, 0});
    whole->addChildNode(addSquare(makeMaterial(image::Color::hex(0xFF0000)), -0.2f));
    whole->addChildNode(addSquare(makeMaterial(image::Color::hex(0x00FF00))));
    scene->background.contents = image::Color::white(0);
    whole->opacity = 0.5f;
    expectNear(middle(), {0, lit(0.5, 255), 0}, 1);
}

// At half opacity, only the front of a box is visible: the colour is the same everywhere.
TEST_F(Materials, ASolidFadesAsAWhole) {
    const auto node = addNode({0, 0, 0});
    node->geometry = std::make_shared<scene::SCNBox>(1, 1, 1, 0.2);
    const auto material = makeMaterial(Color::white(1));
    material->isDoubleSided = true;
    node->geometry->materials = {material};
    node->setEulerAngles({0.4f, 0.5f, 0.1f});
    node->opacity = 0.5f;
    const image::Image picture = draw();
    for (const int x : {28, 32, 36, 40}) {
        expectNear(at(picture, x, 32), {lit(0.5, 255), lit(0.5, 255), lit(0.5, 255)}, 1);
    }
}

TEST_F(Materials, BlendModesCombineWithWhatIsBehind) {
    using Mode = scene::SCNBlendMode;

    using Row = std::pair<Mode, Pixel>;

    addSquare(makeMaterial(Color::hex(0x808040)), -1, 4);
    for (const auto& [mode, wanted] :
         {Row{Mode::add, {lit(1, 0x40, 1, 0x80), lit(1, 0x20, 1, 0x80), 0x40}},
          {Mode::subtract, {lit(-1, 0x40, 1, 0x80), lit(-1, 0x20, 1, 0x80), 0x40}},
          {Mode::multiply, {lit(0.0513, 0x80), lit(0.0144, 0x80), 0x00}},
          {Mode::screen, {lit(1, 0x40, 1 - 0.0513, 0x80), lit(1, 0x20, 1 - 0.0144, 0x80), 0x40}},
          {Mode::replace, {0x40, 0x20, 0x00}}}) {
        const auto material = makeMaterial(Color::hex(0x402000));
        material->blendMode = mode;
        const auto square = addSquare(material);
        expectNear(middle(), wanted, 1);
        square->removeFromParentNode();
    }
}

TEST_F(Materials, CutOutsAreWholeOrNotThere) {
    addSquare(makeMaterial(Color::hex(0x00FF00)), -1, 4);
    const auto material = makeMaterial(Color::white(1));
    material->blendMode = scene::SCNBlendMode::replace;
    material->diffuse.setImage(sharePicture(2, 1, {{255, 0, 0, 200}, {255, 0, 0, 60}}));
    const auto square = addSquare(material);
    for (const auto& [opacity, wanted] :
         {std::pair(1.0F, Pixel{255, 0, 0}), {0.5F, {lit(0.5, 255), lit(0.5, 255), 0}}}) {
        square->opacity = opacity;
        const image::Image picture = draw();
        expectNear(at(picture, 8, 32), wanted, 1);
        EXPECT_EQ(at(picture, 56, 32), (Pixel{0, 255, 0}));
    }
}

TEST_F(Materials, SamplesMakeTheEdgesOfCutOutsSmooth) {
    const auto material = makeMaterial(Color::white(1));
    material->blendMode = scene::SCNBlendMode::replace;
    material->diffuse.setImage(sharePicture(2, 1, {{255, 0, 0, 255}, {255, 0, 0, 0}}));
    addSquare(material, 0, 4)->setEulerAngles({0, 0, 0.1f});
    const auto mixedPixels = [this](int samples) {
        const image::Image picture = renderer->snapshotAtTime(0, kSize, {1, samples});
        int count = 0;
        for (std::size_t i = 0; i < picture.pixels.size(); i += 4)
            count += picture.pixels[i] > 40 && picture.pixels[i] < 240 ? 1 : 0;
        return count;
    };
    EXPECT_EQ(mixedPixels(1), 0);
    EXPECT_GT(mixedPixels(4), 20);
}

/// A square whose vertices are black on the left and red on the right.
class ColoredSquare final : public scene::SCNColoredGeometry {
public:
    explicit ColoredSquare(const scene::SCNMaterialPtr& material)
        : SCNColoredGeometry(
              {{0, 0, 0, 255}, {255, 0, 0, 255}, {255, 0, 0, 255}, {0, 0, 0, 255}}, material) {
        materials = {material};
    }

private:
    [[nodiscard]] geometry::Mesh build() const override {
        geometry::Mesh mesh;
        for (const glm::vec2& place : {glm::vec2(-1, -1), {1, -1}, {1, 1}, {-1, 1}}) {
            mesh.vertices.emplace_back();
            mesh.vertices.back().position = glm::vec3(place, 0);
        }
        mesh.indices = {0, 1, 2, 0, 2, 3};
        mesh.elements = {{0, 6}};
        return mesh;
    }
};

TEST_F(Materials, ColoursOfVerticesMixInLinearLight) {
    const auto material = makeMaterial(Color::white(1));
    const auto node = addNode({0, 0, 0});
    node->geometry = std::make_shared<ColoredSquare>(material);
    expectNear(middle(), {189, 0, 0}, 2); // a half, encoded
    node->geometry->materials = {makeMaterial(Color::hex(0x00FF00))};
    EXPECT_EQ(middle(), (Pixel{0, 255, 0})) << "another material hides them";
}

TEST_F(Materials, AModifierChangesTheSurfaceAndABrokenOneDoesNoHarm) {
    const auto entry = scene::SCNShaderModifierEntryPoint::surface;
    const auto material = makeMaterial(Color::hex(0x0000FF));
    material->specular.setImage(sharePicture(1, 1, {{0, 255, 0, 255}}));
    material->shaderModifiers[entry] =
        "vec4 other = texture2D(u_specularTexture, _surface.diffuseTexcoord);\n"
        "_surface.diffuse = vec4(u_time, other.g, 0.0, 0.2);";
    const auto square = addSquare(material);
    expectNear(middle(), {0, 255, 0}, 1);
    square->opacity = 0.5f;
    expectNear(
        middle(), {0, lit(0.5, 255), 0}, 1); // the alpha does not matter if the square also fades
    square->opacity = 1;
    material->shaderModifiers[entry] = "_surface.diffuse = nonsense;";
    expectNear(middle(), {0, 0, 255}, 1);
    expectNear(middle(), {0, 0, 255}, 1);
}

} // namespace
} // namespace zelvo::render
