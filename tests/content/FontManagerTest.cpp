// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace zelvo::content {
namespace {

std::vector<std::string> columns(const std::string& line) {
    std::vector<std::string> parts(1);
    for (const char c : line) {
        if (c == '\t') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

TEST(FontManager, NamesTheFilesThatTheSetUpFetches) {
    std::ifstream table(foundation::mainBundle().path("fonts.tsv"));
    std::vector<std::pair<std::string, std::string>> fetched;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with('#') || line.starts_with("name\t"))
            continue;
        const auto parts = columns(line);
        ASSERT_EQ(parts.size(), 6U) << line;
        fetched.emplace_back(parts[0], parts[5]);
    }
    std::vector<std::pair<std::string, std::string>> listed;
    for (const BuiltInFont& font : FontManager::builtInFonts()) {
        listed.emplace_back(font.name, font.file);
    }
    EXPECT_EQ(listed, fetched);
}

TEST(FontManager, MakesEveryBuiltInFontFindableByItsName) {
    const text::FontRegistry& fonts = test::TestWorld::fonts();
    std::set<text::FontPtr> found;
    for (const BuiltInFont& font : FontManager::builtInFonts()) {
        const auto face = fonts.find(font.name);
        EXPECT_NE(face, nullptr) << font.name;
        EXPECT_TRUE(found.insert(face).second) << font.name << " is the face of another name";
    }
    EXPECT_NE(fonts.fallback(), nullptr);
    EXPECT_EQ(fonts.find("Nobody's Font"), nullptr);
}

TEST(FontManager, GoesOnWithoutFilesThatAreMissing) {
    text::FontRegistry empty;
    FontManager(empty).registerBuiltIns(foundation::Bundle({"/nowhere/at/all"}));
    EXPECT_EQ(empty.fallback(), nullptr);
}

} // namespace
} // namespace zelvo::content
