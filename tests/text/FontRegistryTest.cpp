// SPDX-License-Identifier: MIT
#include "platform/text/FontRegistry.h"

#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"
#include "text/TestFonts.h"

#include <cmath>
#include <fstream>
#include <iterator>

namespace zelvo::text {

namespace {

using foundation::Cause;

TEST(FontRegistry, FindsByPostScriptNameThenFullNameThenFamilyThenAlias) {
    FontRegistry registry;
    EXPECT_EQ(registry.find("Geo-Regular"), nullptr);
    EXPECT_EQ(registry.fallback(), nullptr);
    ASSERT_TRUE(registry.registerFile(fontFile("Geo-Oblique")));
    ASSERT_TRUE(registry.registerFile(fontFile("Geo-Regular"), {"Geo-Oblique", "Squares"}));
    ASSERT_TRUE(registry.registerFile(fontFile("InterTight-Light"), {"HelveticaNeue-Light"}));
    ASSERT_TRUE(registry.registerFile(fontFile("TypoPRO-SinkinSans-700Bold")));

    struct Row {
        const char *asked, *found;
    };

    // clang-format off
    const Row rows[] = {
        {"Geo-Regular",         "Geo-Regular"     }, // PostScript name
        {"Geo-Oblique",         "Geo-Oblique"     }, // before another's alias
        {"Geo Oblique",         "Geo-Oblique"     }, // full name
        {"Geo",                 "Geo-Regular"     }, // a full name comes before a family
        {"Inter Tight",         "InterTight-Light"}, // family
        {"HelveticaNeue-Light", "InterTight-Light"}, // alias
        {"Squares",             "Geo-Regular"     },
    };
    // clang-format on
    for (const Row& row : rows) {
        const FontPtr font = registry.find(row.asked);
        ASSERT_NE(font, nullptr) << row.asked;
        EXPECT_EQ(font->postScriptName(), row.found) << row.asked;
    }
    for (const char* unknown : {"", "geo-regular", "Geo-Bold", "Inter Tight Bold"}) {
        EXPECT_EQ(registry.find(unknown), nullptr) << unknown;
    }
    registry.unregisterFile(fontFile("Geo-Regular"));
    EXPECT_EQ(registry.find("Squares"), nullptr);
    EXPECT_NE(registry.find("Geo-Oblique"), nullptr);
}

TEST(FontRegistry, SaysWhatIsWrongWithAFile) {
    const std::filesystem::path folder = testing::TempDir();
    std::ofstream(folder / "empty.ttf").flush();
    std::ofstream(folder / "text.ttf") << "this is no font, whatever its name says";
    std::ofstream(folder / "huge.ttf").flush();
    std::filesystem::resize_file(folder / "huge.ttf", kMaxFontFile + 1);

    struct Row {
        std::filesystem::path file;
        Cause cause;
    };

    // clang-format off
    const Row rows[] = {
        {folder / "none.ttf",  Cause::notFound  },
        {folder,               Cause::unreadable},
        {folder / "empty.ttf", Cause::malformed },
        {folder / "text.ttf",  Cause::malformed },
        {folder / "huge.ttf",  Cause::tooLarge  },
    };
    // clang-format on
    FontRegistry registry;
    for (const Row& row : rows) {
        const auto registered = registry.registerFile(row.file);
        ASSERT_FALSE(registered.has_value()) << row.file;
        EXPECT_EQ(registered.error().cause, row.cause) << registered.error().message;
        EXPECT_FALSE(fullNameOfFile(row.file).has_value()) << row.file;
    }
    std::filesystem::remove(folder / "huge.ttf");
    EXPECT_EQ(fullNameOfFile(fontFile("Abel-Regular")).value(), "Abel Regular");
}

// Whatever survives reading must also survive use.
void useFaces(std::string bytes) {
    const auto faces = readFaces(std::move(bytes));
    if (!faces)
        return;
    for (const auto& face : *faces) {
        TextAttributes attributes;
        attributes.font = face;
        const geometry::BezierPath outline = outlineOf("Ag&", attributes);
        for (const auto& element : outline.elements()) {
            EXPECT_FALSE(std::isnan(element.point.x));
        }
        EXPECT_EQ(layoutLine("AV_", attributes).size(), 3U);
    }
}

TEST(FontRegistry, DamagedFontsAreReadOrRefusedButNeverCrash) {
    std::ifstream in(fontFile("SquadaOne-Regular"), std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(in), {}};
    ASSERT_GT(whole.size(), 10000U);
    for (std::size_t cut = 0; cut < whole.size(); cut += 61) {
        useFaces(whole.substr(0, cut));
    }
    for (std::size_t at = 0; at < whole.size(); at += at < 512 ? 1 : 37) {
        for (const char value : {'\x00', '\x7F', '\xFF'}) {
            std::string damaged = whole;
            damaged[at] = value;
            useFaces(std::move(damaged));
        }
    }
}

} // namespace

} // namespace zelvo::text
