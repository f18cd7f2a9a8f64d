// SPDX-License-Identifier: MIT
#pragma once

#include "document/Settings.h"
#include "platform/foundation/Result.h"
#include "platform/media/Container.h"
#include "platform/media/VideoSettings.h"
#include "platform/render/DrawQuality.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zelvo::app {

/// The size of a movie or picture in pixels. Both sides are even, from movie::kMinSide to kMaxSide.
struct PictureSize {
    int width = 1920;
    int height = 1080;

    friend bool operator==(const PictureSize&, const PictureSize&) = default;
};

/// Which performance a command takes, and what is changed in it.
struct SourceOptions {
    std::filesystem::path file;
    std::string templateName; ///< in place of the file: a template, or the path of another file
    std::vector<document::Setting> settings;
};

/// `zelvo perform`.
struct PerformCommand {
    SourceOptions source;
    std::filesystem::path movie;  ///< empty: the user's videos folder; fits `format`
    std::filesystem::path frames; ///< folder for PNG files; empty: none
    PictureSize size;
    render::DrawQuality quality;
    bool hasAlpha = false;             ///< only the content, without the environment
    std::optional<std::uint64_t> seed; ///< empty: that of the performance
    media::Container format = media::Container::quickTime; ///< of the movie
    std::optional<media::VideoCodec> codec;
    bool showsTiming = false;
};

/// `zelvo frame`.
struct FrameCommand {
    SourceOptions source;
    double at = 0; ///< seconds of the movie; negative in the count-in
    std::filesystem::path out;
    PictureSize size;
    render::DrawQuality quality;
    bool hasAlpha = false;             ///< only the content, without the environment
    std::optional<std::uint64_t> seed; ///< empty: that of the performance
};

/// `zelvo strip`.
struct StripCommand {
    SourceOptions source;
    double from = 0; ///< seconds of the movie; negative in the count-in
    double to = 0;   ///< not before `from`
    int count = kMinMoments;
    std::filesystem::path out;
    PictureSize size{384, 216};        ///< of each moment
    std::optional<std::uint64_t> seed; ///< empty: that of the performance

    static constexpr int kMinMoments = 1;
    static constexpr int kMaxMoments = 100;
};

enum class SheetKind { materials, scenes, shapes, masks, fonts, objects };

/// `zelvo batch`: a movie for each row of a table.
struct BatchCommand {
    std::filesystem::path table;
    SourceOptions source;         ///< the settings are for all rows
    std::filesystem::path movies; ///< folder
    PictureSize size;
    render::DrawQuality quality;
    std::optional<std::uint64_t> seed; ///< empty: that of the performance
    std::optional<media::VideoCodec> codec;
};

/// `zelvo sheet`.
struct SheetCommand {
    SheetKind what = SheetKind::materials;
    std::vector<std::filesystem::path> files; ///< of the objects; otherwise none
    std::filesystem::path out;
};

enum class Listing { tabs, buttons, fonts, materials, scenes, shapes, masks, speeds, templates };

/// `zelvo list`.
struct ListCommand {
    Listing what = Listing::tabs;
};

/// `zelvo inspect`.
struct InspectCommand {
    std::vector<std::filesystem::path> files;
};

/// `zelvo waveform`.
struct WaveformCommand {
    std::filesystem::path song;
    std::filesystem::path out;
    PictureSize size{1280, 320};
};

/// `zelvo` without a command: opens the window.
struct WindowCommand {
    std::vector<std::filesystem::path> files; ///< to open in the window
    bool showsTouches = false;                ///< marks each finger, from the start
};

/// --help, --version: a text to print.
struct TextCommand {
    std::string text;
};

using Command = std::variant<
    PerformCommand,
    FrameCommand,
    StripCommand,
    BatchCommand,
    SheetCommand,
    ListCommand,
    InspectCommand,
    WaveformCommand,
    WindowCommand,
    TextCommand>;

/// Parses the arguments (without the program's name). The error is one line.
[[nodiscard]] foundation::Result<Command> parseCommandLine(std::vector<std::string> arguments);

} // namespace zelvo::app
