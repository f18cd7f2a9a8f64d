// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"

#include <glm/vec3.hpp>

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::app {

// A performance as written down: how the stage is styled and what is pressed when. Absent fields
// leave the stage as the program starts with it. All values have been checked by the reader.

/// The style of a text node.
struct TextStyle {
    std::optional<std::string> text;     ///< one line, at most kMaxTextLength characters
    std::optional<std::string> font;     ///< one of the built-in names
    std::optional<std::string> material; ///< title of a material pair
    std::optional<image::Color> frontColor;
    std::optional<image::Color> bandColor;
    std::optional<double> depth;        ///< 1 to 150 scene units
    std::optional<double> bevel;        ///< 0 to 4 scene units
    std::optional<std::string> profile; ///< "linear" or "rounded"
    std::optional<std::string> fill;    ///< "inner" or "outer"
    std::optional<glm::dvec3> position; ///< scene units; the layout's, not the performance's
    std::optional<double> scale;        ///< 0.15 to 5
    std::optional<glm::dvec3> rotation; ///< radians about x, y, z (degrees in the file)
    std::optional<bool> visible;
};

/// The stretch of music, in seconds, and its fades.
struct Music {
    int line = 1;     ///< where the file name stands
    std::string file; ///< as written; relative to the performance file
    double in = 0;    ///< song time at which the stretch begins
    std::optional<double>
        end; ///< song time at which it ends; absent: the song's end or the movie's length
    double preRoll = 0;              ///< movie time at which it begins to sound
    std::optional<std::string> fade; ///< noFade, fadeIn, fadeOut, fadeInOut
};

/// A button of the catalogue, pressed.
struct Press {
    std::string tab;
    std::string title;                ///< in the history
    std::vector<std::string> nodes;   ///< short names; empty: all
    std::optional<std::string> speed; ///< title of a speed, for this press only
};

struct Undo {};

struct Redo {};

struct Cue {
    double at = 0; ///< seconds of the movie; the count-in is below 0
    std::variant<Press, Undo, Redo> act;
};

struct Performance {
    std::optional<double> duration;   ///< 2 to 3599 seconds
    std::optional<std::string> speed; ///< title of a speed
    std::optional<std::string> scene; ///< title of a scene
    std::optional<image::Color> background;
    std::map<std::string, TextStyle> nodes; ///< by short name
    std::optional<Music> music;
    std::vector<Cue> cues; ///< in order of time; those of one time in the order of the file
};

} // namespace zelvo::app
