// SPDX-License-Identifier: MIT
#include "app/ProgramRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>

namespace zelvo::app {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSize = "96x54";
const std::string kFile = R"({
  "duration": 2, "scene": "Flat", "nodes": {"TX2": {"text": ""}},
  "cues": [{"at": 0, "tab": "IN3", "press": "Implode In"}, {"at": 1, "tab": "FX2", "press": "Geo"}]
})";

[[nodiscard]] std::set<std::string> namesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
}

TEST(Batch, makes_the_movie_of_each_good_row_and_tells_the_bad_ones) {
    const Program program;
    const auto file = program.write("a.json", kFile);
    const auto table = program.write(
        "t.csv",
        "\xEF\xBB\xBFmovie,TX1.text,background,TX1.depth\r\n"
        "one,ONE,#FF0000,\r\n"
        "bad,TWO,red,\r\n"
        ",THREE,,12\r\n"
        "gone,FOUR,#00FF00,500\r\n");
    const auto movies = program.path("made/here");
    const Program::Arguments arguments{
        "batch",
        table,
        "--template",
        file,
        "--movies",
        movies,
        "--size",
        kSize,
        "--seed",
        "3",
        "--set",
        "background=#0000FF"};
    const auto ending = program.run(arguments);
    EXPECT_EQ(ending.status, 2) << ending.err;
    EXPECT_EQ(ending.out, movies + "/one.mov\n" + movies + "/03 THREE.mov\n");
    for (const char* const part :
         {"1 of 2: one.mov\n",
          "2 of 2: 03 THREE.mov\n",
          "2 of 4 rows were left out:\n",
          "t.csv:3: column background: ",
          "t.csv:5: column TX1.depth: \"depth\" in node TX1 must be 1 to 150, not 500\n"})
        EXPECT_NE(ending.err.find(part), std::string::npos) << part << ending.err;
    EXPECT_EQ(
        namesIn(movies), (std::set<std::string>{"03 THREE.mov", "one.mov", "zelvo-batch.json"}));

    // The second movie of a process is the same as one made alone.
    const auto alone = program.path("alone.mov");
    const auto made = program.run(
        {"perform",
         file,
         "--movie",
         alone,
         "--size",
         kSize,
         "--seed",
         "3",
         "--set",
         "background=#0000FF",
         "--set",
         "TX1.text=THREE",
         "--set",
         "TX1.depth=12"});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_TRUE(contentOf(alone) == contentOf(movies + "/03 THREE.mov"));
    EXPECT_FALSE(contentOf(alone) == contentOf(movies + "/one.mov"));
}

TEST(Batch, goes_on_where_it_was_stopped_and_makes_again_only_what_has_changed) {
    const Program program;
    const auto file = program.write("a.json", kFile);
    program.write("t.csv", "movie,TX1.text\na,A\nb,B\nc,C\n");
    const auto movies = program.path("made");
    const Program::Arguments arguments{
        "batch", program.path("t.csv"), "--template", file, "--movies", movies, "--size", kSize};
    const auto stopped = program.runAndSignal(arguments, movies, SIGINT);
    EXPECT_EQ(stopped.status, 128 + SIGINT) << stopped.err;
    EXPECT_NE(stopped.err.find("of 3 movies done"), std::string::npos) << stopped.err;
    EXPECT_FALSE(fs::exists(movies + "/c.mov"));
    const auto first = fs::last_write_time(movies + "/a.mov");

    const auto rest = program.run(arguments);
    EXPECT_EQ(rest.status, 0) << rest.err;
    EXPECT_EQ(rest.out.find("a.mov"), std::string::npos) << rest.out;
    EXPECT_NE(rest.out.find("c.mov"), std::string::npos) << rest.out;
    EXPECT_EQ(fs::last_write_time(movies + "/a.mov"), first);
    EXPECT_EQ(program.run(arguments).out, "");

    // Another word, another performance, a movie that was deleted.
    program.write("t.csv", "movie,TX1.text\na,A\nb,OTHER\nc,C\n");
    EXPECT_EQ(program.run(arguments).out, movies + "/b.mov\n");
    fs::remove(movies + "/c.mov");
    EXPECT_EQ(program.run(arguments).out, movies + "/c.mov\n");
    program.write("a.json", R"({"duration": 2, "scene": "Flat", "cues": []})");
    const auto all = program.run(arguments).out;
    EXPECT_EQ(std::ranges::count(all, '\n'), 3) << all;
}

TEST(Batch, refuses_a_table_or_a_folder_that_cannot_be_used) {
    const Program program;
    const auto file = program.write("a.json", kFile);
    const auto table = program.write("t.csv", "TX1.text\nA\n");
    const auto open = program.write("open.csv", "TX1.text\n\"A\n");
    const auto movies = program.path("made");

    struct Row {
        int status;
        std::string part;
        Program::Arguments arguments;
    };

    // clang-format off
    const Row rows[] = {
        {2, "gone.csv: no such file",  {"batch", "gone.csv", "--template", file, "--movies", movies}},
        {2, "open.csv:2: ",            {"batch", open, "--template", file, "--movies", movies}      },
        {2, "no such file",            {"batch", table, "--template", "no.json", "--movies", movies}},
        {2, "mean \"night\"",          {"batch", table, "--template", "nihgt", "--movies", movies}  },
        {2, "--template",              {"batch", table, "--movies", movies}                         },
        {1, "t.csv",                   {"batch", table, "--template", file, "--movies", table}      },
    };
    // clang-format on
    for (const auto& row : rows) {
        const auto ending = program.run(row.arguments);
        EXPECT_EQ(ending.status, row.status) << ending.err;
        EXPECT_NE(ending.err.find(row.part), std::string::npos) << ending.err;
        EXPECT_EQ(ending.out, "");
    }
}

} // namespace

} // namespace zelvo::app
