// SPDX-License-Identifier: MIT
// The real program in a real window, as those use it who do not see it or have no mouse.

#include "media/MediaFixture.h"
#include "platform/media/VideoReader.h"
#include "ui/window/RealInput.h"
#include "ui/window/ScreenReader.h"
#include "ui/window/WindowProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <set>
#include <thread>

namespace zelvo::test {
namespace {

using namespace std::chrono_literals;

/// The roles of what can be pressed, moved or written.
const std::set<std::string> kControlRoles{
    "push button",
    "page tab",
    "check box",
    "radio button",
    "slider",
    "spin button",
    "text",
    "list",
    "list item",
    "menu item",
    "menu",
    "popup menu",
    "panel",
    "link",
    "scroll bar"};
const std::set<std::string> kRolesWithValue{"slider", "spin button", "progress bar"};

struct Expected {
    const char* role;
    const char* name;
    const char* key = "";
};

[[nodiscard]] bool isControl(const Heard& heard) {
    // The toolkit gives a label the focus of a reader, and a value two actions.
    const bool isOnlyRead = heard.role == "label" || heard.role == "progress bar";
    return !isOnlyRead && (heard.is("focusable") || heard.can("Press") || heard.can("Toggle") ||
                           heard.can("Increase"));
}

/// What is wrong with an item; empty: nothing.
[[nodiscard]] std::string faultOf(const Heard& heard) {
    if (heard.role == "dialog" && heard.name.empty())
        return "a dialog without a name";
    if (kRolesWithValue.contains(heard.role) && !ScreenReader::value(heard))
        return "no value";
    if (!isControl(heard))
        return heard.is("focused") && heard.role != "dialog" && heard.name.empty()
                   ? "the focus is on something without a name"
                   : "";
    if (heard.name.empty())
        return "no name";
    if (!kControlRoles.contains(heard.role))
        return "not the role of a control";
    return heard.is("enabled") ? "" : "a control that is off can be used";
}

class AccessibilityTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(reader.await("page tab", "Style the stage"));
        ASSERT_TRUE(input.focusWindow());
        std::this_thread::sleep_for(500ms); // the window takes the focus
    }

    /// Everything shown is sound, and these are among it.
    void check(const std::string& where, const std::vector<Expected>& expected) {
        for (const Expected& row : expected) {
            const auto heard = reader.await(row.role, row.name);
            ASSERT_TRUE(heard) << where;
            EXPECT_EQ(heard->key, row.key) << where << ": " << heard->line();
        }
        for (const Heard& heard : reader.shown()) {
            const std::string fault = faultOf(heard);
            EXPECT_EQ(fault, "") << where << ": " << heard.line();
        }
    }

    [[nodiscard]] bool awaitMovie() {
        const auto end = std::chrono::steady_clock::now() + 120s;
        while (!reader.find("dialog", "Movie successfully saved to your Photo Library.")) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(300ms);
        }
        return true;
    }

    /// The movie in the videos folder has the size and length, and something moves in it.
    void checkMovie() {
        ASSERT_TRUE(awaitMovie()) << reader.tree();
        const auto movies = program.files("Videos", ".mov");
        ASSERT_EQ(movies.size(), 1U);
        const auto seen = media::decodeMovie(movies.front(), 160, 90);
        EXPECT_NEAR(static_cast<double>(seen.frameTimes.size()) / 60, 2, 0.1);
        const auto isSame = [&](const auto& colour) { return colour == seen.centres.front(); };
        EXPECT_FALSE(std::ranges::all_of(seen.centres, isSame)) << "nothing moves";
    }

    /// Waits until the clock of a run is past the count-in.
    void awaitRun() const { std::this_thread::sleep_for(2400ms); }

    WindowProgram program;
    ScreenReader reader;
    RealInput input;
};

TEST_F(AccessibilityTest, EveryControlOfTheStylePanelHasRoleNameStateAndKey) {
    check(
        "start",
        {{"page tab", "Style the stage", "F2"},
         {"push button", "Help and keys", "F1"},
         {"push button", "Document", "F10"},
         {"push button", "Inspirator: a random style", "I"},
         {"page tab", "Text 1"},
         {"page tab", "Background"}});
    EXPECT_TRUE(reader.find("page tab", "Style the stage")->is("selected"));
    EXPECT_FALSE(reader.find("push button", "Undo")->is("enabled")) << "there is nothing to undo";
    EXPECT_TRUE(reader.find("push button", "Document")->is("collapsed"));

    reader.press("page tab", "Text 1");
    check("a text", {{"push button", "Back", "Esc"}, {"list item", "Iron"}});
    reader.press("list item", "Iron");
    EXPECT_TRUE(reader.await("list item", "Iron")->is("selected"));
    EXPECT_TRUE(reader.await("push button", "Undo")) << "a material was chosen";
    reader.press("page tab", "Write");
    check("writing", {{"text", "Text"}});
    EXPECT_EQ(ScreenReader::text(*reader.await("text", "Text")), "TITLE");
    EXPECT_TRUE(reader.await("text", "Text")->is("focused"));

    reader.press("page tab", "Font");
    reader.press("push button", "All fonts");
    check("the list of fonts", {{"dialog", "All fonts"}, {"text", "Search fonts"}});
    EXPECT_TRUE(reader.find("push button", "All fonts")->is("expanded"));
    input.click("Escape");
    reader.press("page tab", "Frontcolor");
    reader.press("push button", "More colors");
    check("colors", {{"dialog", "Color"}, {"text", "Hex"}, {"slider", "Brightness"}});
    input.click("Escape");

    reader.press("page tab", "Form");
    check("form", {{"slider", "Depth"}, {"slider", "Bevel"}});
    const double before = *ScreenReader::value(*reader.await("slider", "Depth"));
    reader.act("slider", "Depth", "Increase");
    EXPECT_GT(*ScreenReader::value(*reader.await("slider", "Depth")), before);
    EXPECT_TRUE(reader.setValue("slider", "Depth", 20));
    EXPECT_EQ(ScreenReader::value(*reader.await("slider", "Depth")), 20);

    reader.press("page tab", "Transform");
    check("transform", {{"page tab list", "What to change"}});
    reader.press("push button", "Back");
    reader.press("page tab", "Image");
    check("image", {{"push button", "Choose a picture"}});
    reader.press("push button", "Back");
    reader.press("page tab", "Audio");
    check("audio", {{"push button", "Choose the music"}});
}

TEST_F(AccessibilityTest, EveryControlOfTheScreensHasRoleNameStateAndKey) {
    input.click("F10");
    check("the menu", {{"menu item", "New…", "Ctrl+N"}, {"menu item", "Save", "Ctrl+S"}});
    EXPECT_TRUE(reader.find("push button", "Document")->is("expanded"));
    input.click("Escape");
    input.click("ctrl+n");
    check("templates", {{"list", "Templates"}, {"push button", "Close", "Esc"}});
    input.click("Escape");
    input.click("F1");
    check("keys", {{"dialog", "Keys"}, {"list item", "Space: Start and stop a run"}});
    input.click("Escape");

    input.click("F3");
    input.click("s");
    check(
        "actions",
        {{"push button", "Record", "Space"},
         {"push button", "Duration", "Ctrl+D"},
         {"push button", "Left In", "1"},
         {"check box", "First text"},
         {"page tab", "Speed: Normal"},
         {"push button", "Speed and objects", "S"}});
    EXPECT_TRUE(reader.find("page tab", "Perform actions")->is("selected"));
    EXPECT_TRUE(reader.find("check box", "First text")->is("checked"));
    reader.press("check box", "First text");
    EXPECT_FALSE(reader.await("check box", "First text")->is("checked"));
    input.click("ctrl+d");
    check("duration", {{"dialog", "Duration"}, {"spin button", "Seconds"}});
    EXPECT_FALSE(reader.find("push button", "Left In")->is("enabled")) << "it is below a dialog";
    const double before = *ScreenReader::value(*reader.await("spin button", "Seconds"));
    reader.act("spin button", "Seconds", "Increase");
    EXPECT_EQ(ScreenReader::value(*reader.await("spin button", "Seconds")), before + 1);
    input.click("Escape");

    input.click("space");
    awaitRun();
    input.click("1");
    input.click("space");
    input.click("ctrl+h");
    check("history", {{"list", "Actions"}, {"list item", "Left In (TX2, IMG, OBJ), 1"}});
    input.click("Escape");
    input.click("ctrl+e");
    check(
        "export",
        {{"dialog", "Export"},
         {"push button", "Export", "Return"},
         {"radio button", "QuickTime"},
         {"text", "Name"}});
    EXPECT_TRUE(reader.find("radio button", "QuickTime")->is("checked"));
    EXPECT_FALSE(reader.find("radio button", "MP4")->is("checked"));
}

TEST_F(AccessibilityTest, APerformanceIsMadeByKeyboardAlone) {
    input.click("Tab"); // the first text
    input.click("Return");
    ASSERT_TRUE(reader.await("text", "Text"));
    input.click("ctrl+a");
    input.type("Opera");
    input.click("Return");
    input.click("F2"); // its tabs: Material is lit
    input.click("Up");
    input.click("Right");
    EXPECT_TRUE(reader.await("list item", "Plastic")->is("selected"));
    input.click("Escape");
    input.click("F2");
    for (int i = 0; i < 4; ++i)
        input.click("Right");
    input.click("Return"); // Background
    ASSERT_TRUE(reader.await("page tab", "Environment"));
    input.click("F2");
    input.click("Up");
    input.click("Home");
    EXPECT_TRUE(reader.await("list item", "Flat")->is("selected"));

    input.click("F3");
    input.click("ctrl+d");
    ASSERT_TRUE(reader.await("spin button", "Seconds"));
    input.click("2");
    input.click("Return");
    input.click("space");
    awaitRun();
    input.click("1");
    input.press("2");
    std::this_thread::sleep_for(400ms);
    input.release("2");
    EXPECT_TRUE(reader.await("push button", "Record")) << "the run has ended";

    input.click("ctrl+e");
    ASSERT_TRUE(reader.await("dialog", "Export"));
    input.click("Tab");
    for (int i = 0; i < 6; ++i)
        input.click("Right"); // to the size of one's own
    input.click("Tab");
    input.click("ctrl+a");
    input.type("320x180");
    input.click("Return");
    checkMovie();
}

TEST_F(AccessibilityTest, APerformanceIsMadeByAScreenReaderAlone) {
    reader.press("page tab", "Text 2");
    reader.press("page tab", "Write");
    ASSERT_TRUE(reader.write("text", "Text", "Night"));
    EXPECT_EQ(ScreenReader::text(*reader.await("text", "Text")), "Night");
    reader.press("page tab", "Material");
    reader.press("list item", "Plastic");
    reader.press("push button", "Back");
    reader.press("page tab", "Background");
    reader.press("list item", "Flat");

    reader.press("page tab", "Perform actions");
    reader.press("push button", "Duration");
    ASSERT_TRUE(reader.setValue("spin button", "Seconds", 2));
    reader.press("push button", "Ok");
    reader.press("push button", "Record");
    awaitRun();
    reader.act("push button", "Left In", "Toggle");
    EXPECT_TRUE(reader.await("push button", "Left In")->is("pressed")) << "it is held";
    reader.act("push button", "Left In", "Toggle");
    EXPECT_TRUE(reader.await("push button", "Record")) << "the run has ended";

    reader.press("push button", "Export a movie");
    reader.press("radio button", "Other");
    ASSERT_TRUE(reader.write("text", "Width x height", "320x180"));
    reader.press("push button", "Export");
    checkMovie();
}

} // namespace
} // namespace zelvo::test
