// SPDX-License-Identifier: MIT
#include "app/PerformanceReader.h"

#include "app/CueReader.h"
#include "app/ObjectReader.h"

#include <fmt/format.h>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <utility>

namespace zelvo::app {

namespace {

// What the controls of the style and layout menus can reach.
constexpr Range kDepth{1, 150};
constexpr Range kBevel{0, 4};
constexpr Range kScale{0.15, 5};
constexpr Range kPosition{-1000, 1000};
constexpr Range kDegrees{-180, 180};
constexpr Range kDuration{2, 3599};
constexpr Range kSongTime{0, 86'400};
/// The shortest stretch of music, seconds.
constexpr double kMinStretch = 2.0;

using Strings = std::vector<std::string>;

const Strings kProfiles{"linear", "rounded"};
const Strings kFills{"inner", "outer"};
const Strings kFades{"noFade", "fadeIn", "fadeOut", "fadeInOut"};

const ObjectReader::Keys kRootKeys{
    .known = {"cues",        "duration", "speed", "scene", "background", "nodes", "audio", "$schema"},
    .later = {}
};
const ObjectReader::Keys kStyleKeys{
    .known =
        {"text",
                "font", "material",
                "frontColor", "bandColor",
                "depth", "bevel",
                "profile", "fill",
                "position", "scale",
                "rotation", "visible"},
    .later = {}
};
const ObjectReader::Keys kNodesKeys{.known = textNodeNames(), .later = laterNodeNames()};
const ObjectReader::Keys kAudioKeys{
    .known = {"file",  "in", "end", "preRoll", "fade"},
      .later = {}
};

/// Code points of UTF-8 that is known to be valid.
[[nodiscard]] std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// Reads the parts of one file. Every function gives what could be read and reports the rest.
class Reader {
public:
    explicit Reader(const Names& allowed)
        : names(allowed) {}

    [[nodiscard]] Performance performance(const JsonValue& root) {
        const ObjectReader object(root, "the performance", kRootKeys, problems);
        Performance result;
        if (root.kind != JsonValue::Kind::object)
            return result;
        result.duration = object.number("duration", kDuration);
        result.speed = readSpeed(object, names, problems);
        result.scene = scene(object);
        result.background = object.color("background");
        if (const auto* const nodes = object.find("nodes"))
            result.nodes = styles(*nodes);
        if (const auto* const audio = object.find("audio"))
            result.music = music(*audio);
        result.cues =
            readCues(object, {names, result.duration.value_or(kDefaultDuration)}, problems);
        return result;
    }

    Problems problems;

private:
    [[nodiscard]] std::optional<std::string> scene(const ObjectReader& object) {
        const auto* const value = object.find("scene");
        if (value != nullptr && value->kind == JsonValue::Kind::string &&
            std::ranges::find(names.laterScenes, value->string) != names.laterScenes.end()) {
            problems.add(
                value->line, fmt::format("scene \"{}\" is not supported yet", value->string));
            return std::nullopt;
        }
        return object.choice("scene", "scene", names.scenes);
    }

    [[nodiscard]] std::map<std::string, TextStyle> styles(const JsonValue& value) {
        const ObjectReader object(value, "nodes", kNodesKeys, problems);
        std::map<std::string, TextStyle> result;
        for (const auto& name : textNodeNames()) {
            if (const auto* const node = object.find(name)) {
                result.emplace(name, style(*node, "node " + name));
            }
        }
        return result;
    }

    [[nodiscard]] TextStyle style(const JsonValue& value, const std::string& place) {
        const ObjectReader object(value, place, kStyleKeys, problems);
        TextStyle result;
        result.text = text(object, place);
        result.font = object.choice("font", "font", names.fonts);
        result.material = object.choice("material", "material", names.materials);
        result.frontColor = object.color("frontColor");
        result.bandColor = object.color("bandColor");
        result.depth = object.number("depth", kDepth);
        result.bevel = object.number("bevel", kBevel);
        result.profile = object.choice("profile", "profile", kProfiles);
        result.fill = object.choice("fill", "fill", kFills);
        result.position = object.vector("position", kPosition);
        result.scale = object.number("scale", kScale);
        if (const auto degrees = object.vector("rotation", kDegrees)) {
            result.rotation = glm::radians(*degrees);
        }
        result.visible = object.boolean("visible");
        return result;
    }

    [[nodiscard]] std::optional<std::string>
    text(const ObjectReader& object, const std::string& place) {
        auto result = object.string("text");
        if (!result)
            return result;
        const auto count = characterCount(*result);
        if (count > kMaxTextLength) {
            problems.add(
                object.lineOf("text"),
                fmt::format(
                    "\"text\" in {} has {} characters; at most {} are allowed",
                    place,
                    count,
                    kMaxTextLength));
            return std::nullopt;
        }
        const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20U; };
        if (std::ranges::any_of(*result, isControl)) {
            problems.add(
                object.lineOf("text"),
                fmt::format(
                    "\"text\" in {} must be a single line without tabs; use TX2 for the "
                    "second line",
                    place));
            return std::nullopt;
        }
        return result;
    }

    [[nodiscard]] std::optional<Music> music(const JsonValue& value) {
        const ObjectReader object(value, "audio", kAudioKeys, problems);
        Music result;
        const auto file = object.string("file");
        if (value.kind == JsonValue::Kind::object && (!object.has("file") || file == "")) {
            problems.add(object.lineOf("file"), "audio needs a \"file\": the path of a sound file");
        }
        result.line = object.lineOf("file");
        result.file = file.value_or("");
        result.in = object.number("in", kSongTime).value_or(0);
        result.end = object.number("end", kSongTime);
        result.preRoll = object.number("preRoll", kSongTime).value_or(0);
        result.fade = object.choice("fade", "fade", kFades);
        if (result.end && *result.end < result.in + kMinStretch) {
            problems.add(
                object.lineOf("end"),
                fmt::format(
                    "\"end\" in audio must be at least {} seconds after \"in\"; that is {} "
                    "or more",
                    kMinStretch,
                    result.in + kMinStretch));
        }
        return result;
    }

    const Names& names;
};

} // namespace

tl::expected<Performance, std::vector<Problem>>
readPerformance(std::string_view text, const Names& names) {
    const auto root = parseJson(text);
    if (!root)
        return tl::unexpected(std::vector{root.error()});
    Reader reader(names);
    auto performance = reader.performance(*root);
    if (!reader.problems.isEmpty())
        return tl::unexpected(reader.problems.sorted(kMaxProblems));
    return performance;
}

} // namespace zelvo::app
