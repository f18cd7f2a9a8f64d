// SPDX-License-Identifier: MIT
#include "platform/foundation/JsonObject.h"

#include "platform/foundation/Suggestion.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace zelvo::foundation {

namespace {

/// Messages do not list more names than this.
constexpr std::size_t kMaxListedNames = 14;
/// Quotes of foreign text are cut to this many bytes.
constexpr std::size_t kMaxQuotedBytes = 60;
constexpr std::size_t kMaxKept = 500; ///< problems

[[nodiscard]] std::string textOf(Range range) {
    return std::isinf(range.most) ? fmt::format("{} or more", range.least)
                                  : fmt::format("{} to {}", range.least, range.most);
}

} // namespace

std::string quoted(std::string_view text) {
    std::string shown(text.substr(0, kMaxQuotedBytes));
    // Do not cut a UTF-8 sequence in half.
    if (shown.size() < text.size()) {
        while (!shown.empty() && (static_cast<unsigned char>(shown.back()) & 0xC0U) == 0x80U) {
            shown.pop_back();
        }
        if (!shown.empty() && static_cast<unsigned char>(shown.back()) >= 0xC0U) {
            shown.pop_back();
        }
        shown += "…";
    }
    for (char& c : shown) {
        if (static_cast<unsigned char>(c) < 0x20U || c == '\x7F')
            c = ' ';
    }
    return '"' + shown + '"';
}

void Problems::add(int line, std::string text) {
    if (!isFull())
        list.push_back({line, std::move(text)});
}

bool Problems::isFull() const {
    return list.size() >= kMaxKept;
}

std::vector<Problem> Problems::sorted(std::size_t limit) const {
    auto result = list;
    std::stable_sort(
        result.begin(), result.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
    if (result.size() <= limit)
        return result;
    const auto left = result.size() - limit;
    result.resize(limit);
    result.push_back(
        {result.back().line, isFull() ? "and many more" : fmt::format("and {} more", left)});
    return result;
}

std::string unknownName(
    std::string_view what,
    std::string_view given,
    std::span<const std::string> names,
    std::string_view place) {
    auto head = fmt::format("unknown {} {}", what, quoted(given));
    if (!place.empty())
        head += fmt::format(" in {}", place);
    if (const auto meant = nearest(given, names)) {
        return fmt::format("{}; did you mean \"{}\"?", head, *meant);
    }
    if (names.empty() || names.size() > kMaxListedNames)
        return head;
    return fmt::format("{}; there is {}", head, fmt::join(names, ", "));
}

JsonObject::JsonObject(const JsonValue& value, std::string where, Problems& found)
    : object(value)
    , place(std::move(where))
    , problems(found) {
    if (value.kind != JsonValue::Kind::object) {
        problems.add(
            value.line,
            fmt::format("{} must be an object {{…}}, not {}", place, kindName(value.kind)));
    }
}

const JsonValue* JsonObject::find(std::string_view key) {
    if (std::ranges::find(asked, key) == asked.end())
        asked.emplace_back(key);
    const auto found = std::ranges::find(object.members, key, &JsonMember::key);
    return found == object.members.end() ? nullptr : &found->value;
}

int JsonObject::lineOf(std::string_view key) {
    const auto* const value = find(key);
    return value != nullptr ? value->line : object.line;
}

const JsonValue* JsonObject::find(std::string_view key, JsonValue::Kind kind) {
    const auto* const value = find(key);
    if (value == nullptr || value->kind == kind)
        return value;
    report(key, fmt::format("must be {}, not {}", kindName(kind), kindName(value->kind)));
    return nullptr;
}

std::optional<double> JsonObject::number(std::string_view key, Range range) {
    const auto* const value = find(key, JsonValue::Kind::number);
    if (value == nullptr)
        return std::nullopt;
    if (value->number >= range.least && value->number <= range.most)
        return value->number;
    report(key, fmt::format("must be {}, not {}", textOf(range), value->number));
    return std::nullopt;
}

std::optional<int> JsonObject::integer(std::string_view key, Range range) {
    const auto value = number(key, range);
    if (!value)
        return std::nullopt;
    if (std::floor(*value) == *value)
        return static_cast<int>(*value);
    report(key, fmt::format("must be a whole number, {}, not {}", textOf(range), *value));
    return std::nullopt;
}

std::optional<bool> JsonObject::boolean(std::string_view key) {
    const auto* const value = find(key, JsonValue::Kind::boolean);
    return value != nullptr ? std::optional(value->boolean) : std::nullopt;
}

std::optional<std::string> JsonObject::string(std::string_view key) {
    const auto* const value = find(key, JsonValue::Kind::string);
    return value != nullptr ? std::optional(value->string) : std::nullopt;
}

const JsonValue* JsonObject::numbers(std::string_view key, std::size_t count, Range range) {
    const auto* const value = find(key, JsonValue::Kind::array);
    if (value == nullptr)
        return nullptr;
    const auto isGood = [&](const JsonValue& item) {
        return item.kind == JsonValue::Kind::number && item.number >= range.least &&
               item.number <= range.most;
    };
    if (value->items.size() == count && std::ranges::all_of(value->items, isGood))
        return value;
    report(
        key,
        fmt::format(
            "must be {} of {} to {}",
            count == 2 ? "two numbers [x, y]" : "three numbers [x, y, z]",
            range.least,
            range.most));
    return nullptr;
}

std::optional<glm::dvec2> JsonObject::vector2(std::string_view key, Range range) {
    const auto* const value = numbers(key, 2, range);
    if (value == nullptr)
        return std::nullopt;
    return glm::dvec2(value->items[0].number, value->items[1].number);
}

std::optional<glm::dvec3> JsonObject::vector3(std::string_view key, Range range) {
    const auto* const value = numbers(key, 3, range);
    if (value == nullptr)
        return std::nullopt;
    return glm::dvec3(value->items[0].number, value->items[1].number, value->items[2].number);
}

std::optional<std::string> JsonObject::choice(
    std::string_view key, std::string_view what, std::span<const std::string> names) {
    const auto* const value = find(key, JsonValue::Kind::string);
    if (value == nullptr)
        return std::nullopt;
    if (std::ranges::find(names, value->string) != names.end())
        return value->string;
    problems.add(value->line, unknownName(what, value->string, names));
    return std::nullopt;
}

std::string JsonObject::placeOf(std::string_view key) const {
    return fmt::format("{} of {}", key, place);
}

std::string JsonObject::placeOf(std::string_view key, std::size_t index) const {
    return fmt::format("{}[{}] of {}", key, index, place);
}

void JsonObject::report(std::string_view key, std::string_view what) {
    problems.add(lineOf(key), fmt::format("\"{}\" in {} {}", key, place, what));
}

void JsonObject::finish() {
    std::set<std::string_view> seen;
    for (const auto& member : object.members) {
        if (problems.isFull())
            return;
        if (!seen.insert(member.key).second) {
            problems.add(
                member.line, fmt::format("key {} stands twice in {}", quoted(member.key), place));
        } else if (std::ranges::find(asked, member.key) == asked.end()) {
            problems.add(member.line, unknownName("key", member.key, asked, place));
        }
    }
}

} // namespace zelvo::foundation
