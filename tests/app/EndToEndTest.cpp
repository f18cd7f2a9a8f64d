// SPDX-License-Identifier: MIT
#include "app/ProgramRun.h"
#include "media/MediaFixture.h"
#include "platform/foundation/Folders.h"
#include "platform/image/reading/ImageReader.h"
#include "platform/media/VideoReader.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace zelvo::app {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSize = "192x108";

// A white I comes in from the left at 0.5 and stands 150 units left of the middle by 0.75; at this
// size, of which 192 pixels show 708 units, that is column 96 - 150 / 3.69. Nothing else is to be
// seen on the black stage.
constexpr int kLetterX = 55;
constexpr int kEmptyX = 137;
constexpr int kMiddleY = 54;
const std::string kLetter = R"({
  "duration": 2, "speed": "fastest", "scene": "Flat", "background": "#000000",
  "nodes": {
    "TX1": {"text": "I", "font": "BowlbyOneSC-Regular", "material": "Flat", "frontColor": "#FFFFFF",
            "bandColor": "#FFFFFF", "position": [-150, 0, 0], "scale": 1},
    "TX2": {"text": ""}
  },
  "audio": {"file": "song.wav", "fade": "fadeIn"},
  "cues": [{"at": 0.5, "tab": "IN1", "press": "Left In", "nodes": ["TX1"]}]
})";

/// A performance of two seconds with these members.
[[nodiscard]] std::string performance(const std::string& members) {
    return R"({"duration": 2, "scene": "Flat", )" + members + "}";
}

[[nodiscard]] std::string withText(const std::string& text) {
    return performance(
        R"("nodes": {"TX1": {"text": ")" + text +
        R"("}}, "cues": [{"at": 0, "tab": "IN4", "press": "Dropping In"}])");
}

/// Everything below the folder, by its relative path.
[[nodiscard]] std::vector<std::string> entriesBelow(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!isOfTheSanitizer(entry.path().filename().string()))
            names.push_back(fs::relative(entry.path(), folder));
    }
    std::ranges::sort(names);
    return names;
}

TEST(EndToEnd, makes_a_movie_with_the_letter_and_the_sound_where_they_belong) {
    const Program program;
    const auto file = program.write("letter.json", kLetter);
    media::writeWav(program.path("song.wav"), 44100, 4, media::sine(440, 0.5));
    const auto movie = program.path("letter.mov");
    const auto made = program.run({"perform", file, "--movie", movie, "--size", kSize, "--timing"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_TRUE(made.out.starts_with(movie + "\n")) << made.out;
    EXPECT_NE(made.out.find("encoding"), std::string::npos) << made.out;

    const auto seen = media::decodeMovie(movie, kLetterX, kMiddleY);
    ASSERT_EQ(seen.frameTimes.size(), 118U);
    for (std::size_t i = 0; i < seen.frameTimes.size(); ++i)
        EXPECT_NEAR(seen.frameTimes[i], static_cast<double>(i) / 60, 1e-9);
    for (std::size_t i = 0; i <= 30; ++i)
        EXPECT_LT(seen.centres[i][0], 30) << "frame " << i;
    for (std::size_t i = 45; i < seen.centres.size(); ++i)
        EXPECT_GT(seen.centres[i][0], 180) << "frame " << i;
    for (const auto& colour : media::decodeMovie(movie, kEmptyX, kMiddleY).centres)
        EXPECT_LT(colour[0], 30);

    // The fade-in takes 1.6 seconds; a sine of 0.5 measures 0.354.
    EXPECT_LT(seen.loudness(0.0, 0.1), 0.03);
    EXPECT_NEAR(seen.loudness(0.7, 0.9), 0.354 / 2, 0.03);
    EXPECT_NEAR(seen.loudness(1.7, 1.9), 0.354, 0.03);
}

TEST(EndToEnd, draws_the_same_bytes_for_the_same_seed_and_the_same_moment) {
    const Program program;
    const auto file = program.write(
        "random.json",
        performance(
            R"("cues": [{"at": 0, "tab": "IN3", "press": "Implode In"},
                        {"at": 1, "tab": "OT3", "press": "Explo Out"}])"));
    const auto framesOf = [&](const std::string& folder, const std::string& seed) {
        const auto made = program.run(
            {"perform", file, "--frames", program.path(folder), "--size", "96x54", "--seed", seed});
        EXPECT_EQ(made.status, 0) << made.err;
        std::vector<std::string> frames;
        for (const auto& name : entriesBelow(program.path(folder)))
            frames.push_back(contentOf(program.home() / folder / name));
        return frames;
    };
    const auto first = framesOf("first", "7");
    EXPECT_EQ(first.size(), 118U);
    EXPECT_TRUE(first == framesOf("again", "7"));
    EXPECT_FALSE(first == framesOf("other", "8"));

    const auto picture = program.path("one.png");
    const auto made = program.run(
        {"frame", file, "--at", "0.5", "--out", picture, "--size", "96x54", "--seed", "7"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_TRUE(contentOf(picture) == first[30]);
}

/// The largest difference of what the two show in front of white.
[[nodiscard]] double differenceOnWhite(const image::Image& a, const image::Image& b) {
    double largest = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        const auto shown = [i](const image::Image& picture) {
            const double alpha = picture.pixels[i / 4 * 4 + 3] / 255.0;
            return 255 + alpha * (picture.pixels[i] - 255.0);
        };
        if (i % 4 != 3)
            largest = std::max(largest, std::abs(shown(a) - shown(b)));
    }
    return largest;
}

TEST(EndToEnd, makes_movies_with_the_alpha_of_its_pictures) {
    const Program program;
    const auto file = program.write("letter.json", kLetter);
    media::writeWav(program.path("song.wav"), 44100, 4, media::sine(440, 0.5));
    for (const auto& [name, tolerance] : {std::pair{"a.mov", 12}, {"a.webm", 40}}) {
        const auto movie = program.path(name);
        const auto made = program.run(
            {"perform",
             file,
             "--movie",
             movie,
             "--frames",
             program.path("frames"),
             "--alpha",
             "--size",
             kSize});
        ASSERT_EQ(made.status, 0) << made.err;
        auto reader = media::VideoReader::open(movie);
        ASSERT_TRUE(reader) << reader.error().message;
        EXPECT_TRUE(reader->format().hasAlpha && reader->format().hasSound);
        const auto frame = image::loadImage(program.path("frames") + "/frame_00060.png");
        ASSERT_TRUE(frame);
        const auto shown = reader->picture(60);
        EXPECT_LT(differenceOnWhite(**frame, *shown), tolerance) << name;
        EXPECT_GT(shown->pixels[(kMiddleY * 192 + kLetterX) * 4 + 3], 250) << "the letter";
        EXPECT_LT(shown->pixels[(kMiddleY * 192 + kEmptyX) * 4 + 3], 3) << "the stage is left out";
    }
}

TEST(EndToEnd, plays_a_short_song_as_a_whole) {
    const Program program;
    media::writeWav(program.path("song.wav"), 44100, 1.2, media::sine(440, 0.5));
    const auto file = program.write(
        "short.json",
        performance(R"("audio": {"file": "song.wav", "fade": "noFade"}, "cues": [])"));
    const auto movie = program.path("short.mov");
    const auto made = program.run({"perform", file, "--movie", movie, "--size", "96x54"});
    ASSERT_EQ(made.status, 0) << made.err;
    const auto seen = media::decodeMovie(movie, 48, 27);
    EXPECT_NEAR(seen.loudness(0.1, 1.1), 0.354, 0.03);
    EXPECT_LT(seen.loudness(1.3, 1.9), 0.01);
}

TEST(EndToEnd, draws_where_a_song_is_loud) {
    const Program program;
    const auto song = program.path("song.wav");
    media::writeWav(
        song, 44100, 10, [](double t) { return t < 5 ? 0.0 : media::sine(440, 0.6)(t); });
    const auto made =
        program.run({"waveform", song, "--out", program.path("a.png"), "--size", "640x240"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(made.out, program.path("a.png") + "\n");
    const auto picture = image::loadImage(program.path("a.png"));
    ASSERT_TRUE(picture) << picture.error().message;
    const auto lightPixels = [&](int fromX, int toX, int y) {
        int count = 0;
        for (int x = fromX; x < toX; ++x)
            count += (*picture)->pixels[4 * std::size_t(y * 640 + x)] > 200 ? 1 : 0;
        return count;
    };
    constexpr int kAboveMiddle =
        90; // the mean of the sine reaches 56 pixels from the middle at 122
    EXPECT_EQ(lightPixels(20, 310, kAboveMiddle), 0);
    EXPECT_GT(lightPixels(330, 620, kAboveMiddle), 100);
    EXPECT_EQ(lightPixels(330, 620, 122 - 60), 0);
}

TEST(EndToEnd, draws_any_text) {
    const Program program;
    const std::string text500(500, 'W');
    for (const std::string& text :
         {std::string(),
          std::string("   "),
          std::string("שלום عَرَبِيّ e\\u0301 👩‍🚀 漢"),
          text500}) {
        const auto file = program.write("text.json", withText(text));
        const auto made = program.run(
            {"frame", file, "--at", "1", "--out", program.path("a.png"), "--size", "96x54"});
        EXPECT_EQ(made.status, 0) << text << made.err;
    }
}

TEST(EndToEnd, says_in_one_line_what_is_wrong_and_ends_with_its_status) {
    const Program program;
    const auto good = program.write("good.json", withText("A"));
    const auto withSong = [&](const std::string& name, const std::string& audio) {
        return program.write(name, performance(R"("audio": {)" + audio + R"(}, "cues": [])"));
    };
    program.write("noise.mp3", std::string(5000, '\x5A') + "noise");
    media::writeWav(program.path("song.wav"), 8000, 4, media::sine(440, 0.5));
    const auto font = program.write("font.json", performance(R"(
            "nodes": {"TX1": {"font": "Audiowide Regula"}}, "cues": [])"));
    const auto noise = withSong("noise.json", R"("file": "noise.mp3")");
    const auto gone = withSong("gone-song.json", R"("file": "gone.mp3")");
    const auto tooLong = withSong("long.json", R"("file": "song.wav", "in": 3, "end": 9)");
    const auto noLogo = program.write("logo.json", performance(R"(
            "nodes": {"IMG": {"image": "noise.mp3"}}, "cues": [])"));
    const auto picture = program.path("a.png");
    const auto noMovie = program.path("no/folder/a.mov");
    const auto noPicture = program.path("no/a.png");

    struct Row {
        int status;
        std::string part;
        Program::Arguments arguments;
        long maxFileBytes = 0;
    };

    // clang-format off
    const auto strip = [&](const char* from, const char* to, const char* count, const char* size) {
        return Program::Arguments{"strip", good, "--out", picture, "--from", from, "--to", to,
                                  "--count", count, "--size", size};
    };
    const std::vector<Row> rows = {
        {2, "--movie: must not be empty", {"perform", good, "--movie", ""}                                },
        {2, "gone.json: no such file",   {"perform", "gone.json"}                                         },
        {2, "folder",                    {"perform", program.home()}                                      },
        {2, "--colour",                  {"perform", good, "--colour"}                                    },
        {2, "did you mean \"Audiowide-R",  {"perform", font}                                              },
        {2, "noise.mp3",                 {"perform", noise}                                               },
        {2, "gone.mp3",                  {"perform", gone}                                                },
        {2, "logo.json:2: ",             {"perform", noLogo}                                              },
        {2, "4.00 seconds",              {"perform", tooLong}                                             },
        {2, "-2 to 2",                   {"frame", good, "--at", "2.1", "--out", picture}                 },
        {2, "--to must be -2 to 2",      strip("0", "2.1", "2", kSize)                                    },
        {2, "--from must be",            strip("-9", "1", "2", kSize)                                     },
        {2, "before --from, 1",          strip("1", "0.5", "2", kSize)                                    },
        {2, "1 to 100",                  strip("0", "1", "0", kSize)                                      },
        {2, "--to",                      strip("0", "nan", "2", kSize)                                    },
        {2, "smaller --size",            strip("0", "1", "9", "4096x4096")                                },
        {2, "tabs",                      {"sheet", "tabs", "--out", picture}                              },
        {2, "noise.mp3 is not a sound",  {"waveform", program.path("noise.mp3"), "--out", picture}        },
        {1, "no/a.png",                  {"waveform", program.path("song.wav"), "--out", noPicture}       },
        {1, "no/a.png",                  {"sheet", "masks", "--out", noPicture}                           },
        {1, "no/folder",                 {"perform", good, "--movie", noMovie, "--size", kSize}           },
        {1, "a.png",                     {"frame", good, "--at", "0", "--out", noPicture, "--size", kSize}},
        {1, "good.json",                 {"perform", good, "--frames", good, "--size", kSize}             },
        {1, "a.png cannot be written: ", {"frame", good, "--at", "1", "--out", picture}, 2000             },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto ending = program.run(row.arguments, row.maxFileBytes);
        EXPECT_EQ(ending.status, row.status) << row.part << ending.err;
        EXPECT_NE(ending.err.find(row.part), std::string::npos) << ending.err;
        EXPECT_EQ(std::ranges::count(ending.err, '\n'), 1) << ending.err;
        EXPECT_EQ(ending.out, "");
        EXPECT_FALSE(fs::exists(picture));
    }
}

/// Makes a folder of links to all files below a folder; those that are there already stay.
void linkFiles(const fs::path& from, const fs::path& to) {
    fs::create_directories(to);
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const fs::path place = to / entry.path().lexically_relative(from);
        if (entry.is_directory())
            fs::create_directories(place);
        else if (!fs::exists(place))
            fs::create_symlink(entry.path(), place);
    }
}

TEST(EndToEnd, says_in_one_line_which_of_its_own_files_is_missing_or_damaged) {
    const Program program;
    const auto file = program.write(
        "a.json",
        R"({"duration": 2, "scene": "Plain", "nodes": {"IMG": {"mask": "Mask 3"}}, "cues": []})");
    const fs::path whole = program.path("whole");
    for (const auto& root : foundation::mainBundle().roots()) {
        if (fs::is_directory(root))
            linkFiles(fs::absolute(root), whole);
    }
    setenv("ZELVO_RESOURCES", whole.c_str(), 1);
    for (const char* const name :
         {"Blur.plist",
          "Sparkles.scnp",
          "Wings.scn",
          "Mask3.png",
          "particle_beam.png", // a scene file names it
          "grayHorizont.png",
          "grayHorizont.png.probe",
          "fonts/Abel-Regular.ttf"}) {
        const fs::path held = program.path("held");
        fs::rename(whole / name, held);
        for (const bool isCut : {false, true}) {
            if (isCut)
                std::ofstream(whole / name) << "\x89PNG\r\n\x1A\n";
            const auto ending = program.run(
                {"frame", file, "--at", "1", "--out", program.path("a.png"), "--size", "96x54"});
            EXPECT_EQ(ending.status, 1) << name << ending.err;
            const auto told = fs::path(name).filename().string();
            EXPECT_NE(ending.err.find(told), std::string::npos) << ending.err;
            EXPECT_NE(ending.err.find("install the program anew"), std::string::npos) << ending.err;
            EXPECT_EQ(std::ranges::count(ending.err, '\n'), 1) << ending.err;
            EXPECT_EQ(ending.err.find(".cpp"), std::string::npos) << ending.err;
        }
        fs::remove(whole / name);
        fs::rename(held, whole / name);
    }
    unsetenv("ZELVO_RESOURCES");
}

TEST(EndToEnd, inspects_3D_files_with_a_line_for_each) {
    const Program program;
    const std::string good = program.write(
        "good.obj", "mtllib no.mtl\nv -1 0 0.5\nv 1 0 0\nv 1 2 0\nv -1 2 0\nusemtl a\nf 1 2 3 4\n");
    const std::string bad = program.write("bad.obj", "v 0 0 0\n");
    const auto all = program.run({"inspect", good, bad, good});
    EXPECT_EQ(all.status, 2);
    const std::string line = good + "\t1\t4\t1\t2\t1\t0\t-1 0 0\t1 2 0.5\n";
    EXPECT_EQ(all.out, line + bad + "\tthere are no faces in it that could be drawn\n" + line);
    EXPECT_NE(all.err.find("good.obj: the library no.mtl is missing"), std::string::npos)
        << all.err;
    EXPECT_EQ(program.run({"inspect", good}).status, 0);
}

TEST(EndToEnd, leaves_the_earlier_movie_and_no_temporary_files_when_it_does_not_finish) {
    const Program program;
    const auto file = program.write("a.json", withText("A"));
    const auto longFile =
        program.write("long.json", R"({"duration": 600, "scene": "Flat", "cues": []})");
    const fs::path temporary = program.path("tmp");
    const fs::path frames = program.path("frames");
    fs::create_directories(temporary);
    fs::create_directories(program.path("out"));
    const auto movie = program.write("out/a.mov", "earlier");
    const auto out = program.path("out/a.png");

    struct Row {
        int signal;
        fs::path watched; ///< the signal comes with the first file in this folder
        Program::Arguments arguments;
    };

    // clang-format off
    const std::vector<Row> rows = {
        {SIGINT,  frames,    {"perform", longFile, "--movie", movie, "--frames", frames, "--size", kSize}},
        {SIGINT,  temporary, {"sheet", "scenes", "--out", out}                                           },
        {SIGTERM, temporary, {"frame", file, "--at", "1", "--out", out, "--size", kSize}                 },
        {SIGHUP,  temporary, {"strip", file, "--from", "0", "--to", "1", "--count", "2", "--out", out}   },
        {SIGKILL, temporary, {"perform", file, "--movie", movie, "--size", kSize}                        },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto ending = program.runAndSignal(row.arguments, row.watched, row.signal);
        EXPECT_EQ(ending.status, 128 + row.signal) << ending.err;
        EXPECT_EQ(entriesBelow(temporary).empty(), row.signal != SIGKILL) << row.arguments[0];
    }
    const auto full = program.run({"perform", file, "--movie", movie, "--size", "960x540"}, 2000);
    EXPECT_EQ(full.status, 1) << full.err;
    EXPECT_EQ(entriesBelow(temporary), std::vector<std::string>())
        << "the next start clears up after the kill";
    EXPECT_EQ(contentOf(movie), "earlier");
    EXPECT_EQ(entriesBelow(program.path("out")), std::vector<std::string>{"a.mov"});
}

TEST(EndToEnd, saves_to_the_videos_folder_unless_that_is_denied) {
    const Program program;
    const auto file = program.write("a.json", withText("A"));
    fs::create_directories(program.path("Videos"));
    const auto saved = program.run({"perform", file, "--size", kSize});
    ASSERT_EQ(saved.status, 0) << saved.err;
    const auto path = saved.out.substr(0, saved.out.find('\n'));
    EXPECT_EQ(fs::path(path).parent_path(), program.home() / "Videos");
    EXPECT_EQ(media::decodeMovie(path, 0, 0).frameTimes.size(), 118U);

    fs::remove_all(program.path("Videos"));
    program.write("Videos", "a file stands where the folder belongs");
    const auto denied = program.run({"perform", file, "--size", kSize});
    EXPECT_EQ(denied.status, 1);
    const auto place = denied.err.find("lies at ");
    ASSERT_NE(place, std::string::npos) << denied.err;
    const auto kept = denied.err.substr(place + 8, denied.err.find('\n', place) - place - 8);
    EXPECT_TRUE(fs::exists(kept)) << kept;
}

} // namespace

} // namespace zelvo::app
