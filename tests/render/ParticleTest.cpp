// SPDX-License-Identifier: MIT
#include "StageFixture.h"

namespace zelvo::render {
namespace {

using scene::ParticleBlendMode;

class ParticleTest : public Stage {
protected:
    /// One motionless square of 1 unit in front of a grey wall.
    scene::SCNNodePtr addParticle(const glm::vec4& color, ParticleBlendMode mode, float z = 0) {
        auto system = std::make_shared<scene::SCNParticleSystem>();
        system->birthRate = 1;
        system->loops = false;
        system->warmupDuration = 1;
        system->particleLifeSpan = 60;
        system->particleColors = {color};
        system->blendMode = mode;
        scene::SCNNodePtr node = addNode({0, 0, z});
        node->addParticleSystem(system);
        return node;
    }

    void SetUp() override {
        // Ten times as far away with a tenth of the angle, because particles fade close to the
        // camera.
        camera->position = glm::vec3(0, 0, 100);
        camera->camera->fieldOfView = 1.145877; // 2 atan(1 / 100)
        camera->camera->zFar = 1000;
        addSquare(makeMaterial(image::Color::hex(0x404040)), -1);
    }
};

TEST_F(ParticleTest, CoversOrAddsByItsAlpha) {
    struct Row {
        glm::vec4 color;
        ParticleBlendMode mode;
        Pixel wanted;
    };

    for (const Row& row : std::initializer_list<Row>{
             {{1, 0, 0, 1}, ParticleBlendMode::alpha, {255, 0, 0}},
             {{1, 0, 0, 0.5f},
              ParticleBlendMode::alpha,
              {lit(0.5, 255, 0.5, 64), lit(0.5, 64), lit(0.5, 64)}},
             {{1, 0.5f, 0, 0.5f},
              ParticleBlendMode::additive,
              {lit(1.25, 128, 0.675, 64), lit(1.25, 64, 0.675, 64), lit(0.675, 64)}}}) {
        const scene::SCNNodePtr node = addParticle(row.color, row.mode);
        expectNear(middle(), row.wanted, 2);
        expectNear(at(draw(), 10, 32), {64, 64, 64}, 1); // beside it
        node->opacity = 0.0f;
        expectNear(middle(), {64, 64, 64}, 1);
        node->removeFromParentNode();
    }
}

TEST_F(ParticleTest, FadesWhereAWallCutsThroughIt) {
    addParticle({1, 0, 0, 1}, ParticleBlendMode::alpha, -3);
    addParticle({0, 1, 0, 1}, ParticleBlendMode::additive, -3);
    expectNear(middle(), {64, 64, 64}, 1); // behind the wall
    // A fifth of the ball is before the wall.
    const scene::SCNNodePtr node = addParticle({1, 0, 0, 1}, ParticleBlendMode::alpha, -1.3f);
    expectNear(middle(), {lit(0.2, 255, 0.8, 64), lit(0.8, 64), lit(0.8, 64)}, 3);
    node->removeFromParentNode();
    addParticle({1, 0, 0, 1}, ParticleBlendMode::alpha, -0.4f);
    expectNear(middle(), {255, 0, 0}, 2);
}

TEST_F(ParticleTest, KeepsTheHueOfManyGlows) {
    for (int i = 0; i < 20; ++i) {
        addParticle({1, 0.4f, 0, 0.9f}, ParticleBlendMode::additive);
    }
    const Pixel seen = middle();
    EXPECT_GT(seen[0], 250);
    EXPECT_LT(seen[1], 200);
    EXPECT_LT(seen[2], 120);
}

TEST_F(ParticleTest, TakesUpTheLightOnlyIfAsked) {
    scene->lightingEnvironment.contents = {};
    scene->background.contents = image::Color::hex(0x0000FF);
    for (const bool isLit : {false, true}) {
        const scene::SCNNodePtr node = addParticle({1, 1, 1, 1}, ParticleBlendMode::alpha);
        node->particleSystems().front()->lightingEnabled = isLit;
        EXPECT_EQ(middle()[0], isLit ? 0 : 255);
        EXPECT_EQ(middle()[2], 255);
        // The background lights it also where it is left out.
        const image::Image matte =
            renderer->snapshot({.time = 0, .outputSize = kSize, .leftOut = 2});
        EXPECT_EQ(at(matte, 32, 32), (Pixel{isLit ? 0 : 255, isLit ? 0 : 255, 255}));
        node->removeFromParentNode();
    }
}

TEST_F(ParticleTest, FadesBeforeTheCamera) {
    const scene::SCNNodePtr node = addParticle({1, 1, 1, 1}, ParticleBlendMode::additive, 45);
    const int half = middle()[0]; // 55 units away: half way between 20 and 90
    EXPECT_NEAR(half, lit(1.25, 128, 0.675, 64), 3);
    node->removeFromParentNode();
    addParticle({1, 1, 1, 1}, ParticleBlendMode::additive, 85);
    expectNear(middle(), {64, 64, 64}, 1);
}

} // namespace
} // namespace zelvo::render
