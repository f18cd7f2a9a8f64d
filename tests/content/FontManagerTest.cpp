// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "platform/text/LineLayout.h"
#include "support/TestWorld.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace zelvo::content {
namespace {

TEST(FontManager, NamesTheFilesThatTheSetUpFetches) {
    std::ifstream table(foundation::mainBundle().path("fonts.tsv"));
    std::vector<std::pair<std::string, std::string>> fetched;
    for (std::string line; std::getline(table, line);) {
        std::istringstream row(line);
        std::vector<std::string> parts;
        for (std::string part; std::getline(row, part, '\t');)
            parts.push_back(part);
        const bool isFont = parts.size() == 6 && parts[0] != "name" && parts[0] != "-";
        if (isFont && !line.starts_with('#'))
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

TEST(FontManager, LendsLettersOfOtherScriptsToEveryFont) {
    const text::FontRegistry& fonts = test::TestWorld::fonts();
    const text::TextAttributes attributes{
        .font = fonts.find("FugazOne-Regular"), .fallbacks = fonts.fallbacks()};
    const text::TextAttributes alone{.font = attributes.font};
    const std::size_t frame = text::outlineOf("\u4E2D", alone).elements().size();
    std::set<std::size_t> drawings{frame};
    for (const char* letter : {"\u05D0", "\u0634", "\u6C38", "\u3042", "\uD55C"}) {
        const std::size_t drawn = text::outlineOf(letter, attributes).elements().size();
        EXPECT_TRUE(drawings.insert(drawn).second) << letter << " looks like another";
    }
    // Arabic letters that are drawn one by one do not join: together they are as wide as alone.
    const auto word = text::layoutLine("\u0634\u0645\u0633", attributes);
    for (const text::PlacedCharacter& letter : word)
        EXPECT_NEAR(letter.width, text::layoutLine(letter.text, attributes).front().width, 1e-6);
    EXPECT_GT(word.front().x, word.back().x);
}

} // namespace
} // namespace zelvo::content
