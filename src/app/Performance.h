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

// The content of a performance file: how the stage is styled, and what is pressed when. An empty
// field leaves the stage as it is at the start of the program. The reader has checked all values.

/// The layout of a node: its place before any animation.
struct LayoutStyle {
    std::optional<glm::dvec3> position; ///< scene units
    std::optional<double> scale;        ///< 0.15 to 5
    std::optional<glm::dvec3> rotation; ///< radians around x, y, z (degrees in the file)
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

/// The style of the image node. It shows the node, unless `visible` is false.
struct ImageStyle : LayoutStyle {
    int line = 1; ///< of `image` in the file, for error messages
    /// Path of a picture or a video as in the file, relative to the performance.
    std::optional<std::string> image;
    bool sound = false;              ///< the video's sound is the music of the movie
    bool hideAtEnd = false;          ///< the video is hidden when it has ended
    std::optional<std::string> mask; ///< name of a mask
    std::optional<bool> flipH;
    std::optional<bool> flipV;
    std::optional<int> quarterTurns; ///< 0 to 3, clockwise
};

/// The style of the media node.
struct MediaStyle : LayoutStyle {
    std::optional<std::string> shape; ///< name of a shape
    int line = 1;                     ///< of `object` in the file, for error messages
    std::optional<std::string>
        object; ///< 3D file; path as in the file, relative to the performance
    std::optional<std::string> material; ///< title of a material pair
    std::optional<image::Color> color;
};

/// The stretch of a song that the movie plays. Times are seconds.
struct Music {
    int line = 1;     ///< of `file` in the performance file, for error messages
    std::string file; ///< path as in the file, relative to the performance
    double in = 0;    ///< song time at the start of the stretch
    /// Song time at the end of the stretch; empty: as long as the movie, or until the song ends.
    std::optional<double> end;
    double preRoll = 0;              ///< movie time when the music starts
    std::optional<std::string> fade; ///< name of a fade
};

/// A press of a button of the catalogue.
struct Press {
    std::string tab;
    std::string title;                ///< of the button, as in the history
    std::vector<std::string> nodes;   ///< short names; empty: all
    std::optional<std::string> speed; ///< title of a speed, for this press only
    std::optional<double> held;       ///< seconds from press to release; only for held buttons
};

/// A drag of one finger over the picture, from point to point in equal times. The finger is lifted
/// at the last point.
struct Pan {
    std::vector<glm::dvec2> points; ///< at least two; x to the right, y down
    double lasts = 0;               ///< seconds
};

/// A pinch with two fingers. Its velocity changes from value to value in equal times.
struct Pinch {
    std::vector<double> velocities; ///< at least one; scale factors per second
    double lasts = 0;               ///< seconds
};

struct DoubleTap {};

struct Undo {};

struct Redo {};

struct Cue {
    double at = 0; ///< seconds of the movie; negative in the count-in
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
    std::vector<Cue> cues; ///< sorted by time; cues of the same time in the file's order
};

} // namespace zelvo::app
