// SPDX-License-Identifier: MIT
#include "content/FontManager.h"

#include "platform/text/LineLayout.h"
#include "platform/text/SystemFontIndex.h"
#include "support/TemporaryFolder.h"
#include "support/TestWorld.h"
#include "text/FontForms.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
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

class ImportedFontsTest : public testing::Test {
protected:
    [[nodiscard]] static std::filesystem::path builtIn(const std::string& file) {
        return foundation::mainBundle().path("fonts/" + file);
    }

    /// A font file from elsewhere.
    std::filesystem::path given(const std::string& name, const std::string& bytes) const {
        auto file = temporary.path() / "given" / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

    [[nodiscard]] std::vector<std::string> filesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(fonts.folder()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

    [[nodiscard]] std::vector<std::string> namesOf(FontSource source) {
        std::vector<std::string> names;
        for (const FontEntry& font : fonts.fontMenu(defaults)) {
            if (font.source == source)
                names.push_back(font.name);
        }
        return names;
    }

    const test::TemporaryFolder temporary;
    const foundation::Folders folders = foundation::Folders::below(temporary.path());
    text::FontRegistry registry;
    FontManager fonts{registry, folders};
    foundation::UserDefaults defaults;
};

TEST_F(ImportedFontsTest, AreFoundByNameAtOnceAndAfterALaunchUntilTheyAreDeleted) {
    EXPECT_EQ(registry.find("Abel Regular"), nullptr) << "and it is remembered that there is none";
    ASSERT_TRUE(fonts.install(builtIn("Abel-Regular.ttf"))->isNew);
    EXPECT_NE(registry.find("Abel Regular"), nullptr);

    text::FontRegistry nextRegistry;
    FontManager next(nextRegistry, folders);
    EXPECT_NE(nextRegistry.find("Abel Regular"), nullptr) << "nobody has listed the fonts yet";
    EXPECT_EQ(next.importedNames(), std::vector<std::string>{"Abel Regular"});

    std::vector<bool> told;
    const foundation::Lifetime listening;
    fonts.fontsDeleted.subscribe(listening, [&told](bool wasThere) { told.push_back(wasThere); });
    EXPECT_TRUE(fonts.deleteFont("Abel-Regular.ttf"));
    EXPECT_FALSE(fonts.deleteFont("Abel-Regular.ttf"));
    EXPECT_FALSE(fonts.deleteFont("../config"));
    EXPECT_EQ(told, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(registry.find("Abel Regular"), nullptr);
    EXPECT_TRUE(filesInFolder().empty());
}

TEST_F(ImportedFontsTest, TheFirstOfOneFileNameAndOfOneFontNameStays) {
    const std::string geo = test::bytesOf(builtIn("Geo-Regular.ttf"));
    ASSERT_TRUE(fonts.install(given("one.ttf", geo))->isNew);
    const auto sameFile =
        fonts.install(given("one.ttf", test::bytesOf(builtIn("Abel-Regular.ttf"))));
    ASSERT_TRUE(sameFile);
    EXPECT_FALSE(sameFile->isNew);
    EXPECT_EQ(fonts.importedNames(), std::vector<std::string>{"Geo"});
    const auto sameName = fonts.install(given("two.ttf", geo));
    ASSERT_TRUE(sameName);
    EXPECT_FALSE(sameName->isNew);
    EXPECT_EQ(sameName->nameTaken, "Geo");
    EXPECT_EQ(filesInFolder(), std::vector<std::string>{"one.ttf"});
}

TEST_F(ImportedFontsTest, RefusesWhatIsNoFontAndLeavesNothingHalfCopied) {
    const std::string geo = test::bytesOf(builtIn("Geo-Regular.ttf"));
    const auto wordFor = [this](const std::filesystem::path& file) {
        const auto installed = fonts.install(file);
        return installed ? "installed" : installed.error().message;
    };
    EXPECT_THAT(
        wordFor(given("picture.ttf", "\x89PNG")),
        testing::StartsWith("picture.ttf: is no TrueType"));
    EXPECT_THAT(
        wordFor(given("nameless.ttf", test::withoutName(geo))),
        testing::HasSubstr("without a name"));
    EXPECT_THAT(wordFor(temporary.path()), testing::HasSubstr("is no file"));
    std::filesystem::remove_all(folders.documents);
    std::ofstream(folders.documents) << "a file where a folder should be";
    EXPECT_THAT(
        wordFor(given("geo.ttf", geo)), testing::HasSubstr("ImportedFonts cannot be written"));
    std::filesystem::remove(folders.documents);

    // A limit on the size of files stops the copy as a full disk would.
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto file = given("geo.ttf", geo);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{.rlim_cur = geo.size() / 2, .rlim_max = before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string word = wordFor(file);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_THAT(word, testing::HasSubstr("larger than a file may be"));
    EXPECT_TRUE(filesInFolder().empty());
    EXPECT_EQ(registry.find("Geo"), nullptr);
}

TEST_F(ImportedFontsTest, StandInTheMenuAmongTheBuiltInOnesAndBeforeThoseOfTheSystem) {
    const std::string both = test::collectionOf(
        {test::bytesOf(builtIn("Geo-Oblique.ttf")), test::bytesOf(builtIn("Nunito-Regular.ttf"))});
    ASSERT_TRUE(fonts.install(given("both.ttc", both)));
    defaults.set("CorruptFontNames", std::vector<std::string>{"Bangers-Regular"});
    ASSERT_FALSE(text::awaitedSystemFonts().empty());
    const auto menu = fonts.fontMenu(defaults);
    const auto at = [&menu](std::string_view name) {
        return std::ranges::find(menu, name, &FontEntry::name);
    };
    const auto system = std::ranges::find(menu, FontSource::system, &FontEntry::source);
    EXPECT_EQ(system - menu.begin(), 54 + 2);
    EXPECT_TRUE(std::none_of(system, menu.end(), [](const FontEntry& font) {
        return font.source != FontSource::system;
    }));
    EXPECT_EQ(at("Geo Oblique") + 1, at("Geo-Oblique")) << "sorted together, blanks first";
    EXPECT_LT(at("GRUPO3"), at("KronaOne-Regular")) << "whatever the case";
    EXPECT_LT(at("Georgia-Bold"), at("GRUPO3"));
    const auto second = at("Nunito Regular");
    ASSERT_LT(second, system);
    EXPECT_EQ(second->faceIndex, 1U);
    EXPECT_EQ(second->source, FontSource::imported);
    EXPECT_TRUE(at("Bangers-Regular")->isCorrupt);
    EXPECT_EQ(std::ranges::count(menu, true, &FontEntry::isCorrupt), 1);

    // DejaVu comes with the program's packages.
    const auto dejaVu = at("DejaVu Sans Bold");
    ASSERT_NE(dejaVu, menu.end());
    EXPECT_TRUE(registry.facesOf(dejaVu->file).empty()) << "not before it is used";
    ASSERT_NE(registry.find(dejaVu->name), nullptr);
    EXPECT_EQ(registry.find(dejaVu->name)->fullName(), dejaVu->name);
    EXPECT_EQ(registry.find("DejaVu Sans")->fullName(), "DejaVu Sans") << "not Bold of that family";
    ASSERT_TRUE(fonts.install(dejaVu->file)->isNew) << "a font of the system takes no name";
    const auto imported = registry.facesOf(fonts.folder() / dejaVu->file.filename());
    EXPECT_EQ(std::vector{registry.find(dejaVu->name)}, imported);
}

} // namespace
} // namespace zelvo::content
