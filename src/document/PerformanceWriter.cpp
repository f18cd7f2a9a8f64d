// SPDX-License-Identifier: MIT
#include "document/PerformanceWriter.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <glm/trigonometric.hpp>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvo::document {

namespace {

// JSON texts of values.

[[nodiscard]] std::string json(const std::string& text) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    return {buffer.GetString(), buffer.GetSize()};
}

[[nodiscard]] std::string json(bool value) {
    return value ? "true" : "false";
}

[[nodiscard]] std::string json(int value) {
    return std::to_string(value);
}

/// The stage has single precision; more digits than that are noise.
[[nodiscard]] std::string json(double value) {
    return fmt::format("{}", static_cast<float>(value));
}

[[nodiscard]] std::string json(const glm::dvec2& value) {
    return fmt::format("[{}, {}]", json(value.x), json(value.y));
}

[[nodiscard]] std::string json(const glm::dvec3& value) {
    return fmt::format("[{}, {}, {}]", json(value.x), json(value.y), json(value.z));
}

[[nodiscard]] std::string json(const image::Color& color) {
    const auto byte = [](float share) { return std::lround(share * 255); };
    return fmt::format(
        "\"#{:02X}{:02X}{:02X}\"", byte(color.red), byte(color.green), byte(color.blue));
}

template <class Value> [[nodiscard]] std::string json(const std::vector<Value>& list) {
    std::vector<std::string> items;
    items.reserve(list.size());
    for (const Value& item : list)
        items.push_back(json(item));
    return fmt::format("[{}]", fmt::join(items, ", "));
}

/// Seconds, which are not of the stage and need their digits.
[[nodiscard]] std::string seconds(double value) {
    constexpr double kDigits = 1e6;
    return fmt::format("{}", std::round(value * kDigits) / kDigits);
}

[[nodiscard]] std::string seconds(const std::vector<double>& times) {
    std::vector<std::string> items;
    items.reserve(times.size());
    for (const double time : times)
        items.push_back(seconds(time));
    return fmt::format("[{}]", fmt::join(items, ", "));
}

/// The members of an object, in the order of writing.
class Members {
public:
    void addJson(std::string_view key, const std::string& value) {
        items.push_back(fmt::format(R"("{}": {})", key, value));
    }

    template <class Value> void add(std::string_view key, const Value& value) {
        addJson(key, json(value));
    }

    template <class Value> void add(std::string_view key, const std::optional<Value>& value) {
        if (value)
            add(key, *value);
    }

    [[nodiscard]] bool isEmpty() const { return items.empty(); }

    [[nodiscard]] std::string onOneLine() const {
        return fmt::format("{{{}}}", fmt::join(items, ", "));
    }

    [[nodiscard]] std::string onLines(std::string_view indent) const {
        const std::string between = fmt::format(",\n{}  ", indent);
        return fmt::format("{{\n{}  {}\n{}}}", indent, fmt::join(items, between), indent);
    }

private:
    std::vector<std::string> items;
};

void addLayout(const LayoutStyle& style, Members& members) {
    members.add("position", style.position);
    members.add("scale", style.scale);
    if (style.rotation)
        members.add("rotation", glm::degrees(*style.rotation));
    members.add("visible", style.visible);
}

[[nodiscard]] std::string textJson(const TextStyle& style) {
    Members members;
    members.add("text", style.text);
    members.add("font", style.font);
    members.add("fontFile", style.fontFile);
    members.add("material", style.material);
    members.add("frontColor", style.frontColor);
    members.add("bandColor", style.bandColor);
    members.add("depth", style.depth);
    members.add("bevel", style.bevel);
    members.add("profile", style.profile);
    members.add("fill", style.fill);
    members.add("maxWidth", style.maxWidth);
    addLayout(style, members);
    return members.onLines("    ");
}

[[nodiscard]] std::string imageJson(const ImageStyle& style) {
    Members members;
    members.add("image", style.image);
    if (style.sound)
        members.add("sound", true);
    if (style.hideAtEnd)
        members.add("hideAtEnd", true);
    members.add("mask", style.mask);
    members.add("flipH", style.flipH);
    members.add("flipV", style.flipV);
    members.add("quarterTurns", style.quarterTurns);
    addLayout(style, members);
    return members.onLines("    ");
}

[[nodiscard]] std::string mediaJson(const MediaStyle& style) {
    Members members;
    members.add("shape", style.shape);
    members.add("object", style.object);
    members.add("material", style.material);
    members.add("color", style.color);
    addLayout(style, members);
    return members.onLines("    ");
}

[[nodiscard]] std::string musicJson(const Music& music) {
    Members members;
    members.add("file", music.file);
    members.add("title", music.title);
    members.addJson("in", seconds(music.in));
    if (music.end)
        members.addJson("end", seconds(*music.end));
    members.addJson("preRoll", seconds(music.preRoll));
    members.add("fade", music.fade);
    return members.onLines("  ");
}

void addLasting(const std::optional<double>& lasts, Members& members) {
    members.addJson("for", lasts ? seconds(*lasts) : "\"end\"");
}

void addAct(const Press& press, Members& members) {
    members.add("tab", press.tab);
    members.add(press.isHeld ? "hold" : "press", press.title);
    if (press.isHeld)
        addLasting(press.held, members);
    if (!press.nodes.empty())
        members.add("nodes", press.nodes);
    members.add("speed", press.speed);
    if (!press.releaseNodes.empty())
        members.add("releaseNodes", press.releaseNodes);
    members.add("releaseSpeed", press.releaseSpeed);
    if (press.seed)
        members.addJson("seed", std::to_string(*press.seed));
}

void addFingers(const Fingers& fingers, Members& members) {
    addLasting(fingers.lasts, members);
    if (!fingers.times.empty())
        members.addJson("times", seconds(fingers.times));
    if (!fingers.begins)
        members.add("begins", false);
    members.add("releaseSpeed", fingers.releaseSpeed);
}

void addAct(const Pan& pan, Members& members) {
    members.add("pan", pan.points);
    addFingers(pan, members);
}

void addAct(const Pinch& pinch, Members& members) {
    members.add("pinch", pinch.velocities);
    addFingers(pinch, members);
}

void addAct(const DoubleTap&, Members& members) {
    members.add("doubleTap", true);
}

void addAct(const Undo&, Members& members) {
    members.add("undo", true);
}

void addAct(const Redo&, Members& members) {
    members.add("redo", true);
}

[[nodiscard]] std::string cueJson(const Cue& cue) {
    Members members;
    members.addJson("at", seconds(cue.at));
    std::visit([&](const auto& act) { addAct(act, members); }, cue.act);
    return members.onOneLine();
}

[[nodiscard]] std::string cuesJson(const std::vector<Cue>& cues) {
    if (cues.empty())
        return "[]";
    std::vector<std::string> lines;
    lines.reserve(cues.size());
    for (const Cue& cue : cues)
        lines.push_back(cueJson(cue));
    return fmt::format("[\n    {}\n  ]", fmt::join(lines, ",\n    "));
}

} // namespace

std::string written(const Performance& performance) {
    Members nodes;
    for (const auto& [name, style] : performance.nodes)
        nodes.addJson(name, textJson(style));
    if (performance.picture)
        nodes.addJson("IMG", imageJson(*performance.picture));
    if (performance.object)
        nodes.addJson("OBJ", mediaJson(*performance.object));

    Members members;
    if (performance.duration)
        members.addJson("duration", seconds(*performance.duration));
    members.add("speed", performance.speed);
    members.add("scene", performance.scene);
    members.add("background", performance.background);
    if (performance.seed)
        members.addJson("seed", std::to_string(*performance.seed));
    if (!nodes.isEmpty())
        members.addJson("nodes", nodes.onLines("  "));
    const bool isOfVideo = performance.picture && performance.picture->sound;
    if (performance.music && !isOfVideo)
        members.addJson("audio", musicJson(*performance.music));
    members.addJson("cues", cuesJson(performance.cues));
    return members.onLines("") + "\n";
}

} // namespace zelvo::document
