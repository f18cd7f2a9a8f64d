// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/scene/SCNAction.h"

#include <algorithm>
#include <utility>

namespace zelvo::scene {

namespace {

/// Base of sequence and group: its members run in its own time, which a timing function may bend.
class CompositeAction : public SCNAction {
public:
    CompositeAction(std::vector<SCNActionPtr> parts, double duration, TimingFunction timing)
        : SCNAction(duration, std::move(timing))
        , members(std::move(parts)) {}

    /// The members' time in seconds. At the end all members are finished, even if the timing
    /// function does not end at 1.
    [[nodiscard]] double membersTime(double elapsed) const {
        if (isLinear() || elapsed >= duration())
            return elapsed;
        return std::clamp(static_cast<double>(progressAt(elapsed)), 0.0, 1.0) * duration();
    }

    [[nodiscard]] std::vector<std::unique_ptr<Run>> startMembers() const {
        std::vector<std::unique_ptr<Run>> runs;
        runs.reserve(members.size());
        for (const SCNActionPtr& member : members) {
            runs.push_back(member->start());
        }
        return runs;
    }

    const std::vector<SCNActionPtr> members;
};

class SequenceAction final : public CompositeAction {
public:
    SequenceAction(
        std::vector<SCNActionPtr> steps, std::vector<double> beginnings, TimingFunction timing)
        : CompositeAction(std::move(steps), beginnings.back(), std::move(timing))
        , begins(std::move(beginnings)) {}

    [[nodiscard]] std::unique_ptr<Run> start() const override {
        return std::make_unique<SequenceRun>(*this);
    }

private:
    class SequenceRun final : public Run {
    public:
        explicit SequenceRun(const SequenceAction& owner)
            : action(owner)
            , runs(owner.startMembers()) {}

        void apply(const Target& target, double elapsed) override {
            const double time = action.membersTime(elapsed);
            goBack(target, time);
            goForward(target, time);
        }

    private:
        /// Undoes the steps that begin after this time, last one first.
        void goBack(const Target& target, double time) {
            while (current > 0 && time < action.begins[current] - kTimeTolerance) {
                if (current < runs.size())
                    runs[current]->apply(target, 0);
                if (target.isCancelled)
                    return;
                --current;
            }
        }

        /// Finishes the steps that end before this time, then applies the current one.
        void goForward(const Target& target, double time) {
            while (current < runs.size() && !target.isCancelled) {
                const double duration = action.members[current]->duration();
                const double inStep = std::max(0.0, time - action.begins[current]);
                const bool isDone = inStep >= duration - kTimeTolerance;
                runs[current]->apply(target, isDone ? duration : inStep);
                if (!isDone)
                    return;
                ++current;
            }
        }

        const SequenceAction& action;
        std::vector<std::unique_ptr<Run>> runs;
        std::size_t current = 0; ///< equal to the number of steps when all are done
    };

    std::vector<double> begins; ///< of each step, and the end of the last one
};

class GroupAction final : public CompositeAction {
public:
    using CompositeAction::CompositeAction;

    [[nodiscard]] std::unique_ptr<Run> start() const override {
        return std::make_unique<GroupRun>(*this);
    }

private:
    class GroupRun final : public Run {
    public:
        explicit GroupRun(const GroupAction& owner)
            : action(owner)
            , runs(owner.startMembers())
            , isDone(runs.size()) {}

        void apply(const Target& target, double elapsed) override {
            const double time = action.membersTime(elapsed);
            for (std::size_t i = 0; i < runs.size() && !target.isCancelled; ++i) {
                const double duration = action.members[i]->duration();
                const bool hasReachedEnd = time >= duration - kTimeTolerance;
                // A finished member must not overwrite what others write.
                if (hasReachedEnd && isDone[i])
                    continue;
                isDone[i] = hasReachedEnd;
                runs[i]->apply(target, hasReachedEnd ? duration : time);
            }
        }

    private:
        const GroupAction& action;
        std::vector<std::unique_ptr<Run>> runs;
        std::vector<bool> isDone;
    };
};

void checkMembers(const std::vector<SCNActionPtr>& members) {
    const bool areAllThere = std::find(members.begin(), members.end(), nullptr) == members.end();
    CHECK(areAllThere, "an action is made of {} others, one of them null", members.size());
}

} // namespace

SCNActionPtr SCNAction::sequence(std::vector<SCNActionPtr> steps, TimingFunction timing) {
    checkMembers(steps);
    std::vector<double> begins{0};
    begins.reserve(steps.size() + 1);
    for (const SCNActionPtr& step : steps) {
        begins.push_back(begins.back() + step->duration());
    }
    return std::make_shared<SequenceAction>(std::move(steps), std::move(begins), std::move(timing));
}

SCNActionPtr SCNAction::group(std::vector<SCNActionPtr> members, TimingFunction timing) {
    checkMembers(members);
    double longest = 0;
    for (const SCNActionPtr& member : members) {
        longest = std::max(longest, member->duration());
    }
    return std::make_shared<GroupAction>(std::move(members), longest, std::move(timing));
}

} // namespace zelvo::scene
