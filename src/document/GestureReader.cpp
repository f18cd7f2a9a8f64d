// SPDX-License-Identifier: MIT
#include "document/GestureReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace zelvo::document {

namespace {

using foundation::JsonObject;
using foundation::JsonValue;
using foundation::Problems;
using foundation::Range;

struct StepCount {
    std::size_t least;
    const char* noun;
};

constexpr StepCount kPanSteps{1, "points [x, y]"};
constexpr StepCount kPinchSteps{1, "velocities"};

[[nodiscard]] bool isNumberWithin(const JsonValue& value, double limit) {
    return value.kind == JsonValue::Kind::number && std::abs(value.number) <= limit;
}

[[nodiscard]] bool isEndless(JsonObject& cue) {
    const auto* const value = cue.find("for");
    return value != nullptr && value->kind == JsonValue::Kind::string && value->string == "end";
}

/// Where the steps come, if they have times of their own; `count` of them.
[[nodiscard]] std::vector<double>
readTimes(JsonObject& cue, std::size_t count, Problems& problems) {
    std::vector<double> times;
    const auto* const list = cue.find("times", JsonValue::Kind::array);
    if (list == nullptr)
        return times;
    for (const JsonValue& item : list->items) {
        const double least = times.empty() ? 0 : times.back();
        if (item.kind != JsonValue::Kind::number || !(item.number >= least) ||
            item.number > kGestureTime.most) {
            problems.add(item.line, R"("times" must be seconds from the cue, in rising order)");
            return {};
        }
        times.push_back(item.number);
    }
    if (times.size() != count) {
        problems.add(
            list->line, fmt::format(R"("times" must have a time for each of the {} steps)", count));
    }
    return times;
}

/// What a drag and a pinch have in common; `key` is the gesture, which has `count` steps.
void readFingers(
    JsonObject& cue, const char* key, std::size_t count, Fingers& fingers, Problems& problems) {
    if (!cue.has("for"))
        problems.add(
            cue.lineOf(key), fmt::format(R"("{}" needs "for": how many seconds it takes)", key));
    fingers.lasts = readLasting(cue, kGestureTime);
    fingers.times = readTimes(cue, count, problems);
    fingers.begins = cue.boolean("begins").value_or(true);
    if ((!fingers.begins || isEndless(cue)) && !cue.has("times"))
        problems.add(
            cue.lineOf(key),
            fmt::format(R"("{}" needs "times" where it does not begin or does not end)", key));
    if (fingers.lasts && !fingers.times.empty() && *fingers.lasts < fingers.times.back())
        problems.add(cue.lineOf("for"), R"("for" must not be earlier than the last of "times")");
}

/// The items of the list; none if there are too few or too many.
[[nodiscard]] std::span<const JsonValue>
steps(JsonObject& cue, const char* key, const StepCount& count, Problems& problems) {
    const auto* const list = cue.find(key, JsonValue::Kind::array);
    if (list == nullptr)
        return {};
    if (list->items.size() >= count.least && list->items.size() <= kMaxGestureSteps)
        return list->items;
    problems.add(
        list->line,
        fmt::format(
            R"("{}" in cue must be a list of {} to {} {})",
            key,
            count.least,
            kMaxGestureSteps,
            count.noun));
    return {};
}

} // namespace

std::optional<double> readLasting(JsonObject& cue, Range range) {
    return isEndless(cue) ? std::nullopt : cue.number("for", range);
}

Pan readPan(JsonObject& cue, Problems& problems) {
    Pan pan;
    const auto isCoordinate = [](const JsonValue& value) {
        return isNumberWithin(value, kFarthestPoint);
    };
    for (const JsonValue& item : steps(cue, "pan", kPanSteps, problems)) {
        if (item.items.size() == 2 && std::ranges::all_of(item.items, isCoordinate)) {
            pan.points.emplace_back(item.items[0].number, item.items[1].number);
            continue;
        }
        problems.add(
            item.line,
            fmt::format(
                R"(a point of "pan" must be two numbers [x, y] of {} to {})",
                -kFarthestPoint,
                kFarthestPoint));
    }
    readFingers(cue, "pan", pan.points.size(), pan, problems);
    return pan;
}

Pinch readPinch(JsonObject& cue, Problems& problems) {
    Pinch pinch;
    for (const JsonValue& item : steps(cue, "pinch", kPinchSteps, problems)) {
        if (isNumberWithin(item, kFastestPinch)) {
            pinch.velocities.push_back(item.number);
            continue;
        }
        problems.add(
            item.line,
            fmt::format(
                R"(a velocity of "pinch" must be a number of {} to {})",
                -kFastestPinch,
                kFastestPinch));
    }
    readFingers(cue, "pinch", pinch.velocities.size(), pinch, problems);
    return pinch;
}

} // namespace zelvo::document
