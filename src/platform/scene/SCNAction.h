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
    asGiven, ///< interpolates each Euler angle: 720 degrees are two turns
    shortest ///< interpolates the quaternion: the shortest way
};

/// Describes a change of a node over time. It can run on any node, any number of times
/// (SCNNode::runAction). Durations are seconds of scene time, angles radians, lengths scene units.
///
/// - Actions are evaluated once a frame, before drawing. An action added between two frames starts
///   in the next one, at elapsed time 0, and reads its starting value then.
/// - A step of duration 0 is done in the evaluation that starts it. If a step ends within a frame,
///   the rest of the frame's time goes to the next step of its sequence.
/// - A timing function bends the progress of the whole action it is set on, also for sequences and
///   groups.
/// - If two actions change one property, the one that started last wins. moveBy and rotateBy add
///   their change to that of any other action, even absolute ones.
/// - A time less than kTimeTolerance before an end counts as the end.
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
    /// Calls the block when its time is reached, during the evaluation. Takes no time.
    [[nodiscard]] static SCNActionPtr run(std::function<void(SCNNode&)> block);
    [[nodiscard]] static SCNActionPtr
    sequence(std::vector<SCNActionPtr> steps, TimingFunction timing = {});
    /// Runs all members together, evaluated in this order. Lasts as long as the longest one.
    [[nodiscard]] static SCNActionPtr
    group(std::vector<SCNActionPtr> members, TimingFunction timing = {});

    [[nodiscard]] double duration() const { return duration_; }

    /// The node that a run changes. `isCancelled` becomes true if a block takes the action off its
    /// node; the run must do nothing more then.
    struct Target {
        SCNNode& node;
        const bool& isCancelled;
    };

    /// One run of an action on a node. SCNNode starts it. The action must outlive it.
    class Run {
    public:
        virtual ~Run() = default;
        /// Brings the node to `elapsed` seconds of the action's time, from 0 to its duration. The
        /// first call reads the starting values. Time can go backwards if an outer timing function
        /// does.
        virtual void apply(const Target& target, double elapsed) = 0;
    };

    virtual ~SCNAction() = default;
    [[nodiscard]] virtual std::unique_ptr<Run> start() const = 0;

protected:
    SCNAction(double duration, TimingFunction timing);

    /// The progress after the timing function; an action without duration is at its end.
    [[nodiscard]] float progressAt(double elapsed) const;

    [[nodiscard]] bool isLinear() const { return !timing_; }

private:
    double duration_;
    TimingFunction timing_;
};

} // namespace zelvo::scene
