// SPDX-License-Identifier: MIT
#include "document/NodeStyleReader.h"

#include "document/CueReader.h"

#include <fmt/format.h>
#include <glm/trigonometric.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zelvo::document {

namespace {

using foundation::JsonObject;
using foundation::JsonValue;
using foundation::Problems;
using foundation::Range;

// The ranges of the controls in the window.
constexpr Range kDepth{1, 150};
constexpr Range kBevel{0, 4};
constexpr Range kScale{0.15, 5};
constexpr Range kMaxWidth{50, 5000};
constexpr Range kPosition{-10'000, 10'000};
constexpr Range kDegrees{-180, 180};
constexpr Range kQuarterTurns{0, 3};

constexpr std::size_t kMaxNameBytes = 4096;

using Strings = std::vector<std::string>;

const Strings kProfiles{"linear", "rounded"};
const Strings kFills{"inner", "outer"};

/// The number of code points. The text must be valid UTF-8.
[[nodiscard]] std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

[[nodiscard]] LayoutStyle readLayout(JsonObject& object) {
    LayoutStyle layout;
    layout.position = object.vector3("position", kPosition);
    layout.scale = object.number("scale", kScale);
    if (const auto degrees = object.vector3("rotation", kDegrees))
        layout.rotation = glm::radians(*degrees);
    return layout;
}

[[nodiscard]] std::optional<std::string>
readText(JsonObject& object, const std::string& place, Problems& problems) {
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
                "\"text\" in {} must be a single line without tabs; use TX2 for the second line",
                place));
        return std::nullopt;
    }
    return result;
}

/// A name or a path.
[[nodiscard]] std::optional<std::string>
readShort(JsonObject& object, const char* key, Problems& problems) {
    auto result = object.string(key);
    if (result && (result->empty() || result->size() > kMaxNameBytes)) {
        problems.add(
            object.lineOf(key), fmt::format(R"("{}" must have 1 to {} bytes)", key, kMaxNameBytes));
        return std::nullopt;
    }
    return result;
}

[[nodiscard]] TextStyle readTextStyle(
    const JsonValue& value, const std::string& place, const Names& names, Problems& problems) {
    JsonObject object(value, place, problems);
    TextStyle result;
    result.text = readText(object, place, problems);
    result.fontLine.number = object.lineOf("font");
    result.font = readShort(object, "font", problems);
    result.fontFile = readShort(object, "fontFile", problems);
    result.material = object.choice("material", "material", names.materials);
    result.frontColor = readColor(object, "frontColor");
    result.bandColor = readColor(object, "bandColor");
    result.depth = object.number("depth", kDepth);
    result.bevel = object.number("bevel", kBevel);
    result.profile = object.choice("profile", "profile", kProfiles);
    result.fill = object.choice("fill", "fill", kFills);
    static_cast<LayoutStyle&>(result) = readLayout(object);
    result.maxWidth = object.number("maxWidth", kMaxWidth);
    result.visible = object.boolean("visible");
    object.finish();
    return result;
}

[[nodiscard]] ImageStyle
readImageStyle(const JsonValue& value, const Names& names, Problems& problems) {
    JsonObject object(value, "node IMG", problems);
    ImageStyle result;
    result.line.number = object.lineOf("image");
    result.image = object.string("image");
    if (result.image == "")
        problems.add(
            result.line.number, "\"image\" in node IMG must be the path of a picture or a video");
    result.sound = object.boolean("sound").value_or(false);
    result.hideAtEnd = object.boolean("hideAtEnd").value_or(false);
    result.mask = object.choice("mask", "mask", names.masks);
    result.flipH = object.boolean("flipH");
    result.flipV = object.boolean("flipV");
    if (const auto turns = object.number("quarterTurns", kQuarterTurns)) {
        result.quarterTurns = static_cast<int>(*turns);
        if (std::floor(*turns) != *turns) {
            problems.add(
                object.lineOf("quarterTurns"), "\"quarterTurns\" in node IMG must be 0, 1, 2 or 3");
        }
    }
    static_cast<LayoutStyle&>(result) = readLayout(object);
    result.visible = object.boolean("visible");
    object.finish();
    return result;
}

[[nodiscard]] MediaStyle
readMediaStyle(const JsonValue& value, const Names& names, Problems& problems) {
    JsonObject object(value, "node OBJ", problems);
    MediaStyle result;
    result.shape = object.choice("shape", "shape", names.shapes);
    result.line.number = object.lineOf("object");
    result.object = object.string("object");
    if (result.object == "")
        problems.add(result.line.number, R"("object" in node OBJ must be the path of a 3D file)");
    if (result.object && result.shape)
        problems.add(result.line.number, R"(node OBJ can have an "object" or a "shape", not both)");
    result.material = object.choice("material", "material", names.objectMaterials);
    result.color = readColor(object, "color");
    static_cast<LayoutStyle&>(result) = readLayout(object);
    result.visible = object.boolean("visible");
    object.finish();
    return result;
}

} // namespace

NodeStyles readNodeStyles(const JsonValue& value, const Names& names, Problems& problems) {
    JsonObject object(value, "nodes", problems);
    NodeStyles result;
    for (const std::string name : {"TX1", "TX2"}) {
        if (const auto* const node = object.find(name))
            result.texts.emplace(name, readTextStyle(*node, "node " + name, names, problems));
    }
    if (const auto* const node = object.find("IMG"))
        result.picture = readImageStyle(*node, names, problems);
    if (const auto* const node = object.find("OBJ"))
        result.object = readMediaStyle(*node, names, problems);
    object.finish();
    return result;
}

std::optional<image::Color> readColor(JsonObject& object, std::string_view key) {
    const auto* const value = object.find(key, JsonValue::Kind::string);
    if (value == nullptr)
        return std::nullopt;
    const auto parsed = image::Color::parse(value->string);
    if (!parsed) {
        object.report(
            key,
            fmt::format(
                R"(must be a colour like "#194CE6", not {})", foundation::quoted(value->string)));
    }
    return parsed;
}

} // namespace zelvo::document
