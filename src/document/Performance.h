// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::document {

// The document: how the stage is styled, and what is pressed when. The window makes it of its stage
// and its records, a performance file carries it, and `perform` makes records of it again. An empty
// field leaves the stage as it is at the start of the program. The reader has checked all values.

/// The line in the file, for messages. Any two are equal: the place of a value is no part of it.
struct Line {
    int number = 1;

    friend bool operator==(const Line&, const Line&) { return true; }
};

/// The layout of a node: its place before any animation.
struct LayoutStyle {
    std::optional<glm::dvec3> position; ///< scene units
    std::optional<double> scale;        ///< 0.15 to 5
    std::optional<glm::dvec3> rotation; ///< radians around x, y, z (degrees in the file)
    std::optional<bool> visible;

    friend bool operator==(const LayoutStyle&, const LayoutStyle&) = default;
};

/// The style of a text node.
struct TextStyle : LayoutStyle {
    std::optional<std::string> text;     ///< one line, at most kMaxTextLength characters
    Line fontLine;                       ///< of `font`
    std::optional<std::string> font;     ///< its name
    std::optional<std::string> fontFile; ///< path of a font that does not come with the program
    std::optional<std::string> material; ///< title of a material pair
    std::optional<image::Color> frontColor;
    std::optional<image::Color> bandColor;
    std::optional<double> depth;        ///< 1 to 150 scene units
    std::optional<double> bevel;        ///< 0 to 4 scene units
    std::optional<std::string> profile; ///< "linear" or "rounded"
    std::optional<std::string> fill;    ///< "inner" or "outer"
    std::optional<double> maxWidth;     ///< scene units; a wider text is made smaller, to fit

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// The style of the image node. It shows the node, unless `visible` is false.
struct ImageStyle : LayoutStyle {
    Line line; ///< of `image`
    /// Path of a picture or a video as in the file, relative to the performance.
    std::optional<std::string> image;
    bool sound = false;              ///< the video's sound is the music of the movie
    bool hideAtEnd = false;          ///< the video is hidden when it has ended
    std::optional<std::string> mask; ///< name of a mask
    std::optional<bool> flipH;
    std::optional<bool> flipV;
    std::optional<int> quarterTurns; ///< 0 to 3, clockwise

    friend bool operator==(const ImageStyle&, const ImageStyle&) = default;
};

/// The style of the media node.
struct MediaStyle : LayoutStyle {
    std::optional<std::string> shape; ///< name of a shape
    Line line;                        ///< of `object`
    std::optional<std::string>
        object; ///< 3D file; path as in the file, relative to the performance
    std::optional<std::string> material; ///< title of a material pair
    std::optional<image::Color> color;

    friend bool operator==(const MediaStyle&, const MediaStyle&) = default;
};

/// The stretch of a song that the movie plays. Times are seconds.
struct Music {
    Line line;                        ///< of `file`
    std::string file;                 ///< path as in the file, relative to the performance
    std::optional<std::string> title; ///< shown in the window; empty: the file's name
    double in = 0;                    ///< song time at the start of the stretch
    /// Song time at the end of the stretch; empty: as long as the movie, or until the song ends.
    std::optional<double> end;
    double preRoll = 0;              ///< movie time when the music starts
    std::optional<std::string> fade; ///< name of a fade

    friend bool operator==(const Music&, const Music&) = default;
};

/// A press of a button of the catalogue.
struct Press {
    std::string tab;
    std::string title;                     ///< of the button, as in the history
    std::vector<std::string> nodes;        ///< short names; empty: all
    std::optional<std::string> speed;      ///< title of a speed, for this press only
    bool isHeld = false;                   ///< the button acts as long as it is held
    std::optional<double> held;            ///< seconds from press to release; empty: never released
    std::vector<std::string> releaseNodes; ///< as `nodes`, for the release; empty: `nodes`
    std::optional<std::string> releaseSpeed; ///< title of a speed, for the release
    std::optional<std::uint32_t> seed;       ///< of what the press draws at random

    friend bool operator==(const Press&, const Press&) = default;
};

/// How fingers lie on the picture.
///
/// Without `times`, they move from step to step in equal times and in every frame, and are lifted at
/// the last step. With them, each step is a touch of its own, as it came from a hand.
struct Fingers {
    std::vector<double> times;   ///< seconds from the cue to each step; none: equal times
    std::optional<double> lasts; ///< seconds until they are lifted; empty: they never are
    /// False: they were down before; the first step of a drag is where they were.
    bool begins = true;
    std::optional<std::string> releaseSpeed; ///< title of a speed, for the way home

    friend bool operator==(const Fingers&, const Fingers&) = default;
};

/// A drag of one finger.
struct Pan : Fingers {
    std::vector<glm::dvec2> points; ///< x to the right, y down

    friend bool operator==(const Pan&, const Pan&) = default;
};

/// A pinch with two fingers.
struct Pinch : Fingers {
    std::vector<double> velocities; ///< scale factors per second

    friend bool operator==(const Pinch&, const Pinch&) = default;
};

struct DoubleTap {
    friend bool operator==(const DoubleTap&, const DoubleTap&) = default;
};

struct Undo {
    friend bool operator==(const Undo&, const Undo&) = default;
};

struct Redo {
    friend bool operator==(const Redo&, const Redo&) = default;
};

struct Cue {
    double at = 0; ///< seconds of the movie; negative in the count-in
    std::variant<Press, Pan, Pinch, DoubleTap, Undo, Redo> act;

    friend bool operator==(const Cue&, const Cue&) = default;
};

/// The look of the stage, and what sounds.
struct Style {
    std::optional<double> duration;   ///< 2 to 3599 seconds
    std::optional<std::string> speed; ///< title of a speed
    std::optional<std::string> scene; ///< title of a scene
    std::optional<image::Color> background;
    std::map<std::string, TextStyle> nodes; ///< the texts, by short name
    std::optional<ImageStyle> picture;      ///< "IMG"
    std::optional<MediaStyle> object;       ///< "OBJ"
    std::optional<Music> music;

    friend bool operator==(const Style&, const Style&) = default;
};

struct Performance : Style {
    std::optional<std::uint64_t> seed; ///< of the particles, and of cues without a seed
    std::vector<Cue> cues; ///< sorted by time; cues of the same time in the file's order

    friend bool operator==(const Performance&, const Performance&) = default;
};

} // namespace zelvo::document
