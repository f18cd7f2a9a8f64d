// SPDX-License-Identifier: MIT
// What somebody does who has never seen the program: presses what is written on the window, with the
// mouse, and types two words. No double clicks, no keys, nothing that is not shown.

#include "media/MediaFixture.h"
#include "platform/media/VideoReader.h"
#include "ui/window/RealInput.h"
#include "ui/window/ScreenReader.h"
#include "ui/window/WindowProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace zelvo::test {
namespace {

using namespace std::chrono_literals;

constexpr int kMostClicks = 12;
constexpr int kWords = 2;
constexpr double kUsualSeconds = 8; ///< of a movie

class Newcomer {
public:
    void click(const std::string& role, const std::string& name) {
        const auto seen = reader.await(role, name);
        ASSERT_TRUE(seen);
        const auto [x, y] = ScreenReader::place(*seen);
        input.clickAt(x, y);
        ++clicks;
    }

    /// Into the field that has just opened.
    void write(const std::string& word) {
        ASSERT_TRUE(reader.await("text", "Text"));
        input.type(word);
        ++words;
    }

    /// The one line that says what to do next.
    [[nodiscard]] bool isTold(const std::string& line) const {
        return reader.await("label", line).has_value();
    }

    [[nodiscard]] bool awaitsMovie() const {
        const auto end = std::chrono::steady_clock::now() + 200s;
        while (!reader.find("push button", "Close the preview")) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(500ms);
        }
        return true;
    }

    ScreenReader reader;
    RealInput input;
    int clicks = 0;
    int words = 0;
};

TEST(Newcomer, MakesAMovieWithAFewClicksAndTwoWords) {
    const WindowProgram program(R"({"ExportSize": "640x360"})"); // so that it does not take long
    Newcomer user;
    ASSERT_TRUE(user.isTold("Style the stage, then go to Actions to perform"));
    ASSERT_TRUE(user.input.focusWindow()); // as a window manager does
    std::this_thread::sleep_for(500ms);

    user.click("page tab", "Text 1");
    user.click("page tab", "Write");
    user.write("Opera");
    user.click("push button", "Back");
    user.click("page tab", "Text 2");
    user.click("page tab", "Write");
    user.write("Night");
    user.click("page tab", "Perform actions");
    ASSERT_TRUE(user.isTold("Press Space, then the buttons while the clock runs"));
    user.click("push button", "Record");
    std::this_thread::sleep_for(2200ms); // the count-in
    user.click("push button", "Left In");
    user.click("push button", "Up In");
    ASSERT_TRUE(user.reader.await("push button", "Export a movie"));
    user.click("push button", "Export a movie");
    user.click("push button", "Export");
    ASSERT_TRUE(user.awaitsMovie()) << user.reader.tree();

    const auto movies = program.files("Videos", ".mov");
    ASSERT_EQ(movies.size(), 1U);
    const auto seen = media::decodeMovie(movies.front(), 320, 180);
    EXPECT_NEAR(static_cast<double>(seen.frameTimes.size()) / 60, kUsualSeconds, 0.1);
    EXPECT_FALSE(std::ranges::all_of(seen.centres, [&](const auto& colour) {
        return colour == seen.centres.front();
    })) << "the title has not come in";
    EXPECT_LE(user.clicks, kMostClicks);
    EXPECT_EQ(user.words, kWords);
}

} // namespace
} // namespace zelvo::test
