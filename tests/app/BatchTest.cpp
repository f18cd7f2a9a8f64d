// SPDX-License-Identifier: MIT
#include "app/BatchRecord.h"
#include "app/BatchTable.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zelvo::app {

namespace {

namespace fs = std::filesystem;

TEST(BatchTable, names_the_movies_by_column_or_by_number_and_text) {
    const auto rows = readBatchTable(
        "TX1.depth, movie ,TX2.text,TX1.text\n"
        "5,,,ANNA\n"
        ",First,X,Y\n"
        ",LAST.MOV,X,Y\n"
        ",,,\n"
        ",,\"a/b:c\n  \",\n"
        ",,.. ,\n",
        "/tables");
    ASSERT_TRUE(rows) << rows.error().text;
    std::vector<std::string> names;
    for (const auto& row : *rows) {
        names.push_back(row.movie);
        EXPECT_EQ(row.problem, "");
    }
    EXPECT_EQ(
        names,
        (std::vector<std::string>{
            "01 ANNA.mov", "First.mov", "LAST.MOV", "04.mov", "05 a-b-c-.mov", "06 ...mov"}));
    // An empty cell leaves the value as it is, but an empty text is one.
    ASSERT_EQ((*rows)[0].settings.size(), 3U);
    EXPECT_EQ((*rows)[0].settings[0].origin, "column TX1.depth");
    EXPECT_EQ((*rows)[0].settings[0].folder, "/tables");
    ASSERT_EQ((*rows)[1].settings.size(), 2U);
    EXPECT_EQ((*rows)[3].settings[0].key, "TX2.text");
    EXPECT_EQ((*rows)[3].settings[0].value, "");

    // A long text is not cut within a character.
    const auto umlauts = readBatchTable("TX1.text\n" + std::string(59, 'x') + "üü\n", "/");
    EXPECT_EQ(umlauts->front().movie, "01 " + std::string(59, 'x') + ".mov");
    std::string many = "TX1.text\n";
    for (int i = 0; i < 1000; ++i)
        many += "a\n";
    EXPECT_EQ(readBatchTable(many, "/")->front().movie, "0001 a.mov");
}

TEST(BatchTable, keeps_bad_rows_apart_from_good_ones_and_refuses_a_bad_header) {
    const auto rows = readBatchTable(
        "movie,TX1.text\na,1\n../a,2\nb\nc,3,4\na.mov,5\n.hidden,6\n" + std::string(201, 'n') +
            ",7\nd/e,8\n",
        "/");
    ASSERT_TRUE(rows);
    const char* const told[] = {
        "", "folder", "1 fields", "3 fields", "line 2", "folder", "200", "folder"};
    ASSERT_EQ(rows->size(), std::size(told));
    for (std::size_t i = 0; i < rows->size(); ++i) {
        const auto& row = (*rows)[i];
        EXPECT_EQ(row.line, static_cast<int>(i) + 2);
        EXPECT_EQ(row.problem.empty(), i == 0) << row.problem;
        EXPECT_NE(row.problem.find(told[i]), std::string::npos) << row.problem;
    }
    for (const char* const text : {"", "TX1.text\n", "TX1.text,,b\n1,2,3\n", "a,a\n1,2\n", "\"a"})
        EXPECT_FALSE(readBatchTable(text, "/")) << text;
}

TEST(BatchRecord, knows_what_was_made_of_the_same_and_survives_damage) {
    const test::TemporaryFolder folder;
    const auto made = [&](const std::string& movie) {
        return BatchRecord::of(folder.path()).has(movie, "k1");
    };
    std::ofstream(folder.path() / "a.mov") << "movie";
    std::ofstream(folder.path() / "ü \"b\".mov") << "movie";
    EXPECT_FALSE(made("a.mov"));
    auto record = BatchRecord::of(folder.path());
    ASSERT_TRUE(record.add("a.mov", "k0"));
    ASSERT_TRUE(record.add("ü \"b\".mov", "k1"));
    ASSERT_TRUE(record.add("gone.mov", "k1"));
    EXPECT_FALSE(made("a.mov")); // another key
    EXPECT_TRUE(made("ü \"b\".mov"));
    EXPECT_FALSE(made("gone.mov"));
    ASSERT_TRUE(record.add("a.mov", "k1"));
    EXPECT_TRUE(made("a.mov"));
    EXPECT_TRUE(made("ü \"b\".mov"));

    const auto file = folder.path() / BatchRecord::kFileName;
    for (const char* const text :
         {"", "{", "[]", R"({"movies": [{"movie": 5, "key": "k1"}, 7]})"}) {
        std::ofstream(file) << text;
        EXPECT_FALSE(made("a.mov")) << text;
    }
}

TEST(BatchKey, changes_with_all_that_the_movie_depends_on) {
    const test::TemporaryFolder folder;
    document::Performance performance;
    performance.nodes["TX1"].text = "A";
    performance.picture.emplace().image = (folder.path() / "logo.png").string();
    BatchCommand command;
    std::vector<std::string> keys{batchKey(performance, command)};
    EXPECT_EQ(batchKey(performance, command), keys.front());
    const auto changed = [&](const char* what) {
        const auto key = batchKey(performance, command);
        for (const std::string& former : keys)
            EXPECT_NE(key, former) << what;
        keys.push_back(key);
    };
    std::ofstream(folder.path() / "logo.png") << "one";
    changed("a picture that was missing");
    std::ofstream(folder.path() / "logo.png") << "another";
    changed("the content of a picture");
    performance.nodes["TX1"].text = "B";
    changed("a text");
    performance.nodes["TX1"].maxWidth = 300;
    changed("a width");
    command.size = {64, 64};
    changed("the size");
    command.quality.moments = 4;
    changed("the motion blur");
    command.quality.oversampling = 0.5;
    changed("the quality");
    command.seed = 7;
    changed("the seed");
    command.codec = media::VideoCodec::h264;
    changed("the codec");
}

} // namespace

} // namespace zelvo::app
