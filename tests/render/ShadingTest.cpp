// SPDX-License-Identifier: MIT
// The light that a surface reflects, drawn and measured, compared with published values.
#include "platform/geometry/Primitives.h"
#include "platform/render/ShaderBlocks.h"
#include "render/StageFixture.h"

#include <glm/trigonometric.hpp>

#include <cmath>

namespace zelvo::render {
namespace {

using image::Color;
using scene::SCNLightType;

class Shading : public Stage {
protected:
    /// Shows a surface whose normal is turned to the right by an angle.
    void show(const scene::SCNMaterialPtr& material, double degrees) const {
        const auto angle = static_cast<float>(glm::radians(degrees));
        addSquare(material, 0, 6)->setEulerAngles({0, angle, 0});
    }

    /// Adds a light of `strength` times the nominal intensity, shining from that direction.
    void shine(const glm::vec3& from, double strength = 1) const {
        addLight(SCNLightType::directional, {}, 1000 * strength);
        const glm::vec3 up = std::abs(from.y) > 0.9f ? glm::vec3(1, 0, 0) : glm::vec3(0, 1, 0);
        scene->rootNode()->childNodes().back()->setOrientation(glm::quatLookAt(-from, up));
    }

    void clear(std::size_t kept) const {
        while (scene->rootNode()->childNodes().size() > kept)
            scene->rootNode()->childNodes().back()->removeFromParentNode();
    }

    /// Linear light in the middle of the picture. The mean of dithered pixels is more precise than
    /// one.
    [[nodiscard]] glm::dvec3 measured() const {
        const image::Image picture = draw();
        glm::dvec3 sum(0);
        for (int i = 0; i < 256; ++i) {
            const Pixel pixel = at(picture, 24 + i % 16, 24 + i / 16);
            for (int c = 0; c < 3; ++c)
                sum[c] += static_cast<double>(image::linearFromSRGB(
                              static_cast<float>(pixel.at(static_cast<std::size_t>(c))) / 255)) /
                          256;
        }
        return sum;
    }
};

// Expected: the reflection model of glTF 2.0 (appendix B) with the exact Smith term; the shader's
// fit is within 8 %. Values are pi times BRDF times cosine, for a black surface that reflects 4 %
// at normal incidence. Light and eye are on opposite sides of the normal, or (negative) on the
// same.
TEST_F(Shading, ReflectsAsThePublishedModelOfMicrofacets) {
    struct Row {
        float roughness;
        double light; // degrees from the normal
        double eye;
        double wanted;
    };

    const auto material = makeMaterial(Color::white(0), scene::SCNLightingModel::physicallyBased);
    for (const Row& row :
         {Row{0.5f, 0, 0, 0.1600},
          {0.5f, 45, 45, 0.2309},
          {0.5f, 60, 20, 0.0218},
          {0.5f, 20, 60, 0.0410},
          {0.8f, 60, 60, 0.0572},
          {0.8f, 0, 60, 0.0212},
          {0.8f, 60, 0, 0.0106},
          {0.7f, 30, -20, 0.0176},
          {1.0f, 30, 50, 0.0117}}) {
        material->roughness.contents = row.roughness;
        show(material, row.eye);
        const double angle = glm::radians(row.light + row.eye);
        shine({std::sin(angle), 0, std::cos(angle)});
        EXPECT_NEAR(measured().g / row.wanted, 1, 0.09)
            << "roughness " << row.roughness << ", " << row.light << " to " << row.eye;
        clear(1);
    }
}

// A white mirror in an even white room, lit from 240 directions. It must reflect all light,
// whatever its roughness; otherwise energy is lost or created.
TEST_F(Shading, AWhiteMirrorInAWhiteRoomGivesBackAllLight) {
    constexpr int kDirections = 240;
    const auto mirror = makeMaterial(Color::white(1), scene::SCNLightingModel::physicallyBased);
    mirror->metalness.contents = 1.0f;
    for (const float roughness : {0.4f, 0.7f, 1.0f}) {
        for (const double eye : {0.0, 50.0}) {
            mirror->roughness.contents = roughness;
            show(mirror, eye);
            const auto lean = static_cast<float>(glm::radians(eye));
            double whole = 0;
            for (int i = 0; i < kDirections; ++i) { // Vogel 1979: even over the hemisphere
                const float up = 1 - (static_cast<float>(i) + 0.5f) / kDirections;
                const float turn = 2.39996323f * static_cast<float>(i);
                const float side = std::sqrt(1 - up * up);
                const glm::vec3 way(side * std::cos(turn), side * std::sin(turn), up);
                shine(glm::angleAxis(lean, glm::vec3(0, 1, 0)) * way, 8.0 / kDirections);
                if (i % kMaxLights == kMaxLights - 1) {
                    whole += measured().g / 4;
                    clear(2);
                }
            }
            EXPECT_GT(whole, 0.85) << "roughness " << roughness << ", eye at " << eye;
            EXPECT_LT(whole, 1.08) << "roughness " << roughness << ", eye at " << eye;
            clear(1);
        }
    }
}

// Expected: Fresnel's 4 % at normal incidence, and what is left below it.
TEST_F(Shading, ALacquerShinesOverTheReliefBelowIt) {
    const auto material = makeMatte(Color::white(0));
    material->specular.contents = Color::white(0);
    material->normal.setImage(sharePicture(1, 1, {{230, 128, 200, 255}})); // leans far away
    show(material, 0);
    shine({0, 0, 1});
    const double bare = measured().g;
    material->clearCoat = 1;
    EXPECT_GT(measured().g, bare + 0.3);
    material->clearCoatRelief = 1;
    EXPECT_LT(measured().g, bare + 0.05) << "it follows the relief";
}

// A bump turned to a lamp behind the surface must stay dark.
TEST_F(Shading, NoLightComesThroughFromBehindARelief) {
    const auto material = makeMatte(Color::white(1));
    material->normal.setImage(sharePicture(1, 1, {{250, 128, 150, 255}}));
    show(material, 0);
    shine({0.98, 0, -0.2});
    EXPECT_LT(measured().g, 0.002);
    clear(2);
    shine({0.98, 0, 0.4});
    EXPECT_GT(measured().g, 0.2);
}

// Expected: the published reference of the Khronos PBR neutral tone mapper; for the last two, which
// move in hue, worked out by hand: 15 % of what is above white is added as bloom, and 60 % is each
// channel limited by itself.
TEST_F(Shading, ToneMapsAsThePublishedCurveAndMovesBrightHues) {
    using Row = std::pair<glm::dvec3, glm::dvec3>;

    camera->camera->wantsHDR = true;
    addSquare(makeMatte(Color::white(1)));
    for (const auto& [light, wanted] :
         {Row{{0.05, 0.05, 0.05}, {0.016, 0.016, 0.016}},
          {{0.5, 0.5, 0.5}, {0.460, 0.460, 0.460}},
          {{0.6, 0.1, 0.1}, {0.560, 0.060, 0.060}},
          {{1, 1, 1}, {0.869, 0.869, 0.869}},
          {{2, 1, 0.5}, {0.963, 0.757, 0.473}},
          {{60, 6, 6}, {0.999, 0.962, 0.962}}}) {
        for (int c = 0; c < 3; ++c) {
            Color color = Color::hex(c == 0 ? 0xFF0000 : c == 1 ? 0x00FF00 : 0x0000FF);
            addLight(SCNLightType::directional, {}, 1000 * light[c])->color = color;
        }
        const glm::dvec3 got = measured();
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(got[c], wanted[c], 0.006) << light.r << ", channel " << c;
        clear(2);
    }
}

// The wall of a letter that leans back: its lower end is in front, and a fifth of the light comes
// to the end beyond.
class LeaningWall final : public scene::SCNGeometry {
private:
    [[nodiscard]] geometry::Mesh build() const override {
        geometry::Mesh mesh = geometry::makePlane(4, 4);
        for (geometry::Vertex& vertex : mesh.vertices) {
            vertex.position.z = -vertex.position.y;
            vertex.openness = 0.2F;
        }
        mesh.elements.front().hasOpenness = true;
        return mesh;
    }
};

TEST_F(Shading, WallsAreDarkAtTheEndBeyond) {
    const auto material = makeMatte(Color::white(1));
    material->isDoubleSided = true;
    const auto node = addNode({});
    node->geometry = std::make_shared<LeaningWall>();
    node->geometry->materials = {material};
    addLight(SCNLightType::ambient, {}, 1000);
    const auto brightness = [&](int row) { return at(draw(), 32, row)[1]; };
    // At this distance the picture shows the middle half of the wall: a quarter and three quarters
    // of its height.
    EXPECT_EQ(brightness(1), 255) << "without a lamp, all keeps its colour";
    addLight(SCNLightType::directional, {}, 1);
    const int below = brightness(62);
    const int above = brightness(1);
    EXPECT_GT(below, lit(0.65, 255));
    EXPECT_LT(above, lit(0.4, 255));
    node->setEulerAngles({0, 3.1415927F, 0});
    EXPECT_NEAR(brightness(62), above, 12) << "from behind";
    EXPECT_NEAR(brightness(1), below, 12) << "from behind";
    (void)addSquare(material, 5);
    EXPECT_GT(brightness(32), 250) << "what is no wall";
}

} // namespace
} // namespace zelvo::render
