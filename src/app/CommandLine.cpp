// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include "export/PictureSizes.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>

namespace zelvo::app {

namespace {

constexpr std::string_view kDescription =
    "Makes short three-dimensional title movies from a performance: the look of a stage with two\n"
    "texts, and the buttons that are pressed while the clock runs. Without a command, a window\n"
    "opens, in which you perform by hand.";

constexpr std::string_view kFooter =
    "Examples:\n"
    "  zelvo\n"
    "  zelvo logo.svg\n"
    "  zelvo perform night.json --movie night.mov\n"
    "  zelvo perform night.json --movie title.webm --alpha\n"
    "  zelvo perform --template night --set TX1.text=HELLO --movie hello.mov\n"
    "  zelvo batch names.csv --template wedding --movies made\n"
    "  zelvo frame night.json --at 2.5 --out still.png --size 1280x720\n"
    "  zelvo strip night.json --from 0 --to 2 --count 8 --out strip.png\n"
    "  zelvo sheet materials --out materials.png\n"
    "  zelvo list buttons\n"
    "  zelvo inspect ship.usdz chair.obj\n"
    "  zelvo sheet objects ship.usdz chair.obj --out objects.png\n"
    "  zelvo waveform song.mp3 --out song.png\n"
    "\n"
    "Exit status:\n"
    "  0 done; 1 the export failed, or no window could be opened; 2 the command line or a file it "
    "names is wrong;\n"
    "  129, 130 or 143 stopped by SIGHUP, SIGINT or SIGTERM.";

constexpr std::string_view kPerformFooter =
    "Draws the performance at 60 frames a second, and writes it with its music. The same file and\n"
    "seed give the same frames. Without --movie, the movie is written to your videos folder and\n"
    "its path is printed. With --frames and without --movie, no movie is made. An earlier movie "
    "is\n"
    "replaced only by a finished one.";

constexpr std::string_view kFrameFooter = "The picture is the same as in the movie at that time. "
                                          "Times below 0 are in the count-in of two\n"
                                          "seconds, which the movie does not show.";

constexpr std::string_view kStripFooter =
    "Shows frames of the movie in rows of at most four, with their times below. They are at equal\n"
    "distances from the first moment to the last. Times below 0 are in the count-in. --size is "
    "the\n"
    "size of one frame.";

constexpr std::string_view kBatchFooter =
    "The table is a CSV file (RFC 4180, UTF-8). Its first row has the keys, as for --set: "
    "TX1.text,\n"
    "TX2.text, background. The column movie has the names of the movies; without it, they are the\n"
    "number of the row and its first text. An empty cell leaves the value as it is, but an empty\n"
    "text is one. Paths are relative to the table.\n"
    "A row with an error is left out and told at the end. The same command goes on where it was\n"
    "stopped: it makes only the movies that are missing, or whose row or performance has changed.";

constexpr std::string_view kSheetFooter =
    "Each is drawn as in a movie, with its name for performance files below. The order is that of\n"
    "zelvo list. For objects, name the 3D files: each is drawn in its own materials, with its name "
    "and\n"
    "how many triangles and materials it has.";

constexpr std::string_view kListFooter =
    "Prints one name per line. For a button: its tab, a tab character, and its title for\n"
    "performance files.";

constexpr std::string_view kInspectFooter =
    "Prints a line for each file, separated by tabs: the file, how many meshes, points, faces,\n"
    "triangles, materials and textures are drawn, and the least and the largest corner of the box\n"
    "around them in the file's own units and axes. If a file cannot be read, the reason stands\n"
    "behind its name, and the exit status is 2. Reads USDZ, USD, OBJ, glTF, GLB and STL.";

constexpr std::string_view kWaveformFooter =
    "Draws how loud the song is over its time, with its name above and a ruler below. Reads any "
    "sound\n"
    "or movie file that a performance can have as its music.";

struct ListingName {
    std::string_view name;
    Listing what;
};

// clang-format off
constexpr auto kListings = std::to_array<ListingName>({
    {"tabs",      Listing::tabs     },
    {"buttons",   Listing::buttons  },
    {"fonts",     Listing::fonts    },
    {"materials", Listing::materials},
    {"scenes",    Listing::scenes   },
    {"shapes",    Listing::shapes   },
    {"masks",     Listing::masks    },
    {"speeds",    Listing::speeds   },
    {"templates", Listing::templates},
});

// clang-format on

struct SheetName {
    std::string_view name;
    SheetKind kind;
};

// clang-format off
constexpr auto kSheets = std::to_array<SheetName>({
    {"materials", SheetKind::materials},
    {"scenes",    SheetKind::scenes   },
    {"shapes",    SheetKind::shapes   },
    {"masks",     SheetKind::masks    },
    {"fonts",     SheetKind::fonts    },
    {"objects",   SheetKind::objects  },
});

// clang-format on

[[nodiscard]] std::string sizeNames() {
    std::string names;
    for (const movie::NamedSize& row : movie::kNamedSizes)
        names += (names.empty() ? "" : ", ") + std::string(row.name);
    return names;
}

// Arguments that several subcommands share.

/// Rejects an empty name. A script passes one by mistake, from an unset variable; it must not be
/// taken as the default place.
[[nodiscard]] CLI::Validator named() {
    return {
        [](const std::string& given) {
            return given.empty() ? std::string("must not be empty: name a file or a folder")
                                 : std::string();
        },
        ""};
}

/// --set: a value in place of one in the file.
void addSettings(CLI::App& command, std::vector<document::Setting>& settings) {
    command
        .add_option_function<std::vector<std::string>>(
            "--set",
            [&settings](const std::vector<std::string>& all) {
                if (all.size() > document::kMaxSettings) {
                    throw CLI::ValidationError(
                        fmt::format("--set is given more than {} times", document::kMaxSettings));
                }
                for (const std::string& text : all) {
                    auto setting =
                        document::parseSetting(text, "--set", std::filesystem::current_path());
                    if (!setting)
                        throw CLI::ValidationError(setting.error().message);
                    settings.push_back(std::move(*setting));
                }
            },
            "Change a value of the performance, such as TX1.text=HELLO; can be repeated")
        ->allow_extra_args(false)
        ->type_name("KEY=VALUE");
}

[[nodiscard]] CLI::Option* addTemplate(CLI::App& command, std::string& name) {
    return command.add_option("--template", name, "A template; zelvo list templates")
        ->check(named())
        ->type_name("NAME");
}

/// The performance: a file or a template, and what is changed in it.
void addSource(CLI::App& command, SourceOptions& source) {
    auto* const file = command.add_option("FILE", source.file, "The performance file (JSON)");
    addTemplate(command, source.templateName)->excludes(file);
    addSettings(command, source.settings);
    command.parse_complete_callback([&source] {
        if (source.file.empty() && source.templateName.empty())
            throw CLI::RequiredError("FILE or --template");
    });
}

/// `size` must hold the default.
void addSize(CLI::App& command, PictureSize& size) {
    command
        .add_option_function<std::string>(
            "--size",
            [&size](const std::string& text) {
                const auto parsed = movie::sizeFrom(text);
                if (!parsed) {
                    throw CLI::ValidationError(
                        "--size",
                        fmt::format(
                            "must be like 1920x1080, both sides even and from {} to {}, or one of "
                            "{}",
                            movie::kMinSide,
                            movie::kMaxSide,
                            sizeNames()));
                }
                size = {parsed->width, parsed->height};
            },
            fmt::format(
                "Size in pixels, or {}; {}x{} if not given", sizeNames(), size.width, size.height))
        ->type_name("WxH");
}

void addQuality(CLI::App& command, render::DrawQuality& quality) {
    std::vector<std::string> names;
    names.reserve(render::kQualities.size());
    for (const auto& row : render::kQualities)
        names.emplace_back(row.name);
    command
        .add_option_function<std::string>(
            "--quality",
            [&quality](const std::string& name) {
                const int moments = quality.moments;
                const auto* const row =
                    std::ranges::find(render::kQualities, name, &render::NamedQuality::name);
                quality = row->quality;
                quality.moments = moments;
            },
            "draft, standard or finest; standard if not given. finest draws each frame 16 times")
        ->check(CLI::IsMember(names))
        ->type_name("QUALITY");
    constexpr int kMost = render::DrawQuality::kMaxMoments;
    command
        .add_option(
            "--motion-blur",
            quality.moments,
            fmt::format(
                "Blur what moves: draw N moments of each frame, 1 to {}, over half of its time; "
                "1 if not given",
                kMost))
        ->check(CLI::Range(1, kMost).description(""))
        ->type_name("N");
}

void addAlpha(CLI::App& command, bool& hasAlpha) {
    command.add_flag(
        "--alpha",
        hasAlpha,
        "Leave out the background and the environment, and write straight alpha");
}

void addSeed(CLI::App& command, std::optional<std::uint64_t>& seed) {
    command
        .add_option(
            "--seed", seed, "Seed of all random numbers; if not given, that of the file, or else 0")
        ->check(CLI::Validator(CLI::NonNegativeNumber).description(""))
        ->type_name("N");
}

void addOut(CLI::App& command, std::filesystem::path& out) {
    command.add_option("--out", out, "The picture file to write")
        ->required()
        ->check(named())
        ->type_name("PICTURE.png");
}

void addCodec(CLI::App& command, std::optional<media::VideoCodec>& codec) {
    const std::map<std::string, media::VideoCodec> codecs{
        {"hevc", media::VideoCodec::hevc}, {"h264", media::VideoCodec::h264}};
    command
        .add_option_function<std::string>(
            "--codec",
            [&codec, codecs](const std::string& name) { codec = codecs.at(name); },
            "Of mov and mp4 without alpha: hevc or h264; if not given, HEVC if the machine encodes "
            "it in hardware, else H.264")
        ->check(CLI::IsMember({"hevc", "h264"}))
        ->type_name("CODEC");
}

/// The kind of the movie: what --format says, or else the ending of its name. A name without an
/// ending gets one.
void settleFormat(PerformCommand& options, std::optional<media::Container> wanted) {
    const auto named = media::knownContainerOf(options.movie);
    if (options.movie.has_extension() && (!named || (wanted && *wanted != *named))) {
        throw CLI::ValidationError(
            "--movie",
            wanted ? fmt::format("must end in {}, as --format says", media::infoOf(*wanted).ending)
                   : "must end in .mov, .mp4 or .webm");
    }
    options.format = wanted.value_or(named.value_or(media::Container::quickTime));
    if (!options.movie.empty() && !named && wanted)
        options.movie += media::infoOf(options.format).ending;
    const bool makesMovie = !options.movie.empty() || options.frames.empty();
    const auto alpha = options.hasAlpha ? media::Alpha::straight : media::Alpha::none;
    const auto checked = media::checkMovie(options.format, alpha, options.codec);
    if (makesMovie && !checked)
        throw CLI::ValidationError("--format", checked.error().message);
}

void addFormat(CLI::App& command, PerformCommand& options) {
    std::vector<std::string> names;
    names.reserve(media::kContainers.size());
    for (const auto& row : media::kContainers)
        names.emplace_back(row.name);
    auto* const format =
        command
            .add_option(
                "--format",
                "The kind of movie: mov (H.264 or HEVC; ProRes 4444 with alpha), mp4 (H.264 or "
                "HEVC) or webm (VP9 and Opus); if not given, as the movie's name ends, or mov")
            ->check(CLI::IsMember(names))
            ->type_name("FORMAT");
    command.final_callback([&options, format] {
        std::optional<media::Container> wanted;
        if (!format->empty())
            wanted = std::ranges::find(
                         media::kContainers, format->as<std::string>(), &media::ContainerInfo::name)
                         ->container;
        settleFormat(options, wanted);
    });
}

void addPerform(CLI::App& app, PerformCommand& options) {
    auto& command = *app.add_subcommand("perform", "Make a movie of a performance");
    command.footer(std::string(kPerformFooter));
    addSource(command, options.source);
    command.add_option("--movie", options.movie, "The movie file to write")
        ->check(named())
        ->type_name("OUT.mov|.mp4|.webm");
    command
        .add_option("--frames", options.frames, "Write each frame as a PNG file into this folder")
        ->check(named())
        ->type_name("DIR");
    addSize(command, options.size);
    addQuality(command, options.quality);
    addAlpha(command, options.hasAlpha);
    addFormat(command, options);
    addSeed(command, options.seed);
    addCodec(command, options.codec);
    command.add_flag(
        "--timing", options.showsTiming, "At the end, print a table of milliseconds per frame");
}

void addFrame(CLI::App& app, FrameCommand& options) {
    auto& command = *app.add_subcommand("frame", "Make a picture of one moment of a performance");
    command.footer(std::string(kFrameFooter));
    addSource(command, options.source);
    command.add_option("--at", options.at, "Seconds of the movie; negative in the count-in")
        ->required()
        ->type_name("SECONDS");
    addOut(command, options.out);
    addSize(command, options.size);
    addQuality(command, options.quality);
    addAlpha(command, options.hasAlpha);
    addSeed(command, options.seed);
}

void addStrip(CLI::App& app, StripCommand& options) {
    auto& command =
        *app.add_subcommand("strip", "Make a picture of several moments of a performance");
    command.footer(std::string(kStripFooter));
    addSource(command, options.source);
    command.add_option("--from", options.from, "The first moment, in seconds of the movie")
        ->required()
        ->type_name("SECONDS");
    command.add_option("--to", options.to, "The last moment, not before the first")
        ->required()
        ->type_name("SECONDS");
    command
        .add_option(
            "--count",
            options.count,
            fmt::format(
                "How many moments, {} to {}", StripCommand::kMinMoments, StripCommand::kMaxMoments))
        ->required()
        ->check(CLI::Range(StripCommand::kMinMoments, StripCommand::kMaxMoments).description(""))
        ->type_name("N");
    addOut(command, options.out);
    addSize(command, options.size);
    addSeed(command, options.seed);
}

void addBatch(CLI::App& app, BatchCommand& options) {
    auto& command = *app.add_subcommand("batch", "Make a movie for each row of a table");
    command.footer(std::string(kBatchFooter));
    command.add_option("TABLE", options.table, "The table (CSV)")->required()->type_name("");
    addTemplate(command, options.source.templateName)
        ->description("A template, or the path of a performance file")
        ->required()
        ->type_name("NAME|FILE");
    addSettings(command, options.source.settings);
    command.add_option("--movies", options.movies, "The folder for the movies; made if needed")
        ->required()
        ->check(named())
        ->type_name("DIR");
    addSize(command, options.size);
    addQuality(command, options.quality);
    addSeed(command, options.seed);
    addCodec(command, options.codec);
}

/// Adds a positional argument that takes one of the table's names.
template <class Rows, class Take>
void addWhat(CLI::App& command, const Rows& rows, const std::string& description, Take take) {
    std::vector<std::string> names;
    names.reserve(rows.size());
    for (const auto& row : rows)
        names.emplace_back(row.name);
    command
        .add_option_function<std::string>(
            "WHAT",
            [&rows, take](const std::string& name) {
                take(*std::ranges::find(rows, name, [](const auto& row) { return row.name; }));
            },
            description)
        ->required()
        ->check(CLI::IsMember(names))
        ->type_name("");
}

void addSheet(CLI::App& app, SheetCommand& options) {
    auto& command = *app.add_subcommand(
        "sheet", "Make a picture of all materials, scenes, shapes, masks or fonts, or of 3D files");
    command.footer(std::string(kSheetFooter));
    addWhat(
        command,
        kSheets,
        "materials, scenes, shapes, masks, fonts or objects",
        [&options](const SheetName& row) { options.what = row.kind; });
    command.add_option("FILE", options.files, "3D files, for objects")->type_name("");
    command.final_callback([&options] {
        if ((options.what == SheetKind::objects) == options.files.empty())
            throw CLI::ValidationError(
                "FILE", "name 3D files for a sheet of objects, and only then");
    });
    addOut(command, options.out);
}

void addList(CLI::App& app, ListCommand& options) {
    auto& command = *app.add_subcommand("list", "Print the names that a performance can use");
    command.footer(std::string(kListFooter));
    addWhat(
        command,
        kListings,
        "tabs, buttons, fonts, materials, scenes, shapes, masks, speeds or templates",
        [&options](const ListingName& row) { options.what = row.what; });
}

void addInspect(CLI::App& app, InspectCommand& options) {
    auto& command = *app.add_subcommand("inspect", "Print what 3D files contain");
    command.footer(std::string(kInspectFooter));
    command.add_option("FILE", options.files, "3D files")->required()->type_name("");
}

void addWaveform(CLI::App& app, WaveformCommand& options) {
    auto& command = *app.add_subcommand("waveform", "Make a picture of a song");
    command.footer(std::string(kWaveformFooter));
    command.add_option("SONG", options.song, "A sound or movie file")->required()->type_name("");
    addOut(command, options.out);
    addSize(command, options.size);
}

void addWindow(CLI::App& app, WindowCommand& options) {
    app.add_option(
           "FILES",
           options.files,
           "Documents, pictures, videos, music, 3D objects with their parts, fonts, folders or ZIP "
           "archives "
           "to open "
           "in "
           "the window")
        ->check(CLI::ExistingPath.description(""))
        ->type_name("");
    app.add_flag(
        "--show-touches",
        options.showsTouches,
        "Mark each finger, and the pressed mouse, in the window; Ctrl+Shift+T turns it on and off");
}

[[nodiscard]] std::string oneLine(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    return text;
}

} // namespace

foundation::Result<Command> parseCommandLine(std::vector<std::string> arguments) {
    CLI::App app{std::string(kDescription), "zelvo"};
    app.footer(std::string(kFooter));
    app.set_version_flag("--version", "zelvo " ZELVO_VERSION);
    app.require_subcommand(0, 1);
    PerformCommand perform;
    FrameCommand frame;
    StripCommand strip;
    BatchCommand batch;
    SheetCommand sheet;
    ListCommand list;
    InspectCommand inspect;
    WaveformCommand waveform;
    WindowCommand window;
    addWindow(app, window);
    addPerform(app, perform);
    addFrame(app, frame);
    addStrip(app, strip);
    addBatch(app, batch);
    addSheet(app, sheet);
    addList(app, list);
    addInspect(app, inspect);
    addWaveform(app, waveform);

    // CLI11 throws; no exception leaves this function.
    try {
        std::ranges::reverse(arguments);
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return TextCommand{app.help()};
    } catch (const CLI::CallForVersion& version) {
        return TextCommand{std::string(version.what()) + "\n"};
    } catch (const CLI::Error& error) {
        return foundation::fail(
            foundation::Cause::malformed, oneLine(error.what()) + " (see zelvo --help)");
    }
    if (app.got_subcommand("perform"))
        return perform;
    if (app.got_subcommand("frame"))
        return frame;
    if (app.got_subcommand("strip"))
        return strip;
    if (app.got_subcommand("batch"))
        return batch;
    if (app.got_subcommand("sheet"))
        return sheet;
    if (app.got_subcommand("list"))
        return list;
    if (app.got_subcommand("inspect"))
        return inspect;
    if (app.got_subcommand("waveform"))
        return waveform;
    return window;
}

} // namespace zelvo::app
