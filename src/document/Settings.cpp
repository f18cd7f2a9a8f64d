// SPDX-License-Identifier: MIT
#include "document/Settings.h"

#include "document/CueReader.h"
#include "platform/foundation/Check.h"
#include "platform/foundation/JsonObject.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <span>
#include <utility>

namespace zelvo::document {

namespace {

using foundation::JsonMember;
using foundation::JsonValue;
using foundation::Problem;
using tl::unexpected;

enum class Meaning { text, path };

struct FreeText {
    std::string_view key; ///< the last part of its path
    Meaning meaning;
};

// The keys whose value may look like a number, and yet is a text.
// clang-format off
constexpr auto kFreeTexts = std::to_array<FreeText>({
    {"text",     Meaning::text},
    {"title",    Meaning::text},
    {"font",     Meaning::text},
    {"fontFile", Meaning::path},
    {"image",    Meaning::path},
    {"object",   Meaning::path},
    {"file",     Meaning::path},
});
// clang-format on

constexpr std::string_view kNothing = "null";

using Step = tl::expected<JsonValue*, std::string>;

[[nodiscard]] std::string_view lastPart(std::string_view key) {
    return key.substr(key.rfind('.') + 1); // npos + 1 is 0
}

[[nodiscard]] const FreeText* freeText(std::string_view key) {
    const auto* const found = std::ranges::find(kFreeTexts, lastPart(key), &FreeText::key);
    return found == kFreeTexts.end() ? nullptr : found;
}

[[nodiscard]] std::vector<std::string> partsOf(std::string_view key) {
    std::vector<std::string> parts;
    for (std::size_t from = 0; from <= key.size();) {
        const auto to = std::min(key.find('.', from), key.size());
        parts.emplace_back(key.substr(from, to - from));
        from = to + 1;
    }
    if (std::ranges::count(nodeNames(), parts.front()) > 0)
        parts.insert(parts.begin(), "nodes");
    return parts;
}

void setLine(JsonValue& value, int line) {
    value.line = line;
    for (JsonValue& item : value.items)
        setLine(item, line);
    for (JsonMember& member : value.members) {
        member.line = line;
        setLine(member.value, line);
    }
}

[[nodiscard]] JsonValue textValue(std::string text) {
    JsonValue value;
    value.kind = JsonValue::Kind::string;
    value.string = std::move(text);
    return value;
}

[[nodiscard]] JsonValue valueOf(const Setting& setting) {
    if (const auto* const free = freeText(setting.key)) {
        const bool isPath = free->meaning == Meaning::path && !setting.value.empty();
        return textValue(
            isPath ? (setting.folder / setting.value).lexically_normal().string() : setting.value);
    }
    // A name, such as Iron, is no JSON.
    return foundation::parseJson(setting.value).value_or(textValue(setting.value));
}

[[nodiscard]] Step itemOf(JsonValue& list, std::string_view part) {
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), index);
    const bool isNumber = error == std::errc{} && end == part.data() + part.size();
    if (isNumber && index < list.items.size())
        return &list.items[index];
    return unexpected(
        list.items.empty() ? std::string("the list is empty")
                           : fmt::format(
                                 "{} is no entry of a list that has 0 to {}",
                                 foundation::quoted(part),
                                 list.items.size() - 1));
}

/// The member with that key; it is made if it is missing.
[[nodiscard]] JsonValue& memberOf(JsonValue& object, const std::string& key, int line) {
    const auto found = std::ranges::find(object.members, key, &JsonMember::key);
    if (found != object.members.end())
        return found->value;
    JsonMember made{key, line, {}};
    made.value.kind = JsonValue::Kind::object;
    made.value.line = line;
    object.members.push_back(std::move(made));
    return object.members.back().value;
}

[[nodiscard]] Step below(JsonValue& value, const std::string& part, int line) {
    if (part.empty())
        return unexpected(std::string("a part of the key is empty"));
    if (value.kind == JsonValue::Kind::array)
        return itemOf(value, part);
    if (value.kind == JsonValue::Kind::object)
        return &memberOf(value, part, line);
    return unexpected(fmt::format(
        "there is no {} in {}", foundation::quoted(part), foundation::kindName(value.kind)));
}

/// The value that the parts lead to.
[[nodiscard]] Step follow(JsonValue& root, std::span<const std::string> parts, int line) {
    JsonValue* place = &root;
    for (const std::string& part : parts) {
        auto step = below(*place, part, line);
        if (!step)
            return step;
        place = *step;
    }
    return place;
}

/// Why it cannot be set; empty if it is done.
[[nodiscard]] std::string apply(const Setting& setting, int line, JsonValue& root) {
    const auto parts = partsOf(setting.key);
    const std::span all(parts);
    if (setting.value == kNothing && freeText(setting.key) == nullptr) {
        const auto parent = follow(root, all.first(all.size() - 1), line);
        if (parent)
            std::erase_if((*parent)->members, [&](const JsonMember& member) {
                return member.key == parts.back();
            });
        return parent ? "" : parent.error();
    }
    const auto place = follow(root, all, line);
    if (!place)
        return place.error();
    **place = valueOf(setting);
    setLine(**place, line);
    return "";
}

} // namespace

foundation::Result<Setting>
parseSetting(std::string_view text, std::string_view option, const std::filesystem::path& folder) {
    const auto wrong = [&](std::string_view what, std::string_view why) {
        return foundation::fail(
            foundation::Cause::malformed, fmt::format("{} {}: {}", option, what, why));
    };
    const auto equals = text.find('=');
    if (equals == std::string_view::npos || equals == 0)
        return wrong(text, "must be KEY=VALUE, such as TX1.text=HELLO");
    const auto key = text.substr(0, equals);
    const auto value = text.substr(equals + 1);
    if (value.size() > kMaxSettingBytes)
        return wrong(key, fmt::format("the value is longer than {} KiB", kMaxSettingBytes / 1024));
    return Setting{fmt::format("{} {}", option, key), std::string(key), std::string(value), folder};
}

bool isFreeText(std::string_view key) {
    return freeText(key) != nullptr;
}

std::vector<Problem> applySettings(const std::vector<Setting>& settings, JsonValue& root) {
    CHECK(settings.size() <= kMaxSettings, "{} settings", settings.size());
    std::vector<Problem> problems;
    int line = -static_cast<int>(settings.size());
    for (const Setting& setting : settings) {
        if (auto why = apply(setting, line, root); !why.empty())
            problems.push_back({line, std::move(why)});
        ++line;
    }
    return problems;
}

const Setting* settingAt(int line, const std::vector<Setting>& settings) {
    const int index = line + static_cast<int>(settings.size());
    return line < 0 && index >= 0 ? &settings[static_cast<std::size_t>(index)] : nullptr;
}

std::string message(
    const Problem& problem,
    const std::filesystem::path& file,
    const std::vector<Setting>& settings) {
    if (const auto* const setting = settingAt(problem.line, settings))
        return fmt::format("{}: {}", setting->origin, problem.text);
    return fmt::format("{}:{}: {}", file.string(), problem.line, problem.text);
}

} // namespace zelvo::document
