// SPDX-License-Identifier: MIT
#include "platform/scene/SCNTransaction.h"

#include "platform/foundation/Check.h"
#include "platform/scene/Timing.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace zelvo::scene {

namespace {

struct PropertyAnimation {
    std::shared_ptr<int> generation;
    int number = 0;
    std::function<void(float)> interpolate;
    double duration = 0;           ///< seconds
    std::optional<double> elapsed; ///< nothing before the first advance

    /// True if there was a later assignment, or if the property is gone.
    [[nodiscard]] bool isObsolete() const {
        return *generation != number || generation.use_count() == 1;
    }

    void advance(double step) {
        elapsed = elapsed ? *elapsed + step : 0.0;
        interpolate(hasEnded() ? 1 : static_cast<float>(*elapsed / duration));
    }

    [[nodiscard]] bool hasEnded() const { return elapsed && *elapsed >= duration - kTimeTolerance; }
};

/// Main thread only.
struct State {
    std::vector<double> durations; ///< of the open transactions, the innermost is last
    std::vector<PropertyAnimation> running;
};

State& state() {
    static State instance;
    return instance;
}

double& innermost() {
    CHECK(!state().durations.empty(), "no transaction is open");
    return state().durations.back();
}

} // namespace

void SCNTransaction::begin() {
    state().durations.push_back(0);
}

void SCNTransaction::commit() {
    CHECK(!state().durations.empty(), "a transaction is committed that was not begun");
    state().durations.pop_back();
}

void SCNTransaction::setAnimationDuration(double seconds) {
    CHECK(seconds >= 0, "a transaction cannot take {} s", seconds);
    innermost() = seconds;
}

bool SCNTransaction::isAnimating() {
    const std::vector<double>& durations = state().durations;
    return !durations.empty() && durations.back() > 0;
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

} // namespace zelvo::scene
