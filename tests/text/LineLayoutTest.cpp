// SPDX-License-Identifier: MIT
#include "platform/text/LineLayout.h"

#include "text/TestFonts.h"

#include <glm/common.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace zelvo::text {

namespace {

TextAttributes attributesOf(const std::string& font, const std::string& fallback = {}) {
    TextAttributes attributes;
    attributes.font = fontOf(fontFile(font));
    if (!fallback.empty())
        attributes.fallbacks = {fontOf(fontFile(fallback))};
    return attributes;
}

double widthOf(const std::string& string, const TextAttributes& attributes) {
    double width = 0;
    for (const PlacedCharacter& character : layoutLine(string, attributes)) {
        width += character.width;
    }
    return width;
}

struct Bounds {
    glm::vec2 min{1e9f};
    glm::vec2 max{-1e9f};
};

Bounds boundsOf(const std::string& string, const TextAttributes& attributes) {
    const geometry::BezierPath outline = outlineOf(string, attributes);
    Bounds bounds;
    for (const auto& element : outline.elements()) {
        bounds.min = glm::min(bounds.min, element.point);
        bounds.max = glm::max(bounds.max, element.point);
    }
    return bounds;
}

TEST(LineLayout, SplitsAStringIntoWhatPeopleCallCharacters) {
    using Row = std::pair<const char*, std::vector<std::string>>;

    for (const auto& [string, characters] :
         {Row{"", {}},
          {"a b", {"a", " ", "b"}},
          {"e\u0301x", {"e\u0301", "x"}},
          {"\u05E9\u05C1\u05DC", {"\u05E9\u05C1", "\u05DC"}},
          {"\U0001F1E9\U0001F1EA!", {"\U0001F1E9\U0001F1EA", "!"}},
          {"a\xFFz", {"a", "\uFFFD", "z"}}}) {
        EXPECT_EQ(charactersOf(string), characters) << string;
    }
}

TEST(LineLayout, SetsOneEntryACharacterWithoutLigatures) {
    for (const char* font : {"Gelasio-Regular", "NunitoSans-Medium", "InterTight-Bold"}) {
        const TextAttributes attributes = attributesOf(font);
        for (const char* string : {"ffi fl ft", "office -> 1/2", "  ", "e\u0301\u0302 x"}) {
            const auto placed = layoutLine(string, attributes);
            ASSERT_EQ(placed.size(), charactersOf(string).size()) << font;
            double pen = 0;
            for (const PlacedCharacter& character : placed) {
                EXPECT_NEAR(character.x, pen, 1e-6) << font << " " << string;
                EXPECT_GT(character.width, 0) << font << " " << string;
                pen += character.width;
            }
        }
    }
}

TEST(LineLayout, KernsPairsAndAddsKernBehindEachCharacter) {
    TextAttributes attributes = attributesOf("NunitoSans-Medium");
    const double plain = widthOf("AV", attributes);
    EXPECT_LT(plain, widthOf("A", attributes) + widthOf("V", attributes) - 1);
    attributes.kern = -1;
    EXPECT_NEAR(widthOf("AV", attributes), plain - 2, 1e-6);
    EXPECT_NEAR(widthOf("e\u0301", attributes), widthOf("\u00E9", attributes), 1e-6)
        << "one kern for a letter with its mark";
}

TEST(LineLayout, AMarkStandsOverItsLetterHoweverTallThatIs) {
    for (const char* font : {"NunitoSans-Medium", "Gelasio-Regular"}) {
        const TextAttributes attributes = attributesOf(font);
        for (const std::string letter : {"x", "Q"}) { // no font has one glyph for these with a mark
            const Bounds alone = boundsOf(letter, attributes);
            const Bounds marked = boundsOf(letter + "\u0301", attributes);
            EXPECT_GT(marked.max.y, alone.max.y + 15) << font << " " << letter;
            EXPECT_EQ(marked.max.x, alone.max.x) << font << " " << letter;
        }
    }
}

TEST(LineLayout, ALineRunsAsItsFirstLetterDoesAndEndsBehindItsLast) {
    const TextAttributes attributes = attributesOf("Abel-Regular");

    struct Row {
        const char* string;
        std::vector<int> order; // of the characters, from left to right
    };

    // clang-format off
    const Row rows[] = {
        {"ab_",                 {0, 1, 2}         },
        {"\u05D0\u05D1\u05D2_", {3, 2, 1, 0}      },
        {"a\u05D0 \u05D1b",     {0, 3, 2, 1, 4}   },
        {"\u05D0 12 \u05D1",    {5, 4, 2, 3, 1, 0}},
        {"\u0627\u0628!",       {2, 1, 0}         },
        {"\u05D0 1,2 \u05D1",   {6, 5, 2, 3, 4, 1, 0}}, // a number keeps its comma
        {"\u05D0 $1",           {2, 3, 1, 0}      },    // and its currency sign
        {"\u05D0(\u05D1)b",     {4, 3, 2, 1, 0}   },    // brackets stay around their content
        {"\u202Eab\u202Cc",     {0, 3, 2, 1, 4}   },    // reversed by an override
    };
    // clang-format on
    for (const Row& row : rows) {
        const auto placed = layoutLine(row.string, attributes);
        ASSERT_EQ(placed.size(), row.order.size());
        double pen = 0;
        for (const int index : row.order) {
            const PlacedCharacter& character = placed[static_cast<std::size_t>(index)];
            EXPECT_NEAR(character.x, pen, 1e-6) << row.string << " at " << index;
            pen += character.width;
        }
    }
}

TEST(LineLayout, TakesWhatAFontLacksFromTheFallback) {
    const TextAttributes attributes = attributesOf("OSP-DIN", "NunitoSans-Medium");
    const TextAttributes other = attributesOf("NunitoSans-Medium");
    for (const char* lacking : {"_", "&", "@", "#", "*", "\u201C", "o\u0328"}) {
        const auto outline = outlineOf(lacking, attributes);
        EXPECT_FALSE(outline.isEmpty()) << lacking;
        EXPECT_EQ(outline.elements().size(), outlineOf(lacking, other).elements().size());
        EXPECT_NEAR(widthOf(lacking, attributes), widthOf(lacking, other), 1e-6) << lacking;
    }
    EXPECT_NE(widthOf("A", attributes), widthOf("A", other)) << "the font has an A of its own";
    EXPECT_TRUE(outlineOf(" ", attributes).isEmpty()) << "a blank is no lack";
    EXPECT_EQ(layoutLine("\u4E2D", attributes).size(), 1U) << "the character keeps its place";
    EXPECT_EQ(layoutLine("abc", TextAttributes{}).size(), 3U);
}

TEST(LineLayout, ShowsThatALetterIsMissingInEveryFont) {
    for (const auto& file : allFontFiles()) {
        const TextAttributes attributes{.font = fontOf(file)};
        EXPECT_FALSE(outlineOf("\u4E2D", attributes).isEmpty()) << file;
        EXPECT_TRUE(outlineOf(" ", attributes).isEmpty()) << file << ": a blank is not missing";
    }
}

TEST(LineLayout, DigitsLineUpWhereOldStyleOnesWereNotAskedFor) {
    const TextAttributes lining = attributesOf("Baskervville-SemiBold");
    EXPECT_GT(boundsOf("3457", lining).min.y, -4);
    EXPECT_LT(boundsOf("g", lining).min.y, -10);
}

TEST(LineLayout, MeasuresEveryBuiltInFontWithAnUnderscore) {
    const FontPtr fallback = fontOf(fontFile("NunitoSans-Medium"));
    const std::string longText(500, 'W');
    for (const auto& file : allFontFiles()) {
        TextAttributes attributes{.font = fontOf(file), .fallbacks = {fallback}};
        const auto placed = layoutLine(longText + "_", attributes);
        ASSERT_EQ(placed.size(), 501U) << file;
        EXPECT_NEAR(placed.back().x, 500 * placed.front().width, 1e-3 * placed.back().x) << file;
        EXPECT_GT(placed.front().ascent, 0) << file;
        EXPECT_GE(placed.front().descent, 0) << file;
    }
}

} // namespace

} // namespace zelvo::text
