// SPDX-License-Identifier: MIT
#include "app/ObjectReader.h"

#include "app/Suggestion.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>
#include <utility>

namespace zelvo::app {

namespace {

/// Longer lists are not printed whole in a message.
constexpr std::size_t kMaxListedNames = 14;
/// Foreign text is quoted up to this many bytes.
constexpr std::size_t kMaxQuotedBytes = 60;

/// The text as a message can hold it: short, without line breaks and control characters.
[[nodiscard]] std::string quoted(std::string_view text) {
    std::string shown(text.substr(0, kMaxQuotedBytes));
    // A cut must not leave half a UTF-8 sequence behind.
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

} // namespace

void Problems::add(int line, std::string text) {
    list.push_back({line, std::move(text)});
}

std::vector<Problem> Problems::sorted(std::size_t limit) const {
    auto result = list;
    std::stable_sort(
        result.begin(), result.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
    if (result.size() <= limit)
        return result;
    const auto left = result.size() - limit;
    result.resize(limit);
    result.push_back({result.back().line, fmt::format("and {} more", left)});
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

ObjectReader::ObjectReader(
    const JsonValue& value, std::string name, const Keys& keys, Problems& found)
    : object(value)
    , place(std::move(name))
    , problems(found) {
    if (value.kind != JsonValue::Kind::object) {
        problems.add(
            value.line,
            fmt::format("{} must be an object {{…}}, not {}", place, kindName(value.kind)));
        return;
    }
    std::set<std::string> seen;
    for (const auto& member : value.members) {
        if (!seen.insert(member.key).second) {
            problems.add(
                member.line, fmt::format("key {} stands twice in {}", quoted(member.key), place));
        } else if (std::ranges::find(keys.later, member.key) != keys.later.end()) {
            problems.add(
                member.line,
                fmt::format("{} in {} is not supported yet", quoted(member.key), place));
        } else if (std::ranges::find(keys.known, member.key) == keys.known.end()) {
            problems.add(member.line, unknownName("key", member.key, keys.known, place));
        }
    }
}

const JsonValue* ObjectReader::find(std::string_view key) const {
    const auto found = std::ranges::find(object.members, key, &JsonMember::key);
    return found == object.members.end() ? nullptr : &found->value;
}

int ObjectReader::lineOf(std::string_view key) const {
    const auto* const value = find(key);
    return value != nullptr ? value->line : object.line;
}

const JsonValue* ObjectReader::find(std::string_view key, JsonValue::Kind kind) const {
    const auto* const value = find(key);
    if (value == nullptr || value->kind == kind)
        return value;
    problems.add(
        value->line,
        fmt::format(
            "\"{}\" in {} must be {}, not {}", key, place, kindName(kind), kindName(value->kind)));
    return nullptr;
}

std::optional<double> ObjectReader::number(std::string_view key, Range range) const {
    const auto* const value = find(key, JsonValue::Kind::number);
    if (value == nullptr)
        return std::nullopt;
    if (value->number >= range.least && value->number <= range.most)
        return value->number;
    problems.add(
        value->line,
        fmt::format(
            "\"{}\" in {} must be {} to {}, not {}",
            key,
            place,
            range.least,
            range.most,
            value->number));
    return std::nullopt;
}

std::optional<bool> ObjectReader::boolean(std::string_view key) const {
    const auto* const value = find(key, JsonValue::Kind::boolean);
    return value != nullptr ? std::optional(value->boolean) : std::nullopt;
}

std::optional<std::string> ObjectReader::string(std::string_view key) const {
    const auto* const value = find(key, JsonValue::Kind::string);
    return value != nullptr ? std::optional(value->string) : std::nullopt;
}

std::optional<image::Color> ObjectReader::color(std::string_view key) const {
    const auto* const value = find(key, JsonValue::Kind::string);
    if (value == nullptr)
        return std::nullopt;
    const auto parsed = image::Color::parse(value->string);
    if (!parsed) {
        problems.add(
            value->line,
            fmt::format(
                R"("{}" in {} must be a colour like "#194CE6", not {})",
                key,
                place,
                quoted(value->string)));
    }
    return parsed;
}

std::optional<glm::dvec3> ObjectReader::vector(std::string_view key, Range range) const {
    const auto* const value = find(key, JsonValue::Kind::array);
    if (value == nullptr)
        return std::nullopt;
    const auto isGood = [&](const JsonValue& item) {
        return item.kind == JsonValue::Kind::number && item.number >= range.least &&
               item.number <= range.most;
    };
    if (value->items.size() == 3 && std::ranges::all_of(value->items, isGood)) {
        return glm::dvec3(value->items[0].number, value->items[1].number, value->items[2].number);
    }
    problems.add(
        value->line,
        fmt::format(
            "\"{}\" in {} must be three numbers [x, y, z] of {} to {}",
            key,
            place,
            range.least,
            range.most));
    return std::nullopt;
}

std::optional<std::string> ObjectReader::choice(
    std::string_view key, std::string_view what, std::span<const std::string> names) const {
    const auto* const value = find(key, JsonValue::Kind::string);
    if (value == nullptr)
        return std::nullopt;
    if (std::ranges::find(names, value->string) != names.end())
        return value->string;
    problems.add(value->line, unknownName(what, value->string, names));
    return std::nullopt;
}

} // namespace zelvo::app
