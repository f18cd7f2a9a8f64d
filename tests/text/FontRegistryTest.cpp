// SPDX-License-Identifier: MIT
#include "platform/text/FontRegistry.h"

#include "platform/text/FontFace.h"
#include "platform/text/LineLayout.h"
#include "support/TemporaryFolder.h"
#include "text/FontForms.h"
#include "text/TestFonts.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace zelvo::text {

namespace {

using foundation::Cause;

TEST(FontRegistry, FindsByPostScriptNameThenFullNameThenAliasThenFamily) {
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

TEST(FontRegistry, AddedFontsTakeNoNameAwayAndAnswerForTheirFamilyLast) {
    FontRegistry registry;
    ASSERT_TRUE(registry.registerFile(fontFile("Abel-Regular"), {"Geo-Regular", "Quicksand"}));
    registry.setLookup([&registry](std::string_view name) {
        if (name == "Orbitron Regular") {
            ASSERT_TRUE(registry.addFace(fontFile("Orbitron-Regular"), 0, std::string(name)));
        }
    });
    for (const char* added : {"Geo-Regular", "Quicksand-Bold", "Orbitron-Bold"})
        ASSERT_TRUE(registry.addFile(fontFile(added)));
    const auto found = [&registry](std::string_view name) {
        const FontPtr font = registry.find(name);
        return font ? font->postScriptName() : "none";
    };
    EXPECT_EQ(found("Geo-Regular"), "Abel-Regular");
    EXPECT_EQ(found("Quicksand"), "Abel-Regular");
    EXPECT_EQ(found("Orbitron"), "Orbitron-Bold") << "there is no other of this family yet";
    EXPECT_EQ(found("Orbitron Regular"), "Orbitron-Regular");
    EXPECT_EQ(found("Geo"), "Geo-Regular") << "its full name";
    EXPECT_EQ(found("Nobody's"), "none");
}

TEST(FontRegistry, ReadsCollectionsAndFontsForTheWeb) {
    const std::string geo = test::bytesOf(fontFile("Geo-Regular"));
    const std::string abel = test::bytesOf(fontFile("Abel-Regular"));
    const test::TemporaryFolder folder;
    const auto packed = folder.path() / "Geo.ttf";
    std::ofstream(packed, std::ios::binary) << geo;
    ASSERT_EQ(std::system(("woff2_compress " + packed.string() + " >/dev/null 2>&1").c_str()), 0);

    const auto both = readFaces(test::collectionOf({geo, test::withoutName(abel), abel}));
    ASSERT_TRUE(both) << both.error().message;
    ASSERT_EQ(both->size(), 2U) << "a face without a name is left out";
    EXPECT_EQ((*both)[1]->postScriptName(), "Abel-Regular");
    EXPECT_EQ((*both)[1]->faceIndex(), 2U);
    const auto outline = [](const std::shared_ptr<const FontFace>& face) {
        return outlineOf("g", {.font = face}).elements().size();
    };
    for (const std::string& web :
         {test::webFontOf(geo), test::bytesOf(folder.path() / "Geo.woff2")}) {
        const auto faces = readFaces(web);
        ASSERT_TRUE(faces) << faces.error().message;
        EXPECT_EQ(faces->front()->fullName(), "Geo");
        EXPECT_EQ(outline(faces->front()), outline(both->front()));
        EXPECT_FALSE(readFaces(web.substr(0, web.size() / 2)));
    }
    std::string hugeClaim = test::webFontOf(geo);
    hugeClaim.replace(16, 4, test::bigEndian(kMaxFontFile + 1));
    EXPECT_EQ(readFaces(hugeClaim).error().cause, Cause::tooLarge);
    EXPECT_THAT(
        readFaces(test::withoutName(geo)).error().message, testing::HasSubstr("without a name"));
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
