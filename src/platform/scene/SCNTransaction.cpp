// SPDX-License-Identifier: MIT
#include "platform/scene/SCNTransaction.h"

#include "platform/foundation/Check.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace zelvo::scene {

namespace {

struct Level {
    double duration = 0;
    TimingFunction timing;
};

struct PropertyAnimation {
    std::shared_ptr<int> generation;
    int number = 0;
    std::function<void(float)> interpolate;
    Level level;
    std::optional<double> elapsed; ///< nothing before the first advance

    /// True if there was a later assignment, or if the property is gone.
    [[nodiscard]] bool isObsolete() const {
        return *generation != number || generation.use_count() == 1;
    }

    void advance(double step) {
        elapsed = elapsed ? *elapsed + step : 0.0;
        if (hasEnded()) {
            interpolate(1);
            return;
        }
        const auto progress = static_cast<float>(*elapsed / level.duration);
        interpolate(level.timing ? level.timing(progress) : progress);
    }

    [[nodiscard]] bool hasEnded() const {
        return elapsed && *elapsed >= level.duration - kTimeTolerance;
    }
};

/// Main thread only.
struct State {
    std::vector<Level> levels; ///< the innermost is last
    std::vector<PropertyAnimation> running;
};

State& state() {
    static State instance;
    return instance;
}

Level& innermost() {
    CHECK(!state().levels.empty(), "no transaction is open");
    return state().levels.back();
}

} // namespace

void SCNTransaction::begin() {
    state().levels.emplace_back();
}

void SCNTransaction::commit() {
    CHECK(!state().levels.empty(), "a transaction is committed that was not begun");
    state().levels.pop_back();
}

void SCNTransaction::setAnimationDuration(double seconds) {
    CHECK(seconds >= 0, "a transaction cannot take {} s", seconds);
    innermost().duration = seconds;
}

void SCNTransaction::setAnimationTimingFunction(TimingFunction timing) {
    innermost().timing = std::move(timing);
}

bool SCNTransaction::isAnimating() {
    const std::vector<Level>& levels = state().levels;
    return !levels.empty() && levels.back().duration > 0;
}

void SCNTransaction::animate(
    const std::shared_ptr<int>& generation, std::function<void(float)> interpolate) {
    const int number = ++*generation;
    std::erase_if(state().running, [](const auto& animation) { return animation.isObsolete(); });
    state().running.push_back({generation, number, std::move(interpolate), innermost(), {}});
}

void SCNTransaction::advance(double step) {
    std::vector<PropertyAnimation>& running = state().running;
    for (PropertyAnimation& animation : running) {
        if (!animation.isObsolete())
            animation.advance(step);
    }
    std::erase_if(running, [](const PropertyAnimation& animation) {
        return animation.hasEnded() || animation.isObsolete();
    });
}

void SCNTransaction::flush() {
    const std::vector<PropertyAnimation> ending = std::exchange(state().running, {});
    for (const PropertyAnimation& animation : ending) {
        if (!animation.isObsolete())
            animation.interpolate(1);
    }
}

} // namespace zelvo::scene
