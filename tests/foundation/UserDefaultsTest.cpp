// SPDX-License-Identifier: MIT
#include "platform/foundation/UserDefaults.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zelvo::foundation {
namespace {

using Strings = std::vector<std::string>;

TEST(UserDefaults, EveryTypeComesBackAfterARelaunchAndOnlyAsItself) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "deep" / "defaults.json";
    {
        UserDefaults defaults(file);
        defaults.set("flag", true);
        defaults.set("size", 0.76);
        defaults.set("name", std::string("Gang of \"three\" – ü"));
        defaults.set("list", Strings{"a", "b"});
        defaults.set("gone", std::string("x"));
        defaults.remove("gone");
    }
    const UserDefaults again(file);
    EXPECT_EQ(again.boolean("flag"), true);
    EXPECT_EQ(again.number("size"), 0.76);
    EXPECT_EQ(again.string("name"), "Gang of \"three\" – ü");
    EXPECT_EQ(again.strings("list"), (Strings{"a", "b"}));
    EXPECT_FALSE(again.string("gone"));
    EXPECT_FALSE(again.string("list")); // a value of another type counts as missing
    EXPECT_FALSE(again.strings("name"));
}

TEST(UserDefaults, ADamagedFileCountsAsEmptyAndIsReplacedByTheNextChange) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "defaults.json";
    for (const char* damage : {"", "{", "[1,2]", R"({"a":[1,"x"],"b":{}})", "\xff\xfe"}) {
        std::ofstream(file, std::ios::binary) << damage;
        UserDefaults defaults(file);
        EXPECT_FALSE(defaults.strings("a")) << damage;
        defaults.set("a", std::string("ok"));
        EXPECT_EQ(UserDefaults(file).string("a"), "ok") << damage;
    }
}

TEST(UserDefaults, TwoWindowsKeepWhatTheOtherHasChanged) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "defaults.json";
    UserDefaults one(file);
    one.set("old", true);
    UserDefaults other(file);
    one.set("sort", std::string("PlayTime"));
    one.remove("old");
    other.set("size", 2.0, UserDefaults::Outlives::program);
    one.remove("nothing");
    for (const UserDefaults& defaults : {one, other, UserDefaults(file)}) {
        EXPECT_EQ(defaults.string("sort"), "PlayTime");
        EXPECT_EQ(defaults.number("size"), 2.0);
        EXPECT_FALSE(defaults.boolean("old"));
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1)
        << "nothing is left beside it";
}

TEST(UserDefaults, AFolderThatCannotBeWrittenKeepsTheValuesInMemory) {
    UserDefaults defaults("/proc/no/such/place/defaults.json");
    defaults.set("a", 1.0);
    EXPECT_EQ(defaults.number("a"), 1.0);
}

} // namespace
} // namespace zelvo::foundation
