// SPDX-License-Identifier: MIT
// New files and temporary folders: what other programs can do to them, and what stays on the disk.
#include "platform/foundation/NewFile.h"

#include "platform/foundation/TemporaryFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <vector>

namespace zelvo::foundation {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
    std::string text;
    std::ifstream(file) >> text;
    return text;
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename());
    return names;
}

Result<void> writeTo(NewFile& file, std::string_view text) {
    return file.write(std::as_bytes(std::span(text)));
}

using Create = Result<NewFile> (*)(const fs::path&, NewFile::Use);

/// Not all disks allow files without a name, so each test runs with both kinds.
class NewFileTest : public testing::TestWithParam<Create> {
protected:
    [[nodiscard]] static Result<void> put(const fs::path& place, std::string_view text) {
        auto file = GetParam()(place, NewFile::Use::lasting);
        if (!file)
            return tl::unexpected(file.error());
        return writeTo(*file, text).and_then([&] { return file->commit(); });
    }

    test::TemporaryFolder folder;
};

INSTANTIATE_TEST_SUITE_P(
    OnDisks,
    NewFileTest,
    testing::Values(&NewFile::create, &NewFile::createNamed),
    [](const auto& row) { return row.index == 0 ? "without_a_name" : "with_a_name"; });

TEST_P(NewFileTest, two_for_one_place_both_end_whole_and_the_last_one_stays) {
    const auto place = folder.path() / "a.mov";
    std::ofstream(place) << "earlier";
    {
        auto first = GetParam()(place, NewFile::Use::lasting);
        auto second = GetParam()(place, NewFile::Use::lasting);
        const auto dropped = GetParam()(place, NewFile::Use::lasting);
        ASSERT_TRUE(first && second && dropped);
        ASSERT_TRUE(writeTo(*first, "fir") && writeTo(*second, "second") && writeTo(*first, "st"));
        EXPECT_EQ(contentOf(place), "earlier");
        EXPECT_TRUE(second->commit());
        EXPECT_EQ(contentOf(place), "second");
        EXPECT_FALSE(first->commit(NewFile::Placing::onlyIfFree));
        EXPECT_TRUE(first->commit());
    }
    EXPECT_EQ(contentOf(place), "first");
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.mov"});
}

TEST_P(NewFileTest, goes_to_any_name_and_where_a_link_leads) {
    const auto usual = umask(027);
    for (const std::string& name : {std::string("a:b.mov"), std::string(250, 'n')}) {
        EXPECT_TRUE(put(folder.path() / name, "new"));
        EXPECT_EQ(contentOf(folder.path() / name), "new");
        EXPECT_EQ(fs::status(folder.path() / name).permissions(), fs::perms{0640});
    }
    umask(usual);
    fs::create_directory(folder.path() / "far");
    std::ofstream(folder.path() / "far/there.mov") << "earlier";
    for (const char* const end : {"there.mov", "new.mov"}) {
        const auto link = folder.path() / (std::string("to-") + end);
        fs::create_symlink(fs::path("far") / end, link);
        EXPECT_TRUE(put(link, "linked"));
        EXPECT_TRUE(fs::is_symlink(link));
        EXPECT_EQ(contentOf(folder.path() / "far" / end), "linked");
    }
}

TEST_P(NewFileTest, replaces_nothing_but_regular_files) {
    fs::create_symlink("/dev/full", folder.path() / "device");
    fs::create_symlink("circle", folder.path() / "circle");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    fs::create_directory(folder.path() / "folder");
    const auto before = namesIn(folder.path()).size();
    for (const char* const name :
         {"device", "circle", "pipe", "folder", "none/a.mov", "device/a.mov"}) {
        const auto made = put(folder.path() / name, "new");
        ASSERT_FALSE(made) << name;
        EXPECT_EQ(made.error().cause, Cause::unwritable);
        EXPECT_NE(made.error().message.find(name), std::string::npos) << made.error().message;
    }
    EXPECT_FALSE(put(folder.path() / std::string(256, 'n'), "new"));
    EXPECT_EQ(namesIn(folder.path()).size(), before);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

/// Runs the action in a process that is killed before it can clean up.
void killedWhile(const std::function<void()>& action) {
    const pid_t child = fork();
    if (child == 0) {
        action();
        raise(SIGKILL);
    }
    int state = 0;
    waitpid(child, &state, 0);
    ASSERT_TRUE(WIFSIGNALED(state));
}

TEST(Leftovers, of_a_killed_process_go_and_those_of_living_ones_stay) {
    const test::TemporaryFolder place;
    const auto target = place.path() / "a.mov";
    const auto living = TemporaryFolder::make(place.path());
    const auto writing = NewFile::createNamed(target);
    ASSERT_TRUE(living && writing);
    EXPECT_EQ(fs::status(living->path()).permissions(), fs::perms::owner_all);
    std::ofstream(place.path() / ".zelvo-mine.part") << "of the user";
    const auto before = namesIn(place.path()).size();
    killedWhile([&] {
        auto killed = TemporaryFolder::make(place.path());
        fs::create_directory_symlink(living->path(), killed->path() / "link");
        std::ofstream(living->path() / "file") << "x";
        auto kept = TemporaryFolder::make(killed->path());
        kept->keep();
        auto lost = TemporaryFolder::make(place.path());
        std::ofstream(lost->path() / "file") << "x";
        const auto unnamed = NewFile::create(target);
        const auto named = NewFile::createNamed(target);
        raise(SIGKILL);
    });
    EXPECT_EQ(namesIn(place.path()).size(), before + 3);
    EXPECT_TRUE(NewFile::check(target));
    TemporaryFolder::removeLeftovers(place.path());
    EXPECT_EQ(namesIn(place.path()).size(), before + 1) << "what is kept stays";
    EXPECT_TRUE(fs::exists(living->path() / "file")) << "a link is not followed";
}

} // namespace
} // namespace zelvo::foundation
