// SPDX-License-Identifier: MIT
#include "document/ActEdits.h"

#include "document/Performer.h"
#include "document/StageReading.h"
#include "shared/FrameClock.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace zelvo::document {

namespace {

using actions::XACPtr;
using Records = std::vector<XACPtr>;

[[nodiscard]] ActKind kindOf(const Cue& cue) {
    if (const auto* const press = std::get_if<Press>(&cue.act))
        return press->isHeld ? ActKind::hold : ActKind::press;
    if (std::holds_alternative<Pan>(cue.act))
        return ActKind::drag;
    return std::holds_alternative<Pinch>(cue.act) ? ActKind::pinch : ActKind::center;
}

[[nodiscard]] bool isReleased(const Cue& cue) {
    if (const auto* const press = std::get_if<Press>(&cue.act))
        return !press->isHeld || press->held;
    const auto* const pan = std::get_if<Pan>(&cue.act);
    const auto* const pinch = std::get_if<Pinch>(&cue.act);
    return (pan == nullptr || pan->lasts) && (pinch == nullptr || pinch->lasts);
}

[[nodiscard]] std::string titleOf(const ActRecords& records) {
    const auto first = std::ranges::find_if(
        records, &actions::XAC::registerUndo, [](const XACPtr& record) -> const actions::XAC& {
            return *record;
        });
    return first == records.end() ? records.front()->title : (*first)->title;
}

[[nodiscard]] std::optional<Act> actOf(const ActRecords& records, const model::Model& model) {
    const auto cue = cueOf(records, model);
    if (!cue)
        return std::nullopt;
    Act act{
        .identifier = records.front()->identifier,
        .kind = kindOf(*cue),
        .begins = records.front()->time - model.startCounter(),
        .ends = records.back()->time - model.startCounter(),
        .title = titleOf(records),
        .isReleased = isReleased(*cue)};
    if (const auto* const press =
            std::get_if<actions::ButtonPress>(records.front()->origin.get())) {
        act.tab = press->tab;
        act.button = press->title;
        act.nodes = press->nodes;
        act.speed = model::speedWith(press->animationFactor).ratio;
    }
    return act;
}

[[nodiscard]] const Records& recordsOf(const model::Model& model) {
    return model.actionController().recordedActions();
}

[[nodiscard]] ActRecords recordsOf(const model::Model& model, int identifier) {
    ActRecords records;
    std::ranges::copy_if(recordsOf(model), std::back_inserter(records), [&](const XACPtr& record) {
        return record->identifier == identifier;
    });
    return records;
}

/// For messages: what it is that changes.
[[nodiscard]] std::string nameOf(const model::Model& model, const Identifiers& which) {
    if (which.size() != 1)
        return fmt::format("{} acts", which.size());
    const ActRecords records = recordsOf(model, *which.begin());
    return records.empty() ? std::string() : titleOf(records);
}

void edit(model::Model& model, const char* what, const Identifiers& which, Records records) {
    if (records != recordsOf(model))
        model.actionController().edit(
            fmt::format("{} {}", what, nameOf(model, which)), std::move(records));
}

/// A record is never changed, because the stacks of undo share it.
[[nodiscard]] XACPtr movedBy(const XACPtr& record, double by) {
    auto copy = std::make_shared<actions::XAC>(*record);
    copy->time += by;
    return copy;
}

/// The records that the cue makes.
[[nodiscard]] Records madeOf(const Cue& cue, model::Model& model) {
    Performance single;
    single.cues.push_back(cue);
    return model.actionController().recordsOf([&] { perform(single, model); });
}

/// The list with the act done anew, in its place.
void replaceAct(Records& list, int identifier, Records made) {
    for (const XACPtr& record : made)
        record->identifier = identifier; // whoever has selected the act still has it
    const auto isOld = [&](const XACPtr& record) { return record->identifier == identifier; };
    const auto place = std::ranges::find_if(list, isOld) - list.begin();
    std::erase_if(list, isOld);
    list.insert(list.begin() + place, made.begin(), made.end());
}

} // namespace

std::vector<Act> actsOf(const model::Model& model) {
    std::vector<Act> acts;
    for (const ActRecords& records : actsIn(recordsOf(model))) {
        if (auto act = actOf(records, model))
            acts.push_back(std::move(*act));
    }
    std::ranges::stable_sort(acts, {}, &Act::begins);
    return acts;
}

void moveActs(model::Model& model, const Identifiers& which, double by) {
    for (const XACPtr& record : recordsOf(model)) {
        if (which.contains(record->identifier))
            by = std::max(by, -record->time);
    }
    if (by == 0)
        return;
    Records records = recordsOf(model);
    for (XACPtr& record : records) {
        if (which.contains(record->identifier))
            record = movedBy(record, by);
    }
    edit(model, "Move", which, std::move(records));
}

void endActAt(model::Model& model, int identifier, double time) {
    const ActRecords act = recordsOf(model, identifier);
    auto cue = act.empty() ? std::nullopt : cueOf(act, model);
    if (!cue || kindOf(*cue) != ActKind::hold)
        return;
    auto& press = std::get<Press>(cue->act);
    const double begins = act.front()->time - model.startCounter();
    const double held = std::max(time - begins, shared::FrameClock::kStep);
    Records records = recordsOf(model);
    if (press.held) {
        const auto release = std::ranges::find(records, act.back());
        *release = movedBy(act.back(), begins + held + model.startCounter() - act.back()->time);
    } else {
        press.held = held;
        replaceAct(records, identifier, madeOf(*cue, model));
    }
    edit(model, "Lengthen", {identifier}, std::move(records));
}

void removeActs(model::Model& model, const Identifiers& which) {
    Records records = recordsOf(model);
    std::erase_if(
        records, [&](const XACPtr& record) { return which.contains(record->identifier); });
    edit(model, "Delete", which, std::move(records));
}

Identifiers duplicateActs(model::Model& model, const Identifiers& which, double by) {
    Records records = recordsOf(model);
    Identifiers copies;
    for (const int identifier : which) {
        const ActRecords act = recordsOf(model, identifier);
        auto cue = act.empty() ? std::nullopt : cueOf(act, model);
        if (!cue)
            continue;
        cue->at = std::max(cue->at + by, -model.startCounter());
        const Records made = madeOf(*cue, model);
        for (const XACPtr& record : made)
            copies.insert(record->identifier);
        records.insert(records.end(), made.begin(), made.end());
    }
    edit(model, "Duplicate", which, std::move(records));
    return copies;
}

void setSpeedOfActs(model::Model& model, const Identifiers& which, model::AnimationRatio speed) {
    Records records = recordsOf(model);
    for (const int identifier : which) {
        const ActRecords act = recordsOf(model, identifier);
        auto cue = act.empty() ? std::nullopt : cueOf(act, model);
        auto* const press = cue ? std::get_if<Press>(&cue->act) : nullptr;
        if (press == nullptr ||
            model::speedWith(std::get<actions::ButtonPress>(*act.front()->origin).animationFactor)
                    .ratio == speed)
            continue;
        press->speed = std::string(model::speedOf(speed).title);
        replaceAct(records, identifier, madeOf(*cue, model));
    }
    edit(model, "Speed of", which, std::move(records));
}

} // namespace zelvo::document
