// SPDX-License-Identifier: MIT
#pragma once

#include "platform/image/Color.h"

#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::app {

// A performance as written down: how the stage is styled and what is pressed when. Absent fields
// leave the stage as the program starts with it. All values have been checked by the reader.

/// Where a node stands before anything is played: the layout's, not the performance's.
struct LayoutStyle {
    std::optional<glm::dvec3> position; ///< scene units
    std::optional<double> scale;        ///< 0.15 to 5
    std::optional<glm::dvec3> rotation; ///< radians about x, y, z (degrees in the file)
    std::optional<bool> visible;
};

/// The style of a text node.
struct TextStyle : LayoutStyle {
    std::optional<std::string> text;     ///< one line, at most kMaxTextLength characters
    std::optional<std::string> font;     ///< one of the built-in names
    std::optional<std::string> material; ///< title of a material pair
    std::optional<image::Color> frontColor;
    std::optional<image::Color> bandColor;
    std::optional<double> depth;        ///< 1 to 150 scene units
    std::optional<double> bevel;        ///< 0 to 4 scene units
    std::optional<std::string> profile; ///< "linear" or "rounded"
    std::optional<std::string> fill;    ///< "inner" or "outer"
};

/// The style of the image node. A picture or a mask shows the node unless `visible` says otherwise.
struct ImageStyle : LayoutStyle {
    int line = 1;                     ///< where the picture's name stands
    std::optional<std::string> image; ///< a picture file as written; relative to the performance
    std::optional<std::string> mask;  ///< name of a mask
    std::optional<bool> flipH;
    std::optional<bool> flipV;
    std::optional<int> quarterTurns; ///< 0 to 3, clockwise
};

/// The style of the media node.
struct MediaStyle : LayoutStyle {
    std::optional<std::string> shape;    ///< name of a shape
    std::optional<std::string> material; ///< title of a material pair
    std::optional<image::Color> color;
};

/// The stretch of music, in seconds, and its fades.
struct Music {
    int line = 1;     ///< where the file name stands
    std::string file; ///< as written; relative to the performance file
    double in = 0;    ///< song time at which the stretch begins
    std::optional<double>
        end; ///< song time at which it ends; absent: the song's end or the movie's length
    double preRoll = 0;              ///< movie time at which it begins to sound
    std::optional<std::string> fade; ///< name of a fade
};

/// A button of the catalogue, pressed.
struct Press {
    std::string tab;
    std::string title;                ///< in the history
    std::vector<std::string> nodes;   ///< short names; empty: all
    std::optional<std::string> speed; ///< title of a speed, for this press only
    std::optional<double> held;       ///< of a button that is held: seconds from press to lift-off
};

/// A finger drawn from point to point over the picture, the same time from each to the next, and
/// lifted at the last one.
struct Pan {
    std::vector<glm::dvec2> points; ///< at least two; x to the right, y down
    double lasts = 0;               ///< seconds
};

/// Two fingers moved apart or together and then lifted. Their velocity goes from each value to the
/// next in the same time.
struct Pinch {
    std::vector<double> velocities; ///< at least one; scale factors per second
    double lasts = 0;               ///< seconds
};

struct DoubleTap {};

struct Undo {};

struct Redo {};

struct Cue {
    double at = 0; ///< seconds of the movie; the count-in is below 0
    std::variant<Press, Pan, Pinch, DoubleTap, Undo, Redo> act;
};

struct Performance {
    std::optional<double> duration;   ///< 2 to 3599 seconds
    std::optional<std::string> speed; ///< title of a speed
    std::optional<std::string> scene; ///< title of a scene
    std::optional<image::Color> background;
    std::map<std::string, TextStyle> nodes; ///< the texts, by short name
    std::optional<ImageStyle> picture;      ///< "IMG"
    std::optional<MediaStyle> object;       ///< "OBJ"
    std::optional<Music> music;
    std::vector<Cue> cues; ///< in order of time; those of one time in the order of the file
};

} // namespace zelvo::app
