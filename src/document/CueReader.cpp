// SPDX-License-Identifier: MIT
#include "document/CueReader.h"

#include "document/GestureReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <span>
#include <utility>

namespace zelvo::document {

namespace {

using foundation::JsonObject;
using foundation::JsonValue;
using foundation::Problems;
using foundation::unknownName;
using Strings = std::vector<std::string>;

constexpr foundation::Range kHoldTime{0, 3600}; ///< seconds
constexpr double kLatest = 3600;                ///< seconds; the longest movie
constexpr foundation::Range kPressSeeds{0, 4'294'967'295};

constexpr auto kCueKeys = std::to_array<std::string_view>(
    {"at",
     "tab",
     "press",
     "hold",
     "for",
     "nodes",
     "speed",
     "pan",
     "pinch",
     "doubleTap",
     "undo",
     "redo",
     "times",
     "begins",
     "releaseSpeed",
     "releaseNodes",
     "seed"});

using Act = decltype(Cue::act);

/// A cue that presses no button. Its key says what it does.
struct BareCue {
    const char* key;
    std::span<const std::string_view> others; ///< further keys that it can have
    Act (*read)(JsonObject& cue, const char* key, Problems& problems);
};

constexpr auto kFingerKeys =
    std::to_array<std::string_view>({"for", "times", "begins", "releaseSpeed"});

/// Reads a cue such as `"undo": true`. False is a problem.
template <class What> Act readTrue(JsonObject& cue, const char* key, Problems& problems) {
    if (cue.boolean(key) == false) {
        problems.add(
            cue.lineOf(key),
            fmt::format(R"("{}" in cue can only be true; leave the cue out)", key));
    }
    return What{};
}

template <auto kRead> Act readGesture(JsonObject& cue, const char*, Problems& problems) {
    return kRead(cue, problems);
}

// clang-format off
constexpr auto kBareCues = std::to_array<BareCue>({
    {"undo",      {},          readTrue<Undo>        },
    {"redo",      {},          readTrue<Redo>        },
    {"doubleTap", {},          readTrue<DoubleTap>   },
    {"pan",       kFingerKeys, readGesture<readPan>  },
    {"pinch",     kFingerKeys, readGesture<readPinch>},
});

// clang-format on

[[nodiscard]] bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

class CueReader {
public:
    CueReader(const Names& allowed, Problems& found)
        : names(allowed)
        , problems(found) {}

    [[nodiscard]] std::vector<Cue> cues(JsonObject& root) {
        if (!root.has("cues")) {
            problems.add(
                root.lineOf("cues"), "\"cues\" is missing: the list of what is pressed when");
            return {};
        }
        const auto* const list = root.find("cues", JsonValue::Kind::array);
        if (list == nullptr)
            return {};
        if (list->items.size() > kMaxCues) {
            problems.add(
                list->line,
                fmt::format(
                    "{} cues are too many; at most {} are allowed", list->items.size(), kMaxCues));
            return {};
        }
        std::vector<Cue> result;
        for (const auto& item : list->items) {
            if (problems.isFull())
                break;
            result.push_back(cue(item));
        }
        std::ranges::stable_sort(result, {}, &Cue::at);
        return result;
    }

private:
    [[nodiscard]] Cue cue(const JsonValue& value) {
        JsonObject object(value, "cue", problems);
        Cue result;
        if (value.kind != JsonValue::Kind::object)
            return result;
        for (const auto key : kCueKeys)
            (void)object.has(key); // so that finish() does not call it unknown
        result.at = time(object);
        const auto* const bare = std::ranges::find_if(
            kBareCues, [&](const BareCue& row) { return object.has(row.key); });
        if (bare == kBareCues.end()) {
            result.act = press(object);
        } else {
            checkAlone(object, *bare);
            result.act = bare->read(object, bare->key, problems);
            if (auto* const pan = std::get_if<Pan>(&result.act))
                pan->releaseSpeed = readSpeed(object, "releaseSpeed", names, problems);
            if (auto* const pinch = std::get_if<Pinch>(&result.act))
                pinch->releaseSpeed = readSpeed(object, "releaseSpeed", names, problems);
        }
        object.finish();
        return result;
    }

    [[nodiscard]] double time(JsonObject& object) {
        if (!object.has("at")) {
            problems.add(
                object.lineOf("at"), "cue needs \"at\": the second of the movie when it comes");
            return 0;
        }
        const auto* const value = object.find("at", JsonValue::Kind::number);
        if (value == nullptr)
            return 0;
        if (value->number >= -kCountIn && value->number <= kLatest)
            return value->number;
        problems.add(
            value->line,
            fmt::format(
                "\"at\" in cue must be {} to {} seconds, not {}",
                -kCountIn,
                kLatest,
                value->number));
        return 0;
    }

    void checkAlone(JsonObject& object, const BareCue& bare) {
        for (const std::string_view key : kCueKeys) {
            if (key == "at" || key == bare.key || !object.has(key))
                continue;
            if (std::ranges::find(bare.others, key) != bare.others.end())
                continue;
            problems.add(
                object.lineOf(key),
                fmt::format(R"("{}" does not go with "{}" in one cue)", key, bare.key));
        }
    }

    [[nodiscard]] Press press(JsonObject& object) {
        Press result;
        result.speed = readSpeed(object, "speed", names, problems);
        result.releaseSpeed = readSpeed(object, "releaseSpeed", names, problems);
        if (const auto seed = object.number("seed", kPressSeeds))
            result.seed = static_cast<std::uint32_t>(*seed);
        result.nodes = affectedNodes(object, "nodes");
        result.releaseNodes = affectedNodes(object, "releaseNodes");
        const bool isHeld = object.has("hold");
        const char* const key = isHeld ? "hold" : "press";
        if (!object.has("tab") || !object.has(key)) {
            problems.add(
                object.lineOf(""),
                R"(cue needs "tab" and "press" or "hold", or a gesture, or "undo": true, or "redo": true)");
            return result;
        }
        if (isHeld && object.has("press"))
            problems.add(object.lineOf("press"), R"(a cue is either "press" or "hold")");
        result.isHeld = isHeld;
        result.held = holdTime(object);
        checkPressKeys(object);
        Strings tabs;
        for (const auto& row : names.tabs)
            tabs.push_back(row.tab);
        const auto tab = object.choice("tab", "tab", tabs);
        const auto title = object.string(key);
        if (!tab || !title)
            return result;
        checkButton(*tab, *title, object.lineOf(key));
        checkHand(*tab, *title, object);
        result.tab = *tab;
        result.title = *title;
        return result;
    }

    /// Seconds; empty for a cue that only presses or is never released.
    [[nodiscard]] std::optional<double> holdTime(JsonObject& object) {
        const bool isHeld = object.has("hold");
        if (isHeld != object.has("for")) {
            problems.add(
                object.lineOf(isHeld ? "hold" : "for"),
                R"("hold" and "for", how many seconds, go together)");
            return std::nullopt;
        }
        return isHeld ? readLasting(object, kHoldTime) : std::nullopt;
    }

    /// Reports what only gestures can have.
    void checkPressKeys(JsonObject& object) {
        for (const char* const key : {"times", "begins"}) {
            if (object.has(key))
                problems.add(
                    object.lineOf(key), fmt::format(R"("{}" needs "pan" or "pinch")", key));
        }
    }

    /// Reports a held button that is only pressed, and a fired button that is held.
    void checkHand(const std::string& tab, const std::string& title, JsonObject& object) {
        const auto row = std::ranges::find(names.tabs, tab, &TabNames::tab);
        if (std::ranges::find(row->titles, title) == row->titles.end())
            return;
        const bool lasts = std::ranges::find(row->held, title) != row->held.end();
        if (lasts == object.has("hold"))
            return;
        problems.add(
            object.lineOf(lasts ? "press" : "hold"),
            lasts ? fmt::format(R"(button "{}" is held: write "hold" and "for")", title)
                  : fmt::format(R"(button "{}" cannot be held: write "press")", title));
    }

    void checkButton(const std::string& tab, const std::string& title, int line) {
        const auto row = std::ranges::find(names.tabs, tab, &TabNames::tab);
        const auto holds = [&](const TabNames& other) {
            return std::ranges::find(other.titles, title) != other.titles.end();
        };
        if (holds(*row))
            return;
        if (row->titles.empty()) {
            problems.add(line, fmt::format("the buttons of tab {} are not supported yet", tab));
            return;
        }
        const auto other = std::ranges::find_if(names.tabs, holds);
        problems.add(
            line,
            other == names.tabs.end()
                ? unknownName("button", title, row->titles, "tab " + tab)
                : fmt::format(
                      "unknown button \"{}\" in tab {}; it is in tab {}", title, tab, other->tab));
    }

    [[nodiscard]] Strings affectedNodes(JsonObject& object, const char* key) {
        const auto* const list = object.find(key, JsonValue::Kind::array);
        if (list == nullptr)
            return {};
        if (list->items.empty()) {
            problems.add(
                list->line,
                fmt::format(
                    R"("{}" in cue must name at least one node; leave it out for all of them)",
                    key));
        }
        Strings result;
        for (const auto& item : list->items) {
            if (problems.isFull())
                break;
            if (const auto problem = nodeProblem(key, item, result)) {
                problems.add(item.line, *problem);
            } else {
                result.push_back(item.string);
            }
        }
        return result;
    }

    [[nodiscard]] static std::optional<std::string>
    nodeProblem(const char* key, const JsonValue& item, const Strings& before) {
        if (item.kind != JsonValue::Kind::string) {
            return fmt::format(
                R"("{}" in cue must be a list of node names, not {})", key, kindName(item.kind));
        }
        if (std::ranges::find(nodeNames(), item.string) == nodeNames().end()) {
            return unknownName("node", item.string, nodeNames());
        }
        if (std::ranges::find(before, item.string) != before.end()) {
            return fmt::format("node \"{}\" stands twice in one cue", item.string);
        }
        return std::nullopt;
    }

    const Names& names;
    Problems& problems;
};

} // namespace

std::vector<Cue> readCues(JsonObject& root, const Names& names, Problems& problems) {
    return CueReader(names, problems).cues(root);
}

std::optional<std::string>
readSpeed(JsonObject& object, const char* key, const Names& names, Problems& problems) {
    const auto* const value = object.find(key, JsonValue::Kind::string);
    if (value == nullptr)
        return std::nullopt;
    for (const auto& title : names.speeds) {
        if (equalsIgnoringCase(title, value->string))
            return title;
    }
    problems.add(value->line, unknownName("speed", value->string, names.speeds));
    return std::nullopt;
}

const std::vector<std::string>& nodeNames() {
    static const Strings kNames{"TX1", "TX2", "IMG", "OBJ"};
    return kNames;
}

} // namespace zelvo::document
