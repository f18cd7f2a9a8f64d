// SPDX-License-Identifier: MIT
#include "document/EngineNames.h"

#include "document/PerformanceFile.h"
#include "document/Templates.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/schema.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace zelvo::document {

namespace {

using Strings = std::vector<std::string>;

[[nodiscard]] rapidjson::Document jsonFile(const std::filesystem::path& file) {
    std::ifstream in(file);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    rapidjson::Document document;
    document.Parse(text.c_str());
    EXPECT_FALSE(document.HasParseError()) << file;
    return document;
}

[[nodiscard]] std::filesystem::path resource(const char* name) {
    return std::filesystem::path(ZELVO_RESOURCES_DIR) / name;
}

[[nodiscard]] std::string listOf(const Strings& names) {
    return fmt::format(R"({{"enum": ["{}"]}})", fmt::join(names, R"(", ")"));
}

/// A pattern for the names, in upper or lower case.
[[nodiscard]] std::string patternOf(const Strings& names) {
    std::string pattern;
    for (const std::string& name : names) {
        pattern += pattern.empty() ? "" : "|";
        for (const char letter : name)
            pattern +=
                {'[',
                 static_cast<char>(std::toupper(letter)),
                 static_cast<char>(std::tolower(letter)),
                 ']'};
    }
    return "^(" + pattern + ")$";
}

/// The schema of a tab's buttons: their titles for "press" and for "hold".
[[nodiscard]] std::string buttonsOf(const TabNames& tab) {
    Strings fired;
    for (const std::string& title : tab.titles) {
        if (std::ranges::find(tab.held, title) == tab.held.end())
            fired.push_back(title);
    }
    Strings ways;
    if (!fired.empty())
        ways.push_back("\"press\": " + listOf(fired));
    if (!tab.held.empty())
        ways.push_back("\"hold\": " + listOf(tab.held));
    const char* const only = tab.held.empty() ? "press" : "hold";
    return fmt::format(
        R"(        {{
          "if": {{"properties": {{"tab": {{"const": "{}"}}}}, "required": ["tab"]}},
          "then": {{{}"properties": {{{}}}}}
        }})",
        tab.tab,
        ways.size() == 1 ? fmt::format(R"("required": ["{}"], )", only) : "",
        fmt::join(ways, ", "));
}

/// The last part of the schema: the names in the engine's tables.
[[nodiscard]] std::string namesAsSchema(const Names& names) {
    Strings tabs, buttons;
    for (const TabNames& tab : names.tabs) {
        tabs.push_back(tab.tab);
        buttons.push_back(buttonsOf(tab));
    }
    std::string text;
    const auto define = [&](const char* name, const std::string& what) {
        text += fmt::format("    \"{}\": {},\n", name, what);
    };
    define("scene", listOf(names.scenes));
    define("font", listOf(names.fonts));
    define("material", listOf(names.materials));
    define("objectMaterial", listOf(names.objectMaterials));
    define("shape", listOf(names.shapes));
    define("mask", listOf(names.masks));
    define(
        "speed",
        fmt::format(
            R"({{"type": "string", "pattern": "{}", "examples": ["{}"]}})",
            patternOf(names.speeds),
            fmt::join(names.speeds, "\", \"")));
    define("fade", listOf(names.fades));
    define("tab", listOf(tabs));
    return text + "    \"buttonOfTab\": {\n      \"allOf\": [\n" +
           fmt::format("{}", fmt::join(buttons, ",\n")) + "\n      ]\n    }\n  }\n}\n";
}

// With ZELVO_UPDATE_GOLDEN=1 in the environment, the file is updated.
TEST(EngineNames, are_the_names_that_the_schema_allows) {
    constexpr std::string_view kWritten = R"("written": {"$comment")";
    std::ifstream in(resource("performance.schema.json"));
    std::string kept{std::istreambuf_iterator<char>(in), {}};
    const auto mark = kept.find(kWritten);
    ASSERT_NE(mark, std::string::npos);
    const auto from = kept.find('\n', mark) + 1;
    const std::string written = namesAsSchema(engineNames());
    if (std::getenv("ZELVO_UPDATE_GOLDEN") != nullptr)
        std::ofstream(resource("performance.schema.json"))
            << (kept = kept.substr(0, from) + written);
    EXPECT_EQ(kept.substr(from), written);
}

[[nodiscard]] std::vector<std::filesystem::directory_entry> performanceFiles() {
    std::vector<std::filesystem::directory_entry> files;
    for (const char* const folder : {"performances", "templates"}) {
        for (const auto& entry : std::filesystem::directory_iterator(resource(folder)))
            files.push_back(entry);
    }
    return files;
}

TEST(Performances, that_come_with_the_program_are_right_and_use_every_tab_and_gesture) {
    const rapidjson::SchemaDocument schema(jsonFile(resource("performance.schema.json")));
    std::set<std::string> used;
    for (const auto& entry : performanceFiles()) {
        rapidjson::SchemaValidator validator(schema);
        EXPECT_TRUE(jsonFile(entry.path()).Accept(validator))
            << entry.path() << ": " << validator.GetInvalidSchemaKeyword();
        const auto read = loadPerformance(entry.path(), engineNames());
        ASSERT_TRUE(read) << read.error().front();
        for (const auto& cue : read->cues) {
            const auto* const press = std::get_if<Press>(&cue.act);
            used.insert(press != nullptr ? press->tab : std::to_string(cue.act.index()));
        }
    }
    Strings wanted;
    for (const TabNames& tab : engineNames().tabs)
        wanted.push_back(tab.tab);
    for (const auto& gesture : std::array<decltype(Cue::act), 3>{Pan(), Pinch(), DoubleTap()})
        wanted.push_back(std::to_string(gesture.index()));
    for (const std::string& name : wanted)
        EXPECT_TRUE(used.contains(name)) << name;
}

// What a user changes in a template are its two words: both must be there, and in no animation may
// a long one be larger than the picture.
TEST(Templates, are_short_performances_of_two_words_and_use_every_tab) {
    std::set<std::string> tabs;
    std::set<std::string> scenes;
    for (const std::string_view name : kTemplates) {
        const auto file = templateFile(name);
        ASSERT_TRUE(file) << file.error().message;
        const auto read = loadPerformance(*file, engineNames());
        ASSERT_TRUE(read) << read.error().front();
        EXPECT_GE(read->duration.value_or(0), 4) << name;
        EXPECT_LE(read->duration.value_or(0), 8) << name;
        for (const char* const node : {"TX1", "TX2"}) {
            const TextStyle& text = read->nodes.at(node);
            EXPECT_FALSE(text.text.value_or("").empty()) << name;
            EXPECT_TRUE(text.maxWidth) << name;
        }
        scenes.insert(*read->scene);
        for (const auto& cue : read->cues) {
            if (const auto* const press = std::get_if<Press>(&cue.act))
                tabs.insert(press->tab);
        }
    }
    EXPECT_EQ(tabs.size(), engineNames().tabs.size());
    EXPECT_GE(scenes.size(), 10U);
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(resource("templates")))
        files += entry.path().extension() == ".json" ? 1 : 0;
    EXPECT_EQ(files, kTemplates.size());
    EXPECT_NE(templateFile("nigth").error().message.find("night"), std::string::npos);
    EXPECT_FALSE(templateFile("../performances/first"));
}

} // namespace

} // namespace zelvo::document
