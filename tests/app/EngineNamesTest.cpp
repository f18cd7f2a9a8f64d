// SPDX-License-Identifier: MIT
#include "app/EngineNames.h"

#include "app/PerformanceFile.h"
#include "environments/SceneManager.h"
#include "platform/foundation/RunLoop.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/schema.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace zelvo::app {

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

/// The values that the schema allows at that place.
[[nodiscard]] Strings allowed(const rapidjson::Document& schema, const std::string& pointer) {
    Strings names;
    const auto* const list = rapidjson::Pointer(pointer.c_str()).Get(schema);
    if (list == nullptr || !list->IsArray())
        return names;
    for (const auto& item : list->GetArray())
        names.emplace_back(item.GetString());
    return names;
}

TEST(EngineNames, list_the_scenes_that_can_be_built) {
    foundation::VirtualRunLoop loop;
    Strings built;
    for (std::size_t i = 0; i < look::SceneManager::sceneNames.size(); ++i) {
        if (look::SceneManager::sceneData(static_cast<int>(i), loop))
            built.emplace_back(look::SceneManager::sceneNames.at(i));
    }
    EXPECT_EQ(engineNames().scenes, built);
}

TEST(EngineNames, are_the_names_that_the_schema_allows) {
    const auto schema = jsonFile(resource("performance.schema.json"));
    const auto names = engineNames();
    EXPECT_EQ(allowed(schema, "/properties/scene/enum"), names.scenes);
    EXPECT_EQ(allowed(schema, "/$defs/textStyle/properties/font/enum"), names.fonts);
    EXPECT_EQ(allowed(schema, "/$defs/textStyle/properties/material/enum"), names.materials);
    EXPECT_EQ(allowed(schema, "/$defs/speed/examples"), names.speeds);
    EXPECT_EQ(allowed(schema, "/$defs/mediaStyle/properties/shape/enum"), names.shapes);
    EXPECT_EQ(allowed(schema, "/$defs/mediaStyle/properties/material/enum"), names.objectMaterials);
    Strings tabs;
    for (const auto& tab : names.tabs) {
        if (tab.titles.empty())
            continue;
        tabs.push_back(tab.tab);
        EXPECT_EQ(allowed(schema, "/$defs/buttons" + tab.tab + "/enum"), tab.titles) << tab.tab;
    }
    EXPECT_EQ(allowed(schema, "/$defs/cue/properties/tab/enum"), tabs);
}

TEST(Performances, that_come_with_the_program_are_right_by_schema_and_reader) {
    const rapidjson::SchemaDocument schema(jsonFile(resource("performance.schema.json")));
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(resource("performances"))) {
        rapidjson::SchemaValidator validator(schema);
        EXPECT_TRUE(jsonFile(entry.path()).Accept(validator))
            << entry.path() << ": " << validator.GetInvalidSchemaKeyword();
        const auto read = loadPerformance(entry.path(), engineNames());
        EXPECT_TRUE(read) << read.error().front();
        ++count;
    }
    EXPECT_GE(count, 3);
}

TEST(Performances, include_one_that_uses_every_tab_and_gesture) {
    const auto everything =
        loadPerformance(resource("performances/everything.json"), engineNames());
    ASSERT_TRUE(everything) << everything.error().front();
    std::set<std::string> used;
    for (const auto& cue : everything->cues) {
        if (const auto* const press = std::get_if<Press>(&cue.act))
            used.insert(press->tab);
        used.insert(std::holds_alternative<Pan>(cue.act) ? "pan" : "");
        used.insert(std::holds_alternative<Pinch>(cue.act) ? "pinch" : "");
        used.insert(std::holds_alternative<DoubleTap>(cue.act) ? "double tap" : "");
    }
    for (const auto& tab : engineNames().tabs)
        EXPECT_TRUE(used.contains(tab.tab)) << tab.tab;
    for (const char* const gesture : {"pan", "pinch", "double tap"})
        EXPECT_TRUE(used.contains(gesture)) << gesture;
}

} // namespace

} // namespace zelvo::app
