// SPDX-License-Identifier: MIT
#include "document/Performer.h"

#include "catalogue/Catalogue.h"
#include "document/SetUp.h"
#include "document/StageStyling.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/Random.h"
#include "shared/FrameClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace zelvo::document {

namespace {

using actions::GestureState;
using shared::FrameClock;

/// The value at a place in the list; between two values, a mixture of them.
template <class Value> Value along(const std::vector<Value>& values, double place) {
    const auto before = static_cast<std::size_t>(place);
    if (before + 1 >= values.size())
        return values.back();
    return values[before] + (values[before + 1] - values[before]) * (place - std::floor(place));
}

/// Presses and moves as the cues say, and lets the controller record it.
class Hand {
public:
    Hand(const Performance& score, model::Model& played)
        : performance(score)
        , model(played) {}

    [[nodiscard]] bool isDone() const { return next >= performance.cues.size() && later.empty(); }

    /// Does all that is due at `time` of the clock (seconds since the count-in began).
    void pressDue(double time) {
        const auto& cues = performance.cues;
        const double movieTime = time - model.startCounter();
        while (next < cues.size() && FrameClock::hasCome(cues[next].at, movieTime)) {
            goOn(cues[next].at);
            now = cues[next].at;
            std::visit([this](const auto& what) { act(what); }, cues[next++].act);
        }
        goOn(movieTime);
    }

private:
    /// Performs the later steps of cues (moves and releases) that are due.
    void goOn(double movieTime) {
        while (!later.empty() && FrameClock::hasCome(later.begin()->first, movieTime))
            later.extract(later.begin()).mapped()();
    }

    void act(const Undo&) { controller().undo(); }

    void act(const Redo&) { controller().redo(); }

    void act(const DoubleTap&) { gestures().doubleTap(); }

    /// The steps of a gesture that are touches: from `first` up to, but not at, `end`. A drag that goes
    /// on has its former place as step 0.
    struct Steps {
        std::size_t first = 0;
        std::size_t end = 0;
    };

    /// A touch of a gesture, at one of its steps or between two.
    using Touch = std::function<void(GestureState state, double step)>;

    void act(const Pan& cue) {
        if (!cue.begins)
            gestures().resumePan(glm::vec2(cue.points.front()));
        const std::size_t first = cue.begins ? 0 : 1;
        touch(cue, {first, cue.points.size()}, [this, points = cue.points](auto state, double at) {
            gestures().pan(state, glm::vec2(along(points, at)));
        });
    }

    void act(const Pinch& cue) {
        if (!cue.begins)
            gestures().resumePinch();
        touch(
            cue,
            {0, cue.velocities.size()},
            [this, velocities = cue.velocities](auto state, double at) {
                gestures().pinch(state, static_cast<float>(along(velocities, at)));
            });
    }

    void touch(const Fingers& fingers, const Steps& steps, const Touch& touch) {
        if (fingers.times.empty()) {
            glide({now, fingers.lasts.value_or(0), steps.end, touch, fingers.releaseSpeed});
            return;
        }
        for (std::size_t i = steps.first; i < steps.end; ++i) {
            const bool begins = i == 0 && fingers.begins;
            later.emplace(now + fingers.times[i], [touch, begins, i] {
                touch(begins ? GestureState::began : GestureState::changed, static_cast<double>(i));
            });
        }
        if (!fingers.lasts)
            return;
        const auto last = static_cast<double>(steps.end - 1);
        later.emplace(now + *fingers.lasts, [this, touch, last, speed = fingers.releaseSpeed] {
            lift(touch, last, speed);
        });
    }

    /// A gesture whose steps come in equal times.
    struct Glide {
        double cameDown = 0; ///< seconds of the movie
        double lasts = 0;
        std::size_t steps = 0;
        Touch touch;
        std::optional<std::string> releaseSpeed;

        [[nodiscard]] int lastNumber() const {
            return std::max(1, FrameClock::nearestFrame(lasts));
        }
    };

    /// Sends a touch in every frame, like a touch screen; the last one lifts the fingers. Each
    /// touch adds only the next one to `later`, so that a long gesture needs one entry there.
    void glide(const Glide& fingers, int number = 0) {
        const int last = fingers.lastNumber();
        const double share = static_cast<double>(number) / last;
        const double step = share * static_cast<double>(fingers.steps - 1);
        later.emplace(fingers.cameDown + share * fingers.lasts, [=, this] {
            fingers.touch(number == 0 ? GestureState::began : GestureState::changed, step);
            if (number < last) {
                glide(fingers, number + 1);
            } else {
                lift(fingers.touch, step, fingers.releaseSpeed);
            }
        });
    }

    /// A gesture takes the model's speed, so that is set for the moment.
    void lift(const Touch& touch, double step, const std::optional<std::string>& speed) const {
        const auto own = model.animationRatio;
        if (speed)
            model.animationRatio = speedTitled(*speed);
        touch(GestureState::ended, step);
        model.animationRatio = own;
    }

    void act(const Press& cue) {
        const auto* const tab = catalogue::tabNamed(cue.tab);
        CHECK(tab != nullptr, "no tab is called {}", cue.tab);
        const auto buttons = tab->buttons();
        const auto button = std::ranges::find(buttons, cue.title, &catalogue::Button::title);
        CHECK(button != buttons.end(), "no button of tab {} is called {}", cue.tab, cue.title);
        auto context = contextOf(cue);
        catalogue::press(*tab, *button, context, cue.seed.value_or(foundation::arc4random()));
        if (!cue.held)
            return;
        context.animationFactor = factorOf(cue.releaseSpeed);
        if (!cue.releaseNodes.empty())
            context.affectedNodes = nodesOf(cue.releaseNodes);
        later.emplace(
            now + *cue.held, [held = *button, context] { catalogue::release(held, context); });
    }

    [[nodiscard]] catalogue::PressContext contextOf(const Press& cue) const {
        return {
            .controller = model.actionController(),
            .affectedNodes = nodesOf(cue.nodes),
            .animationFactor = factorOf(cue.speed)};
    }

    [[nodiscard]] double factorOf(const std::optional<std::string>& speed) const {
        return speed ? model::speedOf(speedTitled(*speed)).animationFactor
                     : model.animationFactor();
    }

    [[nodiscard]] std::vector<node::NodePtr> nodesOf(const std::vector<std::string>& names) const {
        const stage::Nodes& stage = model.nodes();
        if (names.empty())
            return stage.content();
        std::vector<node::NodePtr> nodes;
        nodes.reserve(names.size());
        for (const auto& name : names)
            nodes.push_back(nodeNamed(name, stage));
        return nodes;
    }

    [[nodiscard]] actions::ActionController& controller() const { return model.actionController(); }

    [[nodiscard]] actions::Gestures& gestures() const { return controller().gestures; }

    const Performance& performance;
    model::Model& model;
    /// What is still to do, by seconds of the movie. Calls of the same time keep their order.
    std::multimap<double, std::function<void()>> later;
    double now = 0; ///< time of the current cue, seconds of the movie
    std::size_t next = 0;
};

} // namespace

void perform(const Performance& performance, model::Model& model) {
    Hand hand(performance, model);
    FrameClock clock(model.startCounter());
    for (; !hand.isDone(); clock.advance())
        model.actionController().recordAt(clock.time(), [&] { hand.pressDue(clock.time()); });
}

} // namespace zelvo::document
