// SPDX-License-Identifier: MIT
// Records become cues again.
#include "catalogue/Catalogue.h"
#include "document/CueReader.h"
#include "document/StageReading.h"
#include "shared/FrameClock.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace zelvo::document {

namespace {

using actions::GestureState;
using actions::XACPtr;

constexpr double kDigits = 1e4; ///< times are written with four, much finer than a frame

/// A record comes in the first tick that has reached its time. That tick's time, in seconds of the
/// movie: a press that was moved to a beat lies between two ticks.
[[nodiscard]] double momentOf(const actions::XAC& record, double countIn) {
    const double tick =
        shared::FrameClock::secondsOf(shared::FrameClock::frameReaching(record.time));
    return std::round((tick - countIn) * kDigits) / kDigits;
}

/// The title of the speed with that base duration.
[[nodiscard]] std::string speedOf(double animationFactor) {
    return std::string(model::speedWith(animationFactor).title);
}

template <class Move> [[nodiscard]] const Move* moveOf(const XACPtr& record) {
    return record->origin ? std::get_if<Move>(record->origin.get()) : nullptr;
}

class CueWriter {
public:
    explicit CueWriter(const model::Model& model)
        : countIn(model.startCounter())
        , allNodes(model.nodes().content().size()) {}

    [[nodiscard]] std::optional<Cue> cueOf(const ActRecords& act) const {
        Cue cue{momentOf(*act.front(), countIn), DoubleTap{}};
        if (const auto* const press = moveOf<actions::ButtonPress>(act.front()))
            cue.act = pressOf(*press, act);
        else if (moveOf<actions::PanTouch>(act.front()) != nullptr)
            cue.act = panOf(act);
        else if (moveOf<actions::PinchTouch>(act.front()) != nullptr)
            cue.act = pinchOf(act);
        else if (moveOf<actions::DoubleTap>(act.front()) == nullptr)
            return std::nullopt;
        return cue;
    }

private:
    [[nodiscard]] Press pressOf(const actions::ButtonPress& move, const ActRecords& act) const {
        Press press;
        press.tab = move.tab;
        press.title = move.title;
        press.nodes = unlessAll(move.nodes);
        press.speed = speedOf(move.animationFactor);
        press.seed = move.seed;
        press.isHeld = isHeldButton(move);
        const auto* const release = moveOf<actions::ButtonRelease>(act.back());
        if (release == nullptr)
            return press;
        press.held = since(act.front(), act.back());
        press.releaseSpeed = speedOf(release->animationFactor);
        if (release->nodes != move.nodes)
            press.releaseNodes = release->nodes;
        return press;
    }

    [[nodiscard]] static bool isHeldButton(const actions::ButtonPress& move) {
        for (const catalogue::Button& button : catalogue::tabNamed(move.tab)->buttons()) {
            if (button.title == move.title)
                return button.isHold();
        }
        return false;
    }

    /// All nodes in their order are what a cue without nodes means.
    [[nodiscard]] std::vector<std::string> unlessAll(std::vector<std::string> nodes) const {
        return nodes.size() == allNodes && std::ranges::equal(nodes, nodeNames())
                   ? std::vector<std::string>()
                   : std::move(nodes);
    }

    [[nodiscard]] Pan panOf(const ActRecords& act) const {
        Pan pan;
        const auto* const first = moveOf<actions::PanTouch>(act.front());
        pan.begins = first->state == GestureState::began;
        if (!pan.begins) { // the finger was down before the recording began
            pan.points.emplace_back(first->previous);
            pan.times.push_back(0);
        }
        for (const XACPtr& record : act) {
            const auto* const touch = moveOf<actions::PanTouch>(record);
            if (touch->state == GestureState::began || touch->state == GestureState::changed) {
                pan.points.emplace_back(touch->location);
                pan.times.push_back(since(act.front(), record));
            } else {
                lift(pan, touch->animationFactor, since(act.front(), record));
            }
        }
        return pan;
    }

    [[nodiscard]] Pinch pinchOf(const ActRecords& act) const {
        Pinch pinch;
        pinch.begins = moveOf<actions::PinchTouch>(act.front())->state == GestureState::began;
        for (const XACPtr& record : act) {
            const auto* const touch = moveOf<actions::PinchTouch>(record);
            if (touch->state == GestureState::ended) {
                lift(pinch, touch->animationFactor, since(act.front(), record));
            } else {
                pinch.velocities.push_back(double{touch->velocity});
                pinch.times.push_back(since(act.front(), record));
            }
        }
        return pinch;
    }

    static void lift(Fingers& fingers, double animationFactor, double at) {
        fingers.lasts = at;
        fingers.releaseSpeed = speedOf(animationFactor);
    }

    [[nodiscard]] double since(const XACPtr& first, const XACPtr& record) const {
        const double passed = momentOf(*record, countIn) - momentOf(*first, countIn);
        return std::max(0.0, std::round(passed * kDigits) / kDigits);
    }

    double countIn;
    std::size_t allNodes;
};

} // namespace

std::vector<ActRecords> actsIn(const std::vector<XACPtr>& records) {
    std::vector<ActRecords> acts;
    std::map<int, std::size_t> placeOf; // by identifier
    for (const XACPtr& record : records) {
        const auto [place, isNew] = placeOf.try_emplace(record->identifier, acts.size());
        if (isNew)
            acts.emplace_back();
        acts[place->second].push_back(record);
    }
    return acts;
}

std::optional<Cue> cueOf(const ActRecords& act, const model::Model& model) {
    return CueWriter(model).cueOf(act);
}

std::vector<Cue> cuesOf(const model::Model& model) {
    std::vector<Cue> cues;
    for (const ActRecords& act : actsIn(model.actionController().recordedActions())) {
        if (auto cue = cueOf(act, model))
            cues.push_back(std::move(*cue));
    }
    std::ranges::stable_sort(cues, {}, &Cue::at);
    return cues;
}

} // namespace zelvo::document
