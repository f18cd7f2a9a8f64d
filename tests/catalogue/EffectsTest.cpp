// SPDX-License-Identifier: MIT
#include "catalogue/CatalogueFixture.h"
#include "platform/scene/SCNShapes.h"

#include <gmock/gmock.h>

#include <cmath>

namespace zelvo::catalogue {
namespace {

using testing::ElementsAre;

class EffectsTest : public test::CatalogueTest {
protected:
    /// Nodes that bursts have put on the stage.
    [[nodiscard]] const std::vector<scene::SCNNodePtr>& bursts() const {
        return nodes.particleAndParticleLightHolder->childNodes();
    }

    void replay() {
        controller.markAllNotRun();
        tick(clock + 0.01);
        beginActions();
        pressedAt = sceneTime;
    }
};

TEST_F(EffectsTest, ShowTheirButtonsUnderTheTabs) {
    const auto labels = [](std::string_view tab) {
        std::string row;
        for (const Button& button : tabNamed(tab)->buttons())
            row += std::string(button.face.label) + '=' + std::string(button.title) + ' ';
        return row;
    };
    EXPECT_EQ(
        labels("FX2"),
        "Drop=Drop Hit 1=Hit 1 Hit 2=Hit 2 LightBeams=LightBeams FireExplo=FireExplo Geo=Geo ");
    EXPECT_EQ(
        labels("FX3"),
        "ColorBeams=ColorBeams Clouds=Clouds Beacon=Beacon Woosh=Wosher Glitch=Wobble "
        "Voltage=Voltage ");
}

TEST_F(EffectsTest, FlashOnTheirOwnTimeAndGo) {
    struct Row {
        const char* title;
        double t;
        double start;
        image::Color color;
        const core::ParticleList& list;
    };

    const std::vector<Row> rows = {
        {"Drop",       0.47, 0,    {0, 0, 0.5f, 1},    nodes.particleBigDropExpo},
        {"Hit 1",      0.26, 0,    {1, 0.2f, 0, 1},    nodes.particleExplo3     },
        {"Hit 2",      0.3,  0,    {1, 0.5f, 0, 1},    nodes.particleExplo2     },
        {"LightBeams", 0.3,  1000, {0.8f, 0.8f, 1, 1}, nodes.lightBeams         },
    };
    for (const double speed : {0.2125, 0.85}) {
        factor = speed;
        for (const Row& row : rows) {
            press("FX2", row.title);
            ASSERT_EQ(bursts().size(), 1U) << row.title;
            const scene::SCNNodePtr node = bursts().front();
            const scene::SCNLight& light = *node->light;
            EXPECT_EQ(light.type, scene::SCNLightType::omni);
            EXPECT_EQ(light.categoryBitMask, 260U);
            EXPECT_EQ(light.color, row.color);
            EXPECT_EQ(node->particleSystems(), row.list);
            EXPECT_NEAR(light.intensity.presented(), row.start, 1e-3);
            goTo(row.t / 2);
            EXPECT_NEAR(light.intensity.presented(), (1e6 + row.start) / 2, 1) << row.title;
            goTo(row.t);
            EXPECT_NEAR(light.intensity.presented(), 1e6, 1);
            beginActions();
            goTo(1.5 * row.t);
            EXPECT_NEAR(light.intensity.presented(), 5e5, 1) << row.title;
            goTo(2 * row.t);
            EXPECT_NEAR(light.intensity.presented(), 0, 1);
            // The rest runs on the main queue's time.
            world.runLoop.runFor(0.09);
            EXPECT_FALSE(bursts().empty());
            world.runLoop.runFor(0.02);
            EXPECT_TRUE(bursts().empty()) << row.title;
            EXPECT_TRUE(node->particleSystems().empty());
        }
    }
}

TEST_F(EffectsTest, HaveDiedAwayWhenTheirBurstIsTakenOff) {
    const std::vector<std::pair<const char*, double>> rows = {
        {"Drop",       0.47},
        {"Hit 1",      0.26},
        {"Hit 2",      0.3 },
        {"LightBeams", 0.3 }
    };
    for (const auto& [title, t] : rows) {
        press("FX2", title);
        const scene::SCNNodePtr node = bursts().front();
        goTo(2 * t);
        goTo(2 * t + 0.1);
        for (const auto& emitter : node->emitters())
            EXPECT_TRUE(emitter->live().empty()) << title << ", " << emitter->system()->seed;
        world.runLoop.runFor(0.2);
    }
}

TEST_F(EffectsTest, HitOneKeepsItsPlaceInReplays) {
    plays = true;
    clock = 3;
    press("FX2", "Hit 1");
    const glm::vec3 first = bursts().front()->position;
    const glm::quat turn = bursts().front()->orientation();
    EXPECT_TRUE(std::abs(first.x) <= 124 && std::abs(first.y) <= 15 && first.z == 0);
    EXPECT_NEAR(turn.x, turn.y, 1e-4f);
    EXPECT_NEAR(turn.x, turn.z, 1e-4f);
    replay();
    ASSERT_EQ(bursts().size(), 2U) << "each ends by itself";
    EXPECT_EQ(bursts()[1]->position.value(), first);
    EXPECT_EQ(bursts()[1]->orientation(), turn);
    press("FX2", "Hit 1");
    EXPECT_NE(bursts()[2]->position.value(), first);
    EXPECT_THAT(recordedTitles(), ElementsAre("Hit 1", "Hit 1"));
}

TEST_F(EffectsTest, HangTheirListsOnTheHolder) {
    core::ParticleList wanted;
    const std::vector<std::tuple<const char*, const char*, const core::ParticleList*>> rows = {
        {"FX2", "FireExplo",  &nodes.fireExplo        },
        {"FX2", "Geo",        &nodes.geometryParticles},
        {"FX3", "ColorBeams", &nodes.colorfulBeams    },
        {"FX3", "Clouds",     &nodes.particleClouds   },
        {"FX3", "Voltage",    &nodes.particleVoltage  },
        {"FX3", "Voltage",    &nodes.particleVoltage  }
    };
    for (const auto& [tab, title, list] : rows) {
        press(tab, title);
        EXPECT_FALSE(list->empty());
        wanted.insert(wanted.end(), list->begin(), list->end());
    }
    EXPECT_EQ(nodes.particleAndParticleLightHolder->particleSystems(), wanted);
}

TEST_F(EffectsTest, BeaconSweepsBeforeTheCamera) {
    for (const double speed : {0.2125, 0.85}) {
        factor = speed;
        press("FX3", "Beacon");
        const scene::SCNNodePtr node = nodes.cameraNode->childNodes().back();
        const double d = 0.8 * speed;
        EXPECT_EQ(node->light->categoryBitMask, 4U);
        EXPECT_EQ(node->light->spotOuterAngle, 60);
        EXPECT_EQ(node->light->intensity.value(), 1e7);
        expectAt(*node, {-900, 0, 0});
        goTo(d / 4);
        expectAt(*node, {-450, 0, 0});
        goTo(d / 2);
        expectAt(*node, {0, 0, 0});
        goTo(d);
        expectAt(*node, {900, 0, 0});
        world.runLoop.runFor(0.11);
        EXPECT_EQ(node->parent(), nullptr);
    }
}

TEST_F(EffectsTest, WosherSweepsThreeTimesAndShedsSparkles) {
    const std::size_t before = nodes.mediaHolderNode->childNodes().size();
    for (int run = 0; run < 20; ++run) {
        press("FX3", "Wosher");
        const scene::SCNNodePtr carrier = nodes.mediaHolderNode->childNodes().back();
        const scene::SCNNodePtr plane = carrier->childNodes().front();
        const glm::vec3 at = carrier->position; // the carrier stands at (X, Y, -Z) at first
        const float z = -at.z;
        EXPECT_EQ(std::abs(at.x), 1700);
        EXPECT_TRUE(at.y >= -30 && at.y <= 50 && std::abs(z) <= 70) << at.y << ' ' << z;
        const auto box = plane->geometry->boundingBox();
        EXPECT_TRUE(
            box.max.x >= 600 && box.max.x <= 1140 && box.max.y >= 64 && box.max.y <= 102.5f);
        EXPECT_TRUE(plane->particleSystems().empty());

        // t is within (D .. D + 0.25) x 0.77; the first pass ends, mirrored, at 0.33 t.
        double turned = 0;
        while (carrier->scale.value().x > 0 && turned < 1)
            goTo(turned += 1.0 / 480);
        const double t = turned / 0.33;
        EXPECT_TRUE(t > 0.85 * 0.77 - 0.02 && t < 1.1 * 0.77 + 0.02) << t;
        EXPECT_NEAR(carrier->position.value().x, -at.x, 40);
        EXPECT_EQ(plane->particleSystems(), std::vector{nodes.wosherSparkles});
        EXPECT_NEAR(carrier->opacity.value(), 0, 0.05f) << "between two flickers";
        goTo(0.495 * t);
        EXPECT_NEAR(carrier->opacity.value(), 1, 0.06f);
        EXPECT_NEAR(carrier->position.value().x, 0, 80);
        goTo(1.01 * t);
        EXPECT_NEAR(carrier->position.value().x, -at.x, 1);
        EXPECT_EQ(carrier->scale.value().x, 1);
        world.runLoop.runFor(0.11);
        EXPECT_EQ(nodes.mediaHolderNode->childNodes().size(), before);
    }
}

TEST_F(EffectsTest, SparklesAreAsFixed) {
    const scene::SCNParticleSystem& sparkles = *nodes.wosherSparkles;
    EXPECT_EQ(sparkles.birthRate, 20);
    EXPECT_EQ(sparkles.speedFactor, 2);
    EXPECT_EQ(sparkles.particleSizeVariation, 75);
    EXPECT_EQ(sparkles.spreadingAngle, 360);
    EXPECT_NE(sparkles.particleImage, nullptr);
    for (const core::ParticleList* list : {&nodes.particleWosh, &nodes.particleXWosh})
        EXPECT_FALSE(list->empty());
    for (const char* file : {"Particles.scnp", "GTParticles.scnp"}) {
        const auto list = core::ParticleNodes::load(file);
        ASSERT_EQ(list.size(), 1U);
        EXPECT_TRUE(list.front()->loops) << "an environment's air never clears";
        EXPECT_LE(list.front()->mostAlive(), 2000);
    }
}

} // namespace
} // namespace zelvo::catalogue
