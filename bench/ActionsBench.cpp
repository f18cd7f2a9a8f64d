// SPDX-License-Identifier: MIT

#include "platform/scene/SCNScene.h"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

using namespace zelvo::scene;

constexpr int kNodes = 150;
constexpr int kActions = 100;
constexpr double kForever = 1e9; ///< seconds; nothing ends during the measurement

float sineInOut(float t) {
    return (std::cos(t * 3.1415925f) - 1) * -0.5f;
}

/// Actions as in a busy moment: moves, rotations, fades and sequences, most with timing functions.
SCNActionPtr makeAction(int number) {
    switch (number % 5) {
    case 0:
        return SCNAction::moveTo({1, 2, 3}, kForever, sineInOut);
    case 1:
        return SCNAction::rotateTo({1, 20, 3}, kForever, sineInOut);
    case 2:
        return SCNAction::rotateTo({1, 2, 3}, kForever, {}, UnitArc::shortest);
    case 3:
        return SCNAction::group({SCNAction::scaleTo(2, kForever), SCNAction::fadeOut(kForever)});
    default:
        return SCNAction::sequence(
            {SCNAction::moveTo({9, 9, 9}, 0),
             SCNAction::wait(0.01),
             SCNAction::moveBy({1, 2, 3}, kForever)},
            sineInOut);
    }
}

/// A tree like that of a stage with two texts: rigs of ten levels with letters below.
void evaluateRunningActions(benchmark::State& state) {
    SCNScene scene;
    SCNNodePtr parent = scene.rootNode();
    for (int i = 0; i < kNodes; ++i) {
        const auto node = std::make_shared<SCNNode>();
        if (i < kActions)
            node->runAction(makeAction(i));
        parent->addChildNode(node);
        parent = i % 15 < 10 ? node : i % 15 == 14 ? scene.rootNode() : parent;
    }
    double time = 0;
    for ([[maybe_unused]] auto _ : state) {
        scene.applyAnimations(time);
        time += 1.0 / 60;
    }
}

BENCHMARK(evaluateRunningActions)->Unit(benchmark::kMicrosecond);

} // namespace
