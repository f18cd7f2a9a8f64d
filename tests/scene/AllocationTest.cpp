// SPDX-License-Identifier: MIT
#include "SceneSupport.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0; // in the whole program, which has one thread

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    std::abort();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace zelvo::scene {
namespace {

TEST(Evaluation, TakesNoMemoryWhileActionsRun) {
    Stage stage;
    const auto timing = [](float t) { return t * t; };
    stage.node->runAction(SCNAction::sequence(
        {SCNAction::group({SCNAction::moveTo({1, 2, 3}, 1, timing), SCNAction::fadeOut(1)}, timing),
         SCNAction::rotateTo({1, 2, 3}, 1, timing, UnitArc::shortest),
         SCNAction::scaleTo(2, 1)}));
    int ended = 0;
    for (int i = 0; i < 10; ++i) {
        stage.node->runAction(SCNAction::wait(1), [&] { ++ended; });
    }
    SCNTransaction::begin();
    SCNTransaction::setAnimationDuration(2);
    stage.node->opacity = 0.5f;
    SCNTransaction::commit();
    stage.apply({0, 1.1}); // all completions in one frame, so that the lists have their final size
    const std::size_t before = allocations;
    for (int frame = 0; frame < 120; ++frame) {
        stage.scene.applyAnimations(1.2 + frame / 60.0);
    }
    EXPECT_EQ(allocations, before);
    EXPECT_EQ(ended, 10);
}

} // namespace
} // namespace zelvo::scene
