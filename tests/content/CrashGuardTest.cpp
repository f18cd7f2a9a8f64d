// SPDX-License-Identifier: MIT
#include "content/CrashGuard.h"

#include "content/TextNode.h"
#include "platform/geometry/Extrusion.h"
#include "platform/scene/SCNShapes.h"
#include "support/TemporaryFolder.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>

namespace {

bool isBuilderDeadly = false;

} // namespace

// The linker sends every call of geometry::makeSkeleton here (see CMakeLists.txt).
namespace zelvo::geometry {
std::shared_ptr<const OutlineSkeleton> realSkeleton(const BezierPath& outline, float flatness) asm(
    "__real__ZN5zelvo8geometry12makeSkeletonERKNS0_10BezierPathEf");
std::shared_ptr<const OutlineSkeleton> wrappedSkeleton(
    const BezierPath& outline,
    float flatness) asm("__wrap__ZN5zelvo8geometry12makeSkeletonERKNS0_10BezierPathEf");

std::shared_ptr<const OutlineSkeleton> wrappedSkeleton(const BezierPath& outline, float flatness) {
    if (isBuilderDeadly)
        std::raise(SIGKILL);
    return realSkeleton(outline, flatness);
}

} // namespace zelvo::geometry

namespace zelvo::content {
namespace {

using foundation::UserDefaults;
using test::TestWorld;

constexpr auto kDeadlyFont = "Monoton-Regular";
constexpr auto kHarmlessFont = "Abel-Regular";

class CrashGuardDeathTest : public testing::Test {
protected:
    [[nodiscard]] UserDefaults onDisk() const { return UserDefaults(file); }

    /// Runs a process that is killed while it builds a letter of the deadly font. Each call takes
    /// another letter, because the process keeps those it has built.
    void killProcessInsideBuilder() const {
        static int kills = 0;
        const std::string fresh(1, static_cast<char>('a' + kills++));
        EXPECT_EXIT(
            {
                TestWorld world(onDisk());
                isBuilderDeadly = true;
                const auto text =
                    TextNode::make({.text = fresh, .fontName = kDeadlyFont}, world.surroundings());
            },
            testing::KilledBySignal(SIGKILL),
            "");
    }

    static double chamferOf(const TextNode& text) {
        return dynamic_cast<const scene::SCNText&>(*text.letters().front()->geometry)
            .chamferRadius();
    }

    test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "defaults.json";
};

TEST_F(CrashGuardDeathTest, ListsTheFontThatKilledTheProcess) {
    killProcessInsideBuilder();
    ASSERT_EQ(onDisk().string("PotentialCorruptFontName"), kDeadlyFont);

    TestWorld world(onDisk());
    const auto text = TextNode::make({.text = "B", .fontName = kDeadlyFont}, world.surroundings());
    EXPECT_TRUE(world.alerts.empty()) << "the build does not wait for the alert";
    world.runLoop.drain();
    ASSERT_EQ(world.alerts.size(), 1U);
    EXPECT_EQ(world.alerts[0].first, "Monoton-Regular Crashed");
    EXPECT_EQ(
        world.alerts[0].second,
        "Font 'Monoton-Regular', or some characters of it, caused a crash in combination with a "
        "bevel setted higher than 0. Bevel will be set to 0 when loading this font.");
    EXPECT_EQ(onDisk().strings("CorruptFontNames"), (std::vector<std::string>{kDeadlyFont}));
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), std::nullopt);

    EXPECT_TRUE(text->fileSeemsToBeCorrupt());
    text->setBevelRadius(3);
    EXPECT_EQ(chamferOf(*text), 0) << "whatever the radius says";
    text->setFontName(kHarmlessFont);
    EXPECT_EQ(chamferOf(*text), 3) << "the radius was kept for other fonts";
}

TEST_F(CrashGuardDeathTest, NeverMarksNorReportsAListedFontAgain) {
    killProcessInsideBuilder();
    {
        TestWorld world(onDisk());
        const auto text =
            TextNode::make({.text = "B", .fontName = kHarmlessFont}, world.surroundings());
        world.runLoop.drain();
        ASSERT_EQ(world.alerts.size(), 1U) << "whichever font is built next";
    }
    killProcessInsideBuilder();
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), std::nullopt);
    UserDefaults marked = onDisk();
    marked.set("PotentialCorruptFontName", std::string(kDeadlyFont));

    TestWorld world(onDisk());
    const auto text = TextNode::make({.text = "B", .fontName = kDeadlyFont}, world.surroundings());
    world.runLoop.drain();
    EXPECT_TRUE(world.alerts.empty());
    EXPECT_EQ(onDisk().strings("CorruptFontNames")->size(), 1U);
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), std::nullopt);
}

TEST_F(CrashGuardDeathTest, LeavesNoMarkBehindABuildThatEnds) {
    TestWorld world(onDisk());
    world.defaults.set("CorruptFontNames", 7.0); // not a list: counts as empty
    const auto text =
        TextNode::make({.text = "B", .fontName = kHarmlessFont}, world.surroundings());
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), std::nullopt);
    EXPECT_FALSE(text->fileSeemsToBeCorrupt());

    world.defaults.set("PotentialCorruptFontName", std::string("Left by hand"));
    text->setCurrentMaterialName(std::nullopt);
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), std::nullopt);
    EXPECT_EQ(onDisk().strings("CorruptFontNames"), std::nullopt)
        << "a text without letters builds nothing";
}

TEST_F(CrashGuardDeathTest, GuardsOutlinesThatAreComputedLater) {
    EXPECT_EXIT(
        {
            TestWorld world(onDisk());
            const auto text =
                TextNode::make({.text = "Z", .fontName = kHarmlessFont}, world.surroundings());
            isBuilderDeadly = true;
            text->setFontNameSoon(kDeadlyFont);
            text->setBevelRadius(1); // a build while the other one goes on
            world.runLoop.drain();
        },
        testing::KilledBySignal(SIGKILL),
        "");
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), kDeadlyFont);
    EXPECT_EQ(onDisk().strings("CorruptFontNames"), std::nullopt);
}

TEST_F(CrashGuardDeathTest, LeavesTheMarkOfAnotherWindowAlone) {
    std::array<int, 2> line{};
    ASSERT_EQ(pipe(line.data()), 0);
    const pid_t window = fork();
    if (window == 0) { // builds letters until it is ended
        TestWorld other(onDisk());
        const node::Surroundings around = other.surroundings();
        const CrashGuard building(around, kDeadlyFont);
        EXPECT_EQ(write(line[1], "", 1), 1);
        pause();
    }
    char hasBegun = 1;
    ASSERT_EQ(read(line[0], &hasBegun, 1), 1);

    TestWorld world(onDisk());
    const node::Surroundings around = world.surroundings();
    const auto build = [&] {
        const CrashGuard guard(around, kHarmlessFont);
        world.runLoop.drain();
    };
    build();
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), kDeadlyFont);
    EXPECT_TRUE(world.alerts.empty());

    kill(window, SIGKILL);
    ASSERT_EQ(waitpid(window, nullptr, 0), window);
    build();
    EXPECT_EQ(world.alerts.size(), 1U) << "now it has crashed";
    EXPECT_EQ(onDisk().string("PotentialCorruptFontName"), std::nullopt);
}

} // namespace
} // namespace zelvo::content
