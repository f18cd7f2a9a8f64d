// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scene/Timing.h"

#include <glm/vec3.hpp>

#include <functional>
#include <memory>
#include <vector>

namespace zelvo::scene {

class SCNNode;
class SCNAction;
using SCNActionPtr = std::shared_ptr<const SCNAction>;

enum class UnitArc {
    asGiven, ///< each Euler angle travels linearly: 720 degrees are two turns
    shortest ///< by the quaternion, the short way round
};

/// A change of a node over time, described once and run on any node any number of times
/// (SCNNode::runAction). Durations are seconds of the scene's clock, angles radians, lengths scene
/// units.
///
/// - Evaluated once per frame, before drawing. An action added between two frames starts with the
/// next one, at elapsed
///   0, and takes its starting value then.
/// - A step of duration 0 is done in the evaluation that starts it. What a step does not use of a
/// frame's time passes on
///   to the next step of its sequence.
/// - The timing function bends the progress of the whole action it is set on (a sequence's or
/// group's too).
/// - Two actions on one property: each writes in the order of starting, the last one stands. moveBy
/// and rotateBy add
///   their own increment and combine with all others, absolute ones that run at the same time
///   included.
/// - What is less than kTimeTolerance short of an end has reached it.
class SCNAction {
public:
    [[nodiscard]] static SCNActionPtr
    moveTo(const glm::vec3& position, double duration, TimingFunction timing = {});
    [[nodiscard]] static SCNActionPtr
    moveBy(const glm::vec3& delta, double duration, TimingFunction timing = {});
    [[nodiscard]] static SCNActionPtr rotateTo(
        const glm::vec3& eulerAngles,
        double duration,
        TimingFunction timing = {},
        UnitArc arc = UnitArc::asGiven);
    [[nodiscard]] static SCNActionPtr
    rotateBy(const glm::vec3& eulerAngles, double duration, TimingFunction timing = {});
    [[nodiscard]] static SCNActionPtr
    scaleTo(double scale, double duration, TimingFunction timing = {});
    [[nodiscard]] static SCNActionPtr fadeIn(double duration, TimingFunction timing = {});
    [[nodiscard]] static SCNActionPtr fadeOut(double duration, TimingFunction timing = {});
    [[nodiscard]] static SCNActionPtr wait(double duration);
    /// Calls back during the evaluation, at the time it is reached; takes no time itself.
    [[nodiscard]] static SCNActionPtr run(std::function<void(SCNNode&)> block);
    [[nodiscard]] static SCNActionPtr
    sequence(std::vector<SCNActionPtr> steps, TimingFunction timing = {});
    /// All at once, each evaluated in the order given. Lasts as long as its longest member.
    [[nodiscard]] static SCNActionPtr
    group(std::vector<SCNActionPtr> members, TimingFunction timing = {});

    [[nodiscard]] double duration() const { return duration_; }

    /// What a run works on, and whether it was taken off its node meanwhile (a block may do that):
    /// then nothing more of it may be done.
    struct Target {
        SCNNode& node;
        const bool& isCancelled;
    };

    /// One run of an action on a node; started by SCNNode, must not outlive the action.
    class Run {
    public:
        virtual ~Run() = default;
        /// Brings the node to `elapsed` seconds of the action's own time, 0 to its duration. The
        /// first call takes the starting values. Time mostly grows, but goes back where an
        /// enclosing action's timing function does.
        virtual void apply(const Target& target, double elapsed) = 0;
    };

    virtual ~SCNAction() = default;
    [[nodiscard]] virtual std::unique_ptr<Run> start() const = 0;

protected:
    SCNAction(double duration, TimingFunction timing);

    /// The bent progress at a time, that of the end for an action without duration.
    [[nodiscard]] float progressAt(double elapsed) const;

    [[nodiscard]] bool isLinear() const { return !timing_; }

private:
    double duration_;
    TimingFunction timing_;
};

} // namespace zelvo::scene
