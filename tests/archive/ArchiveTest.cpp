// SPDX-License-Identifier: MIT
#include "platform/archive/Archive.h"

#include "support/TemporaryFolder.h"
#include "support/ZipFile.h"

#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <set>

namespace zelvo::archive {

namespace {

namespace fs = std::filesystem;
using foundation::Cause;
using test::ZipFile;

constexpr Limits kSmall{
    .packed = 1 << 20,
    .unpacked = 3 << 20,
    .file = 4 << 20,
    .entries = 5,
    .depth = 3,
    .growth = 20};

class ArchiveTest : public testing::Test {
protected:
    /// Opens an archive that `fill` makes.
    foundation::Result<Archive> archiveOf(const std::function<void(ZipFile&)>& fill) {
        ZipFile made(file);
        fill(made);
        made.close();
        return Archive::open(file, kSmall);
    }

    [[nodiscard]] std::set<std::string> unpacked() const {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(target)) {
            if (entry.is_regular_file())
                found.insert(entry.path().lexically_relative(target).string());
        }
        return found;
    }

    [[nodiscard]] static std::string contentOf(const fs::path& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    const test::TemporaryFolder folder;
    const fs::path file = folder.path() / "a.zip";
    const fs::path target = folder.path() / "target";
};

TEST_F(ArchiveTest, UnpacksFilesInFoldersAndKeepsTheFirstOfOneName) {
    const std::string large(1 << 20, 'x'); // many blocks
    const auto good = archiveOf([&large](ZipFile& zip) {
        zip.addFolder("empty/").add("a/./b\\c.txt", "deep").add("top.txt", large);
        zip.add("./top.txt", "second");
    });
    ASSERT_TRUE(good) << good.error().message;
    fs::create_directory(target);
    ASSERT_TRUE(good->unpackInto(target));
    EXPECT_EQ(unpacked(), (std::set<std::string>{"a/b/c.txt", "top.txt"}));
    EXPECT_EQ(contentOf(target / "a/b/c.txt"), "deep");
    EXPECT_EQ(contentOf(target / "top.txt"), large);
}

TEST_F(ArchiveTest, RefusesWhatCouldDoHarmBeforeAnythingIsUnpacked) {
    struct Row {
        const char* word; ///< of the message
        Cause cause;
        std::function<void(ZipFile&)> fill;
    };

    const std::string noise = [] { // does not get smaller
        std::string made(3 << 20, '\0');
        std::uint32_t state = 1;
        for (char& byte : made)
            byte = static_cast<char>((state = state * 1664525U + 1013904223U) >> 24U);
        return made;
    }();
    const auto addMany = [](ZipFile& zip, int count, const std::string& content) {
        for (int i = 0; i < count; ++i)
            zip.add("file" + std::to_string(i), content);
    };
    // clang-format off
    const std::vector<Row> rows{
        {"outside",      Cause::malformed,   [](ZipFile& zip) { zip.add("../evil.txt"); }},
        {"outside",      Cause::malformed,   [](ZipFile& zip) { zip.add("a/..\\../evil.txt"); }},
        {"absolute",     Cause::malformed,   [](ZipFile& zip) { zip.add("/tmp/evil.txt"); }},
        {"absolute",     Cause::malformed,   [](ZipFile& zip) { zip.add("C:evil.txt"); }},
        {"control",      Cause::malformed,   [](ZipFile& zip) { zip.add("a\nb.txt"); }},
        {"link",         Cause::malformed,   [](ZipFile& zip) { zip.add("a", "/etc", S_IFLNK); }},
        {"no file",      Cause::malformed,   [](ZipFile& zip) { zip.add("a", "", S_IFIFO); }},
        {"encrypted",    Cause::unsupported, [](ZipFile& zip) { zip.add("a").encrypt(); }},
        {"3 levels",     Cause::tooLarge,    [](ZipFile& zip) { zip.add("a/b/c/d.txt"); }},
        {"grows",        Cause::tooLarge,    [](ZipFile& zip) { zip.add("a", std::string(2 << 20, '0')); }},
        {"file of more", Cause::tooLarge,    [](ZipFile& zip) { zip.add("a", std::string(5 << 20, '0')); }},
        {"is larger",    Cause::tooLarge,    [&](ZipFile& zip) { zip.add("a", noise); }},
        {"unpacks to",   Cause::tooLarge,    [&](ZipFile& zip) { addMany(zip, 4, std::string((1 << 20) - 1, '0')); }},
        {"more than 5",  Cause::tooLarge,    [&](ZipFile& zip) { addMany(zip, 5, "text"); }},
    };
    // clang-format on
    for (const Row& row : rows) {
        const auto opened = archiveOf([&row](ZipFile& zip) { row.fill(zip.add("good.txt")); });
        ASSERT_FALSE(opened) << row.word;
        EXPECT_THAT(opened.error().message, testing::HasSubstr(row.word));
        EXPECT_EQ(opened.error().cause, row.cause) << row.word;
    }
}

TEST_F(ArchiveTest, LeavesNoHalfFileOfADamagedArchive) {
    ASSERT_TRUE(archiveOf([](ZipFile& zip) { zip.add("a.txt", "first").add("b.txt", "second"); }));
    const std::string whole = contentOf(file);
    const auto readWhole = [this](const std::string& bytes) {
        fs::remove_all(target);
        fs::create_directory(target);
        const auto opened = Archive::openBytes(bytes, kSmall);
        return opened && opened->unpackInto(target);
    };
    ASSERT_TRUE(readWhole(whole));
    std::string damaged = whole;
    damaged[damaged.find("second")] = 'S'; // stored as it is; the check sum tells
    EXPECT_FALSE(readWhole(damaged));
    EXPECT_EQ(unpacked(), std::set<std::string>{"a.txt"});
    for (std::size_t cut = 1; cut < whole.size(); ++cut)
        EXPECT_FALSE(Archive::openBytes(whole.substr(0, cut), kSmall)) << cut;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char value : {'\x00', '\x01', '\x7F', '\xFF'}) {
            damaged = whole;
            damaged[at] = value;
            readWhole(damaged); // must not crash
            for (const std::string& name : unpacked())
                EXPECT_LE(fs::file_size(target / name), 6U);
        }
    }
}

} // namespace

} // namespace zelvo::archive
