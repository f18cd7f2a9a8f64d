// SPDX-License-Identifier: MIT
#include "platform/scene/SCNAction.h"

#include "platform/foundation/Check.h"
#include "platform/scene/SCNNode.h"

#include <glm/common.hpp>
#include <glm/gtc/quaternion.hpp>

#include <algorithm>
#include <utility>

namespace zelvo::scene {

namespace {

/// An action that changes one property. Each run copies `Change`: begin(node) reads the starting
/// value, write(node, progress) sets the value for a progress.
template <class Change> class ChangeAction final : public SCNAction {
public:
    ChangeAction(double duration, TimingFunction timing, Change what)
        : SCNAction(duration, std::move(timing))
        , change(std::move(what)) {}

    [[nodiscard]] std::unique_ptr<Run> start() const override {
        return std::make_unique<ChangeRun>(*this);
    }

private:
    class ChangeRun final : public Run {
    public:
        explicit ChangeRun(const ChangeAction& owner)
            : action(owner)
            , change(owner.change) {}

        void apply(const Target& target, double elapsed) override {
            if (!hasBegun)
                change.begin(target.node);
            hasBegun = true;
            change.write(target.node, action.progressAt(elapsed));
        }

    private:
        const ChangeAction& action;
        Change change;
        bool hasBegun = false;
    };

    Change change;
};

struct MoveTo {
    glm::vec3 target;
    glm::vec3 from{};
    glm::vec3 addedBefore{};

    void begin(const SCNNode& node) {
        from = node.position.presented();
        addedBefore = node.addedPosition();
    }

    void write(SCNNode& node, float progress) const {
        node.position = glm::mix(from, target, progress) + (node.addedPosition() - addedBefore);
    }
};

struct MoveBy {
    glm::vec3 delta;
    float done = 0;

    void begin(const SCNNode&) { done = 0; }

    void write(SCNNode& node, float progress) {
        node.addToPosition(delta * (progress - done));
        done = progress;
    }
};

struct RotateTo {
    glm::vec3 target;
    glm::vec3 from{};
    glm::vec3 addedBefore{};

    void begin(const SCNNode& node) {
        from = node.eulerAngles();
        addedBefore = node.addedEulerAngles();
    }

    void write(SCNNode& node, float progress) const {
        node.setEulerAngles(
            glm::mix(from, target, progress) + (node.addedEulerAngles() - addedBefore));
    }
};

struct RotateShortest {
    glm::vec3 target;
    glm::quat from{1, 0, 0, 0};
    glm::quat to{1, 0, 0, 0};
    glm::vec3 addedBefore{};

    void begin(const SCNNode& node) {
        from = node.orientation();
        to = orientationFromEulerAngles(target);
        addedBefore = node.addedEulerAngles();
    }

    void write(SCNNode& node, float progress) const {
        const glm::vec3 added = node.addedEulerAngles() - addedBefore;
        // At the end, the angles must read exactly as given.
        if (progress == 1.0f) {
            node.setEulerAngles(target + added);
            return;
        }
        node.setOrientation(glm::slerp(from, to, progress)); // takes the shortest way
        if (added != glm::vec3(0))
            node.setEulerAngles(node.eulerAngles() + added);
    }
};

struct RotateBy {
    glm::vec3 delta;
    float done = 0;

    void begin(const SCNNode&) { done = 0; }

    void write(SCNNode& node, float progress) {
        node.addToEulerAngles(delta * (progress - done));
        done = progress;
    }
};

struct ScaleTo {
    glm::vec3 target;
    glm::vec3 from{};

    void begin(const SCNNode& node) { from = node.scale.presented(); }

    void write(SCNNode& node, float progress) const {
        node.scale = glm::mix(from, target, progress);
    }
};

struct FadeTo {
    float target;
    float from = 0;

    void begin(const SCNNode& node) { from = node.opacity.presented(); }

    void write(SCNNode& node, float progress) const {
        node.opacity = std::clamp(glm::mix(from, target, progress), 0.0f, 1.0f);
    }
};

struct Nothing {
    void begin(const SCNNode&) const {}

    void write(SCNNode&, float) const {}
};

class BlockAction final : public SCNAction {
public:
    explicit BlockAction(std::function<void(SCNNode&)> what)
        : SCNAction(0, {})
        , block(std::move(what)) {}

    [[nodiscard]] std::unique_ptr<Run> start() const override {
        return std::make_unique<BlockRun>(block);
    }

private:
    class BlockRun final : public Run {
    public:
        explicit BlockRun(const std::function<void(SCNNode&)>& what)
            : block(what) {}

        void apply(const Target& target, double) override {
            if (wasCalled)
                return;
            wasCalled = true;
            block(target.node);
        }

    private:
        const std::function<void(SCNNode&)>& block;
        bool wasCalled = false;
    };

    std::function<void(SCNNode&)> block;
};

template <class Change> SCNActionPtr make(double duration, TimingFunction timing, Change change) {
    return std::make_shared<ChangeAction<Change>>(duration, std::move(timing), std::move(change));
}

} // namespace

SCNAction::SCNAction(double duration, TimingFunction timing)
    : duration_(duration)
    , timing_(std::move(timing)) {
    CHECK(duration >= 0, "an action cannot take {} s", duration);
}

float SCNAction::progressAt(double elapsed) const {
    const float progress =
        elapsed >= duration_ ? 1.0f : static_cast<float>(std::max(0.0, elapsed / duration_));
    return timing_ ? timing_(progress) : progress;
}

SCNActionPtr SCNAction::moveTo(const glm::vec3& position, double duration, TimingFunction timing) {
    return make(duration, std::move(timing), MoveTo{position});
}

SCNActionPtr SCNAction::moveBy(const glm::vec3& delta, double duration, TimingFunction timing) {
    return make(duration, std::move(timing), MoveBy{delta});
}

SCNActionPtr SCNAction::rotateTo(
    const glm::vec3& eulerAngles, double duration, TimingFunction timing, UnitArc arc) {
    if (arc == UnitArc::shortest)
        return make(duration, std::move(timing), RotateShortest{eulerAngles});
    return make(duration, std::move(timing), RotateTo{eulerAngles});
}

SCNActionPtr
SCNAction::rotateBy(const glm::vec3& eulerAngles, double duration, TimingFunction timing) {
    return make(duration, std::move(timing), RotateBy{eulerAngles});
}

SCNActionPtr SCNAction::scaleTo(double scale, double duration, TimingFunction timing) {
    return make(duration, std::move(timing), ScaleTo{glm::vec3(static_cast<float>(scale))});
}

SCNActionPtr SCNAction::fadeIn(double duration, TimingFunction timing) {
    return make(duration, std::move(timing), FadeTo{1});
}

SCNActionPtr SCNAction::fadeOut(double duration, TimingFunction timing) {
    return make(duration, std::move(timing), FadeTo{0});
}

SCNActionPtr SCNAction::wait(double duration) {
    return make(duration, {}, Nothing{});
}

SCNActionPtr SCNAction::run(std::function<void(SCNNode&)> block) {
    CHECK(block != nullptr, "an action is to call an empty block");
    return std::make_shared<BlockAction>(std::move(block));
}

} // namespace zelvo::scene
