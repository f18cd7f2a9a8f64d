// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/media/VideoSettings.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::app {

/// Of a movie or picture: both sides even, kMinSide to kMaxSide pixels.
struct PictureSize {
    int width = 1920;
    int height = 1080;

    friend bool operator==(const PictureSize&, const PictureSize&) = default;
};

inline constexpr int kMinSide = 16;
inline constexpr int kMaxSide = 4096;

/// zelvo perform
struct PerformCommand {
    std::filesystem::path file;
    std::filesystem::path movie;  ///< empty: the user's videos folder
    std::filesystem::path frames; ///< folder for PNG files; empty: none
    PictureSize size;
    std::uint64_t seed = 0;
    std::optional<media::VideoCodec> codec;
    bool showsTiming = false;
};

/// zelvo frame
struct FrameCommand {
    std::filesystem::path file;
    double at = 0; ///< seconds of the movie, the count-in below 0
    std::filesystem::path out;
    PictureSize size;
    std::uint64_t seed = 0;
};

/// zelvo strip
struct StripCommand {
    std::filesystem::path file;
    double from = 0; ///< seconds of the movie, the count-in below 0
    double to = 0;   ///< not before `from`
    int count = kMinMoments;
    std::filesystem::path out;
    PictureSize size{384, 216}; ///< of each moment
    std::uint64_t seed = 0;

    static constexpr int kMinMoments = 1;
    static constexpr int kMaxMoments = 100;
};

enum class SheetKind { materials, scenes, shapes, masks, fonts };

/// zelvo sheet
struct SheetCommand {
    SheetKind what = SheetKind::materials;
    std::filesystem::path out;
};

enum class Listing { tabs, buttons, fonts, materials, scenes, shapes, masks, speeds };

/// zelvo list
struct ListCommand {
    Listing what = Listing::tabs;
};

/// zelvo without a command: the application's window.
struct WindowCommand {
    std::vector<std::filesystem::path> files; ///< to be opened, as the file manager would
    bool showsTouches = false;                ///< each finger leaves a mark, from the start
};

/// --help, --version: a text to print.
struct TextCommand {
    std::string text;
};

using Command = std::variant<
    PerformCommand,
    FrameCommand,
    StripCommand,
    SheetCommand,
    ListCommand,
    WindowCommand,
    TextCommand>;

/// What the arguments (without the program's name) ask for. The error is one line.
[[nodiscard]] foundation::Result<Command> parseCommandLine(std::vector<std::string> arguments);

} // namespace zelvo::app
