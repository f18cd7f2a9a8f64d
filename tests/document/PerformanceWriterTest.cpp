// SPDX-License-Identifier: MIT
#include "document/PerformanceWriter.h"

#include "document/PerformanceReader.h"
#include "document/StylePaths.h"
#include "document/TestNames.h"

#include <fmt/format.h>
#include <glm/trigonometric.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace zelvo::document {

namespace {

/// Makes performances with values as they come from a stage: single precision, whole ticks.
class Dice {
public:
    explicit Dice(unsigned seed)
        : engine(seed) {}

    [[nodiscard]] int below(int bound) {
        return static_cast<int>(engine() % static_cast<unsigned>(bound));
    }

    [[nodiscard]] bool flip() { return below(2) == 0; }

    [[nodiscard]] double single(double least, double most) {
        const double share = static_cast<double>(below(1 << 20)) / (1 << 20);
        const auto value = static_cast<float>(least + share * (most - least));
        return std::stod(fmt::format("{}", value)); // as it is written
    }

    [[nodiscard]] double tick(int most) { return std::round(below(most) / 60.0 * 1e4) / 1e4; }

    template <class Value> void maybe(std::optional<Value>& field, const Value& value) {
        if (flip())
            field = value;
    }

    [[nodiscard]] const std::string& oneOf(const std::vector<std::string>& names) {
        return names.at(static_cast<std::size_t>(below(static_cast<int>(names.size()))));
    }

    [[nodiscard]] image::Color color() {
        return image::Color::hex(static_cast<unsigned>(below(0x1000000)));
    }

    [[nodiscard]] glm::dvec3 place() {
        return {single(-900, 900), single(-900, 900), single(-900, 900)};
    }

    [[nodiscard]] std::string text() {
        static const std::vector<std::string> kTexts{
            "", "NIGHT", "\"quoted\" \\ / ", "ünïcode \xF0\x9F\x98\x80", "a\x7F", "مرحبا"};
        return oneOf(kTexts);
    }

private:
    std::mt19937 engine;
};

void fillLayout(LayoutStyle& style, Dice& dice) {
    dice.maybe(style.position, dice.place());
    dice.maybe(style.scale, dice.single(0.15, 5));
    // Degrees that a slider gives; the file has degrees, the stage radians.
    dice.maybe(
        style.rotation,
        glm::radians(glm::dvec3(dice.below(361) - 180, dice.below(181) - 90, dice.below(91))));
    dice.maybe(style.visible, dice.flip());
}

[[nodiscard]] TextStyle randomText(const Names& names, Dice& dice) {
    TextStyle style;
    dice.maybe(style.text, dice.text());
    dice.maybe(style.font, std::string("My Font 8"));
    dice.maybe(style.fontFile, std::string("fonts/my \"font\".ttf"));
    dice.maybe(style.material, dice.oneOf(names.materials));
    dice.maybe(style.frontColor, dice.color());
    dice.maybe(style.bandColor, dice.color());
    dice.maybe(style.depth, dice.single(1, 150));
    dice.maybe(style.bevel, dice.single(0, 4));
    dice.maybe(style.profile, std::string(dice.flip() ? "linear" : "rounded"));
    dice.maybe(style.fill, std::string(dice.flip() ? "inner" : "outer"));
    dice.maybe(style.maxWidth, dice.single(50, 5000));
    fillLayout(style, dice);
    return style;
}

[[nodiscard]] Style randomStyle(const Names& names, Dice& dice) {
    Style style;
    dice.maybe(style.duration, 2 + dice.below(600) / 4.0);
    dice.maybe(style.speed, dice.oneOf(names.speeds));
    dice.maybe(style.scene, dice.oneOf(names.scenes));
    dice.maybe(style.background, dice.color());
    for (const char* const name : {"TX1", "TX2"}) {
        if (dice.flip())
            style.nodes[name] = randomText(names, dice);
    }
    if (dice.flip()) {
        ImageStyle& image = style.picture.emplace();
        dice.maybe(image.image, std::string("clip.mp4"));
        image.hideAtEnd = dice.flip();
        dice.maybe(image.mask, dice.oneOf(names.masks));
        dice.maybe(image.flipH, dice.flip());
        dice.maybe(image.flipV, dice.flip());
        dice.maybe(image.quarterTurns, dice.below(4));
        fillLayout(image, dice);
    }
    if (dice.flip()) {
        MediaStyle& media = style.object.emplace();
        dice.maybe(dice.flip() ? media.shape : media.object, std::string("Heart"));
        dice.maybe(media.material, dice.oneOf(names.objectMaterials));
        dice.maybe(media.color, dice.color());
        fillLayout(media, dice);
    }
    if (dice.flip()) {
        Music& music = style.music.emplace();
        music.file = "../songs/a b.mp3";
        dice.maybe(music.title, dice.text());
        music.in = dice.tick(1000);
        dice.maybe(music.end, std::round((music.in + 2 + dice.tick(5000)) * 1e4) / 1e4);
        music.preRoll = dice.tick(300);
        dice.maybe(music.fade, dice.oneOf(names.fades));
    }
    return style;
}

template <class Gesture> void fillFingers(Gesture& gesture, std::size_t steps, Dice& dice) {
    if (dice.flip()) {
        gesture.lasts = dice.tick(600);
    } else {
        double at = 0;
        for (std::size_t i = 0; i < steps; ++i)
            gesture.times.push_back(at = std::round((at + dice.tick(9)) * 1e4) / 1e4);
        gesture.begins = dice.flip();
        dice.maybe(gesture.lasts, at);
    }
    dice.maybe(gesture.releaseSpeed, std::string("Fast"));
}

[[nodiscard]] decltype(Cue::act) randomAct(Dice& dice) {
    switch (dice.below(6)) {
    case 0: {
        Pan pan;
        for (int i = 0; i <= dice.below(5); ++i)
            pan.points.emplace_back(dice.single(0, 1280), dice.single(0, 720));
        fillFingers(pan, pan.points.size(), dice);
        return pan;
    }
    case 1: {
        Pinch pinch;
        for (int i = 0; i <= dice.below(5); ++i)
            pinch.velocities.push_back(dice.single(-9, 9));
        fillFingers(pinch, pinch.velocities.size(), dice);
        return pinch;
    }
    case 2:
        return DoubleTap{};
    case 3:
        return dice.flip() ? decltype(Cue::act)(Undo{}) : Redo{};
    default: {
        Press press;
        press.isHeld = dice.flip();
        press.tab = press.isHeld ? "FX1" : "IN1";
        press.title = press.isHeld ? "Blur" : "Left In";
        if (press.isHeld) {
            dice.maybe(press.held, dice.tick(600));
            dice.maybe(press.releaseSpeed, std::string("Slow"));
            if (dice.flip())
                press.releaseNodes = {"OBJ"};
        }
        if (dice.flip())
            press.nodes = {"TX2", "IMG"};
        dice.maybe(press.speed, std::string("Normal"));
        dice.maybe(press.seed, 4'294'967'295U - static_cast<unsigned>(dice.below(99)));
        return press;
    }
    }
}

} // namespace

TEST(PerformanceWriter, writes_what_the_reader_reads_the_same) {
    const Names names = testNames();
    for (unsigned seed = 0; seed < 2000; ++seed) {
        Dice dice(seed);
        Performance performance{randomStyle(names, dice), {}, {}};
        dice.maybe(performance.seed, std::uint64_t{9'007'199'254'740'991} - seed);
        for (int count = dice.below(6); count > 0; --count)
            performance.cues.push_back({dice.tick(3600), randomAct(dice)});
        std::ranges::stable_sort(performance.cues, {}, &Cue::at);
        const std::string text = written(performance);
        const auto read = readPerformance(text, names);
        ASSERT_TRUE(read) << read.error().front().text << '\n' << text;
        EXPECT_EQ(written(*read), text);
        ASSERT_EQ(read->cues, performance.cues) << text;
        // Angles pass through degrees.
        for (auto& [name, style] : performance.nodes)
            style.rotation = read->nodes.at(name).rotation;
        if (performance.picture)
            performance.picture->rotation = read->picture->rotation;
        if (performance.object)
            performance.object->rotation = read->object->rotation;
        ASSERT_EQ(*read, performance) << text;
    }
}

TEST(PerformanceWriter, names_files_in_the_folder_relative_to_it_and_others_by_their_path) {
    Style style;
    style.picture.emplace().image = "/home/me/film/pictures/a.png";
    style.music.emplace().file = "/home/me/music/b.mp3";
    style = relativeTo(style, "/home/me/film");
    EXPECT_EQ(style.picture->image, "pictures/a.png");
    EXPECT_EQ(style.music->file, "/home/me/music/b.mp3");
}

} // namespace zelvo::document
