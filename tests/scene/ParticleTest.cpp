// SPDX-License-Identifier: MIT
#include "SceneSupport.h"
#include "platform/foundation/Random.h"

#include <glm/geometric.hpp>

#include <algorithm>
#include <cmath>

namespace zelvo::scene {
namespace {

SCNParticleSystemPtr makeSpray() {
    auto system = std::make_shared<SCNParticleSystem>();
    system->birthRate = 200;
    system->particleLifeSpan = 0.5f;
    system->particleLifeSpanVariation = 0.2f;
    system->emitterShape = ParticleShape::sphere(10);
    system->spreadingAngle = 90;
    system->particleVelocity = 40;
    system->particleVelocityVariation = 20;
    system->dampingFactor = 1.5f;
    system->wander = 3;
    return system;
}

std::vector<Particle> particlesOf(const SCNNode& node, std::size_t emitter = 0) {
    const auto live = node.emitters().at(emitter)->live();
    return {live.begin(), live.end()};
}

std::vector<Particle> reached(const std::vector<double>& times, std::uint64_t seed = 0) {
    Stage stage;
    const auto system = makeSpray();
    system->seed = seed;
    stage.node->addParticleSystem(system);
    stage.apply(times);
    return particlesOf(*stage.node);
}

void expectSame(const std::vector<Particle>& a, const std::vector<Particle>& b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        expectNear(a[i].position, b[i].position, 1e-3f);
        EXPECT_NEAR(a[i].size, b[i].size, 1e-5f);
        EXPECT_NEAR(a[i].angle, b[i].angle, 1e-5f);
    }
}

TEST(Particles, StandInTheSamePlacesInWhateverStepsTheTimeIsReached) {
    std::vector<double> frames;
    for (int i = 0; i <= 75; ++i)
        frames.push_back(i / 60.0);
    const auto inFrames = reached(frames);
    EXPECT_GT(inFrames.size(), 60U);
    expectSame(inFrames, reached({0, 1.25}));
    const auto others = reached({0, 1.25}, 7);
    ASSERT_FALSE(others.empty());
    EXPECT_GT(glm::distance(inFrames.front().position, others.front().position), 0.01f);
    foundation::seedRandom(5);
    const auto ofAnotherRun = reached({0, 1.25});
    static_cast<void>(foundation::arc4random());
    expectSame(ofAnotherRun, reached({0, 1.25}));
    foundation::seedRandom(0);
    EXPECT_GT(glm::distance(inFrames.front().position, ofAnotherRun.front().position), 0.01f);
}

TEST(Particles, AreTheSameInAReplayAndOthersInASecondEmitter) {
    const auto system = makeSpray();
    const auto sprayed = [&system](int emitters) {
        Stage stage;
        for (int i = 0; i < emitters; ++i)
            stage.node->addParticleSystem(system);
        stage.apply({0, 1.25});
        return particlesOf(*stage.node, static_cast<std::size_t>(emitters) - 1);
    };
    const auto first = sprayed(1);
    ASSERT_FALSE(first.empty());
    EXPECT_GT(glm::distance(first.front().position, sprayed(2).front().position), 0.01f);
    expectSame(first, sprayed(1));
}

TEST(Particles, AreAsManyAsRateTimesLife) {
    Stage stage;
    const auto system = makeSpray();
    stage.node->addParticleSystem(system);
    stage.apply({0, 0.25});
    EXPECT_NEAR(static_cast<double>(particlesOf(*stage.node).size()), 50, 1) << "none has died";
    stage.apply({8.3});
    EXPECT_NEAR(static_cast<double>(particlesOf(*stage.node).size()), 100, 12);
    system->warmupDuration = 3;
    stage.node->addParticleSystem(system);
    stage.apply({8.3});
    EXPECT_NEAR(static_cast<double>(particlesOf(*stage.node, 1).size()), 100, 12) << "warmed up";
    EXPECT_GT(
        glm::distance(
            particlesOf(*stage.node, 0).back().position,
            particlesOf(*stage.node, 1).back().position),
        0.01f)
        << "two of a kind are no twins";
}

TEST(Particles, OfOneBurstComeAtOnceAndEnd) {
    Stage stage;
    const auto system = makeSpray();
    system->loops = false;
    system->emissionDuration = 0.1f;
    system->speedFactor = 2;
    stage.node->addParticleSystem(system);
    stage.apply({0, 0.05});
    EXPECT_NEAR(static_cast<double>(particlesOf(*stage.node).size()), 20, 1);
    stage.apply({0.15});
    EXPECT_NEAR(static_cast<double>(particlesOf(*stage.node).size()), 20, 1) << "no more come";
    stage.apply({0.36});
    EXPECT_TRUE(particlesOf(*stage.node).empty());
    EXPECT_TRUE(stage.node->emitters().front()->isOver());

    system->loops = true; // one burst per second of its time
    system->idleDuration = 0.9f;
    stage.node->removeAllParticleSystems();
    stage.node->addParticleSystem(system);
    stage.apply({1, 1.49});
    EXPECT_TRUE(particlesOf(*stage.node).empty());
    stage.apply({1.55});
    EXPECT_NEAR(static_cast<double>(particlesOf(*stage.node).size()), 20, 1);
}

TEST(Particles, KeepToTheirRanges) {
    struct Row {
        const char* name;
        ParticleShape shape;
        ParticleBirthLocation location;
        bool (*holds)(const glm::vec3& place);
    };

    // clang-format off
    const Row rows[] = {
        {"sphere's skin", ParticleShape::sphere(5), ParticleBirthLocation::surface,
         [](const glm::vec3& p) { return std::abs(glm::length(p) - 5) < 1e-3f; }},
        {"sphere", ParticleShape::sphere(5), ParticleBirthLocation::volume,
         [](const glm::vec3& p) { return glm::length(p) < 5.001f; }},
        {"box's faces", {ParticleShapeKind::box, {1, 2, 3}}, ParticleBirthLocation::surface,
         [](const glm::vec3& p) {
             const glm::vec3 share = glm::abs(p) / glm::vec3(1, 2, 3);
             return std::abs(std::max({share.x, share.y, share.z}) - 1) < 1e-4f;
         }},
        {"plane", {ParticleShapeKind::plane, {4, 2, 0}}, ParticleBirthLocation::volume,
         [](const glm::vec3& p) { return std::abs(p.x) <= 4 && std::abs(p.y) <= 2 && p.z == 0; }},
        {"tube", {ParticleShapeKind::cylinder, {3, 6, 0}}, ParticleBirthLocation::surface,
         [](const glm::vec3& p) {
             return std::abs(std::hypot(p.x, p.z) - 3) < 1e-3f && std::abs(p.y) <= 6;
         }},
    };
    // clang-format on
    for (const Row& row : rows) {
        Stage stage;
        auto system = std::make_shared<SCNParticleSystem>();
        system->birthRate = 400;
        system->emitterShape = row.shape;
        system->birthLocation = row.location;
        system->particleSize = 10;
        system->particleSizeVariation = 4;
        stage.node->addParticleSystem(system);
        stage.apply({0, 1});
        const auto particles = particlesOf(*stage.node);
        EXPECT_GT(particles.size(), 300U);
        for (const Particle& particle : particles) {
            EXPECT_TRUE(row.holds(particle.position)) << row.name;
            EXPECT_NEAR(particle.size, 10, 2.001f);
        }
    }
}

TEST(Particles, FlyAsThrown) {
    Stage stage;
    auto system = std::make_shared<SCNParticleSystem>();
    system->birthRate = 10;
    system->particleLifeSpan = 2;
    system->particleVelocity = 100;
    system->acceleration = {20, 0, 0};
    system->particleAngularVelocity = 90;
    system->sizeOverLife = {{0, 0}, {0.5f, 2}};
    stage.node->addParticleSystem(system);
    stage.apply({0, 1.05});
    const Particle first = particlesOf(*stage.node).front(); // born at 0.05, one second old
    expectNear(first.position, {10, 100, 0}, 1e-3f);
    expectNear(first.velocity, {20, 100, 0}, 1e-3f);
    EXPECT_NEAR(first.size, 2, 1e-3f);
    EXPECT_NEAR(first.angle, 1.570796f, 1e-3f);

    system->dampingFactor = 2; // 100 / 2 * (1 - 1 / e^2)
    system->acceleration = {};
    stage.apply({1.05});
    expectNear(
        particlesOf(*stage.node).front().position, {0, 50 * (1 - std::exp(-2.0f)), 0}, 1e-3f);
}

TEST(Particles, AreLeftBehindByAMovingNodeUnlessTheyAreItsOwn) {
    for (const bool isLocal : {false, true}) {
        Stage stage;
        auto system = std::make_shared<SCNParticleSystem>();
        system->birthRate = 10;
        system->isLocal = isLocal;
        stage.node->addParticleSystem(system);
        stage.node->runAction(SCNAction::moveTo({100, 0, 0}, 1));
        for (int i = 0; i <= 60; ++i)
            stage.scene.applyAnimations(i / 60.0);
        const auto particles = particlesOf(*stage.node);
        ASSERT_EQ(particles.size(), 10U);
        expectNear(particles[0].position, {isLocal ? 100.0f : 5.0f, 0, 0}, 0.01f);
        expectNear(particles[9].position, {isLocal ? 100.0f : 95.0f, 0, 0}, 0.01f);
    }
}

TEST(ParticleFiles, TellWhatIsWrong) {
    using Row = std::pair<const char*, const char*>;

    // clang-format off
    for (const auto& [text, said] : std::vector<Row>{
             {R"({"birthRat": 5})",                                                    R"(did you mean "birthRate"?)"          },
             {R"({"birthRate": "many"})",                                              "birthRate"                             },
             {R"({"birthRate": 20000, "particleLifeSpan": 50})",                       "makes over 20000 particles"            },
             {R"({"emittingDirection": [0, 0, 0]})",                                   "must point somewhere"                  },
             {R"({"emitterShape": {"type": "cone"}})",                                 R"(unknown type "cone"; there is point)"},
             {R"({"particleColors": ["red"]})",                                        "particleColors[0]"                     },
             {R"({"particleImage": "none.png"})",                                      "names no usable picture"               },
             {R"({"sizeOverLife": [{"at": 0.5, "size": 1}, {"at": 0.2, "size": 1}]})",
              "after the one before"                                                                                           },
             {"[",                                                                     "line 1"                                }
    }) {
        // clang-format on
        const auto system = SCNParticleSystem::fromJSON(text, "x.scnp");
        ASSERT_FALSE(system.has_value()) << text;
        EXPECT_NE(system.error().message.find(said), std::string::npos) << system.error().message;
        EXPECT_EQ(system.error().message.find("x.scnp: "), 0U);
    }
}

TEST(ParticleFiles, StandOnNodesOfScenesToo) {
    const auto scene = SCNScene::fromJSON(
        R"({"nodes": [{"particles": [{"birthRate": 3}, {"birthRate": 4, "loops": false}]}]})", "s");
    ASSERT_TRUE(scene.has_value()) << scene.error().message;
    const SCNNodePtr node = (*scene)->rootNode()->childNodes().front();
    const auto systems = node->particleSystems();
    ASSERT_EQ(systems.size(), 2U);
    EXPECT_EQ(systems[1]->birthRate, 4);
    node->addParticleSystem(systems[0]);
    node->removeParticleSystem(systems[0]);
    EXPECT_EQ(node->particleSystems(), std::vector{systems[1]});
}

} // namespace
} // namespace zelvo::scene
