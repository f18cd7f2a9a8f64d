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
///   their own increment and combine with all others.
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
    /// Lasts as long as its longest member.
    [[nodiscard]] static SCNActionPtr
    group(std::vector<SCNActionPtr> members, TimingFunction timing = {});

    [[nodiscard]] double duration() const { return duration_; }

    /// One run of an action on a node; made by SCNNode, advanced once a frame.
    class Run {
    public:
        virtual ~Run() = default;
        /// Moves on by `step` seconds; the first call is made with 0. Returns what is left of the
        /// step after the action's end (>= 0), or a negative number while it goes on.
        virtual double advance(SCNNode& node, double step) = 0;
    };

    virtual ~SCNAction() = default;
    [[nodiscard]] virtual std::unique_ptr<Run> start() const = 0;

protected:
    SCNAction(double duration, TimingFunction timing);

    double duration_;
    TimingFunction timing;
};

} // namespace zelvo::scene
