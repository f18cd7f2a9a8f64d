// SPDX-License-Identifier: MIT
#include "platform/text/FontRegistry.h"

#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"
#include "support/TemporaryFolder.h"
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

    using Row = std::pair<const char*, const char*>;

    // clang-format off
    const Row rows[] = {
        {"Geo-Regular",         "Geo-Regular"     }, // PostScript name
        {"Geo-Oblique",         "Geo-Oblique"     }, // its own name comes before another's alias
        {"Geo Oblique",         "Geo-Oblique"     }, // full name
        {"Geo",                 "Geo-Regular"     }, // a full name comes before a family
        {"Inter Tight",         "InterTight-Light"}, // family
        {"HelveticaNeue-Light", "InterTight-Light"}, // alias
        {"Squares",             "Geo-Regular"     },
    };
    // clang-format on
    for (const auto& [asked, found] : rows) {
        const FontPtr font = registry.find(asked);
        ASSERT_NE(font, nullptr) << asked;
        EXPECT_EQ(font->postScriptName(), found) << asked;
    }
    for (const char* unknown : {"", "geo-regular", "Geo-Bold", "Inter Tight Bold"}) {
        EXPECT_EQ(registry.find(unknown), nullptr) << unknown;
    }
    ASSERT_TRUE(registry.registerFile(fontFile("InterTight-Light"), {"Another"}));
    EXPECT_EQ(registry.find("HelveticaNeue-Light"), nullptr) << "the file is registered anew";
    registry.unregisterFile(fontFile("Geo-Regular"));
    EXPECT_EQ(registry.find("Squares"), nullptr);
    EXPECT_NE(registry.find("Geo-Oblique"), nullptr);
}

TEST(FontRegistry, SaysWhatIsWrongWithAFile) {
    const test::TemporaryFolder temporary;
    const std::filesystem::path& folder = temporary.path();
    std::ofstream(folder / "empty.ttf").flush();
    std::ofstream(folder / "text.ttf") << "this is no font, whatever its name says";
    std::ofstream(folder / "huge.ttf").flush();
    std::filesystem::resize_file(folder / "huge.ttf", kMaxFontFile + 1);

    using Row = std::pair<std::filesystem::path, Cause>;

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
    for (const auto& [file, cause] : rows) {
        const auto registered = registry.registerFile(file);
        ASSERT_FALSE(registered.has_value()) << file;
        EXPECT_EQ(registered.error().cause, cause) << registered.error().message;
        EXPECT_FALSE(fullNameOfFile(file).has_value()) << file;
    }
    EXPECT_EQ(fullNameOfFile(fontFile("Abel-Regular")).value(), "Abel Regular");
}

// A face that could be read must also be safe to use.
void useFaces(std::string bytes) {
    const auto faces = readFaces(std::move(bytes));
    if (!faces)
        return;
    for (const auto& face : *faces) {
        const TextAttributes attributes{.font = face};
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
