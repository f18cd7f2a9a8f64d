// SPDX-License-Identifier: MIT
#include "document/PerformanceReader.h"

#include "document/CueReader.h"
#include "document/NodeStyleReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace zelvo::document {

namespace {

using foundation::JsonObject;
using foundation::JsonValue;
using foundation::Problem;
using foundation::Problems;
using foundation::Range;

constexpr Range kDuration{2, 3599};
constexpr Range kSongTime{0, 86'400};
constexpr Range kSeeds{0, 9'007'199'254'740'991}; // what JSON numbers hold exactly

/// Reads one file. Each function returns what it could read, and adds the rest to `problems`.
class Reader {
public:
    explicit Reader(const Names& allowed)
        : names(allowed) {}

    [[nodiscard]] Performance performance(const JsonValue& root) {
        JsonObject object(root, "the performance", problems);
        Performance result;
        if (root.kind != JsonValue::Kind::object)
            return result;
        result.duration = object.number("duration", kDuration);
        result.speed = readSpeed(object, "speed", names, problems);
        result.scene = object.choice("scene", "scene", names.scenes);
        result.background = readColor(object, "background");
        if (const auto* const nodes = object.find("nodes")) {
            NodeStyles styles = readNodeStyles(*nodes, names, problems);
            result.nodes = std::move(styles.texts);
            result.picture = std::move(styles.picture);
            result.object = std::move(styles.object);
        }
        if (const auto* const audio = object.find("audio"))
            result.music = music(*audio);
        if (result.picture && result.picture->sound)
            takeVideoSound(result);
        if (const auto seed = object.number("seed", kSeeds))
            result.seed = static_cast<std::uint64_t>(*seed);
        result.cues = readCues(object, names, problems);
        (void)object.has("$schema"); // allowed, because editors use it
        object.finish();
        return result;
    }

    Problems problems;

private:
    /// A movie has one sound, so that of a video takes the place of the music.
    void takeVideoSound(Performance& performance) {
        const ImageStyle& picture = *performance.picture;
        if (performance.music || !picture.image) {
            problems.add(
                picture.line.number,
                "\"sound\" in node IMG needs a video in \"image\" and no \"audio\": a movie has "
                "one sound");
            return;
        }
        performance.music.emplace();
        performance.music->line = picture.line;
        performance.music->file = *picture.image;
    }

    [[nodiscard]] std::optional<Music> music(const JsonValue& value) {
        JsonObject object(value, "audio", problems);
        Music result;
        const auto file = object.string("file");
        if (value.kind == JsonValue::Kind::object && (!object.has("file") || file == "")) {
            problems.add(object.lineOf("file"), "audio needs a \"file\": the path of a sound file");
        }
        result.line.number = object.lineOf("file");
        result.file = file.value_or("");
        result.title = object.string("title");
        result.in = object.number("in", kSongTime).value_or(0);
        result.end = object.number("end", kSongTime);
        result.preRoll = object.number("preRoll", kSongTime).value_or(0);
        result.fade = object.choice("fade", "fade", names.fades);
        if (result.end && *result.end < result.in + kMinStretch) {
            problems.add(
                object.lineOf("end"),
                fmt::format(
                    "\"end\" in audio must be at least {} seconds after \"in\"; that is {} "
                    "or more",
                    kMinStretch,
                    result.in + kMinStretch));
        }
        object.finish();
        return result;
    }

    const Names& names;
};

} // namespace

tl::expected<Performance, std::vector<Problem>>
readPerformance(std::string_view text, const Names& names, const std::vector<Setting>& settings) {
    auto root = foundation::parseJson(text);
    if (!root)
        return tl::unexpected(std::vector{root.error()});
    if (auto nowhere = applySettings(settings, *root); !nowhere.empty())
        return tl::unexpected(std::move(nowhere));
    Reader reader(names);
    auto performance = reader.performance(*root);
    if (!reader.problems.isEmpty())
        return tl::unexpected(reader.problems.sorted(kMaxProblems));
    return performance;
}

} // namespace zelvo::document
