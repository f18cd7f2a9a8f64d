// SPDX-License-Identifier: MIT
#include "usd/Package.h"

#include <gtest/gtest.h>

#include <limits>

namespace zelvo::usd {
namespace {

using test::packageOf;
using test::readPackage;

const std::string kScene = "#usda 1.0\n" + test::squareWith("");

TEST(Package, begins_with_its_first_layer) {
    const std::string other = "#usda 1.0\ndef Cube \"A\" {}\ndef Cube \"B\" {}";
    EXPECT_EQ(
        readPackage({{"__MACOSX/._a.usda", "junk"}, {"a.usda", kScene}, {"b.usda", other}})
            ->figures.meshes,
        1);
    EXPECT_EQ(readPackage({{"note.txt", "hello"}, {"A.USD", kScene}})->figures.meshes, 1);
    EXPECT_EQ(readPackage({{"in.usdz", packageOf({{"c.usda", kScene}})}})->figures.meshes, 1);
}

TEST(Package, says_in_one_line_why_it_cannot_be_read) {
    const std::string empty = packageOf({{"a.txt", "hello"}});

    struct Row {
        std::string bytes;
        std::string message;
    };

    const Row rows[] = {
        {"", "it is not a scene"},
        {"GIF89a", "it is not a scene"},
        {empty.substr(0, 40), "it is a damaged archive"},
        {empty, "there is no scene in the archive"},
        {packageOf({{"a.usda", "hello"}}), "a.usda: it is not a scene"},
        {packageOf({{"a.usda", "#usda 1.0\ndef {"}}), "a.usda: line 2: a text is missing"},
        {packageOf({{"a.usdc", "PXR-USDC and no more"}}),
         "a.usdc: its table of contents is damaged"},
        {packageOf({{"a.usda", "#usda 1.0\ndef Xform \"A\" {}"}}),
         "there is nothing in it that can be drawn"},
    };
    for (const Row& row : rows) {
        const auto scene = readUSD(test::bytesOf(row.bytes));
        ASSERT_FALSE(scene) << row.message;
        EXPECT_EQ(scene.error().message, row.message);
    }
}

TEST(Package, packages_within_packages_end) {
    std::string bytes = packageOf({{"a.usda", kScene}});
    for (int i = 0; i < 20; ++i)
        bytes = packageOf({{"in.usdz", bytes}});
    EXPECT_FALSE(readUSD(test::bytesOf(bytes)));
}

TEST(Package, limits_are_kept) {
    Limits limits;
    limits.unpackedBytes = kScene.size() - 1;
    EXPECT_EQ(readPackage({{"a.usda", kScene}}, limits).error().cause, foundation::Cause::tooLarge);
    limits = {};
    limits.corners = 3;
    EXPECT_EQ(readPackage({{"a.usda", kScene}}, limits).error().cause, foundation::Cause::tooLarge);
    limits = {};
    limits.entries = 1;
    EXPECT_EQ(
        readPackage({{"a.usda", kScene}, {"b.txt", ""}}, limits).error().cause,
        foundation::Cause::tooLarge);
}

TEST(Package, reading_can_be_stopped) {
    std::stop_source stop;
    stop.request_stop();
    object::Watch watch;
    watch.stop = stop.get_token();
    EXPECT_EQ(readUSD(test::bytesOf(kScene), watch).error().cause, foundation::Cause::cancelled);
}

TEST(Package, damage_is_an_error_and_nothing_worse) {
    const std::string whole = packageOf({{"a.usda", kScene}, {"b.usda", kScene}});
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string changed = whole;
        changed[i] = static_cast<char>(static_cast<unsigned char>(changed[i]) ^ 0xFFU);
        static_cast<void>(readUSD(test::bytesOf(changed)));
        static_cast<void>(readUSD(test::bytesOf(whole.substr(0, i))));
    }
    EXPECT_FALSE(readUSD(test::bytesOf(whole.substr(0, whole.size() - 1))));
}

} // namespace
} // namespace zelvo::usd
