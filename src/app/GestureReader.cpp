// SPDX-License-Identifier: MIT
#include "app/GestureReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace zelvo::app {

namespace {

using foundation::JsonObject;
using foundation::JsonValue;
using foundation::Problems;

struct StepCount {
    std::size_t least;
    const char* noun;
};

constexpr StepCount kPanSteps{2, "points [x, y]"};
constexpr StepCount kPinchSteps{1, "velocities"};

[[nodiscard]] bool isNumberWithin(const JsonValue& value, double limit) {
    return value.kind == JsonValue::Kind::number && std::abs(value.number) <= limit;
}

[[nodiscard]] double lastingTime(JsonObject& cue, const char* key, Problems& problems) {
    if (!cue.has("for")) {
        problems.add(
            cue.lineOf(key), fmt::format(R"("{}" needs "for": how many seconds it takes)", key));
        return kGestureTime.least;
    }
    return cue.number("for", kGestureTime).value_or(kGestureTime.least);
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

Pan readPan(JsonObject& cue, Problems& problems) {
    Pan pan;
    pan.lasts = lastingTime(cue, "pan", problems);
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
    return pan;
}

Pinch readPinch(JsonObject& cue, Problems& problems) {
    Pinch pinch;
    pinch.lasts = lastingTime(cue, "pinch", problems);
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
    return pinch;
}

} // namespace zelvo::app
