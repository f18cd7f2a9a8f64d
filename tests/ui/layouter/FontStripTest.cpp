// SPDX-License-Identifier: MIT
#include "ui/layouter/FontStrip.h"

#include "platform/foundation/Folders.h"
#include "ui/controls/FontPictures.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace zelvo::ui {
namespace {

using content::FontSource;
using testing::ElementsAre;

FontFile builtIn(const char* file) {
    return {QString::fromStdString(foundation::mainBundle().path(file).string()), 0};
}

class FontStripTest : public testing::Test {
protected:
    /// The names that the list shows.
    [[nodiscard]] std::vector<std::string> listed() const {
        std::vector<std::string> names;
        for (int row = 0; row < strip.list.count(); ++row) {
            const auto name = strip.list.data(strip.list.index(row), FontList::nameRole);
            names.push_back(name.toString().toStdString());
        }
        return names;
    }

    foundation::VirtualRunLoop loop;
    std::shared_ptr<FontPictures> pictures = std::make_shared<FontPictures>(loop);
    std::vector<std::string> chosen;
    FontStrip strip{
        {{.name = "Abel", .file = "a.ttf"},
         {.name = "Mine Sans", .file = "b.ttf", .source = FontSource::imported},
         {.name = "DejaVu Sans", .file = "c.ttf", .source = FontSource::system},
         {.name = "DejaVu Sans Mono", .file = "d.ttf", .source = FontSource::system}},
        "DejaVu Sans",
        pictures,
        {.choose = [this](const std::string& name) { chosen.push_back(name); }, .import = {}}};
};

TEST_F(FontStripTest, TheListOffersAllFontsTheStripOnlyOwnOnesAndTheCurrentOne) {
    ASSERT_EQ(strip.buttons().size(), 3u);
    EXPECT_EQ(strip.buttons()[2]->title(), "DejaVu Sans");
    EXPECT_EQ(strip.currentIndex(), 2);
    EXPECT_EQ(strip.list.currentRow(), 2);
    strip.list.moveBy(1);
    ASSERT_EQ(strip.buttons().size(), 3u) << "the font of the system that was chosen last";
    EXPECT_EQ(strip.currentIndex(), 2);
    EXPECT_EQ(strip.buttons()[2]->title(), "DejaVu Sans Mono");
    strip.pressKey(Qt::Key_Home);
    EXPECT_EQ(strip.list.currentRow(), 0);
    EXPECT_THAT(chosen, ElementsAre("DejaVu Sans Mono", "Abel"));
}

TEST_F(FontStripTest, ASearchFindsNamesWithAllItsWords) {
    strip.openList(true);
    strip.list.setSearch("SANS");
    EXPECT_THAT(listed(), ElementsAre("Mine Sans", "DejaVu Sans", "DejaVu Sans Mono"));
    EXPECT_EQ(strip.list.currentRow(), 1);
    strip.list.setSearch(" mono sa");
    EXPECT_THAT(listed(), ElementsAre("DejaVu Sans Mono"));
    EXPECT_EQ(strip.list.currentRow(), -1);
    EXPECT_THAT(chosen, ElementsAre()) << "a search alone chooses nothing";
    strip.list.moveBy(1);
    EXPECT_THAT(chosen, ElementsAre("DejaVu Sans Mono")) << "the first one found";
    strip.list.setSearch("nothing");
    strip.list.moveBy(1);
    EXPECT_EQ(chosen.size(), 1u);
    strip.openList(false);
    EXPECT_EQ(listed().size(), 4u) << "the list opens without the old search";
}

TEST_F(FontStripTest, FontsThatComeLaterLeaveTheListOpenWithItsSearchAndItsChoice) {
    strip.openList(true);
    strip.list.setSearch("new");
    strip.setCurrent("New Serif");
    EXPECT_EQ(strip.currentIndex(), -1);
    auto fonts = strip.list.fonts();
    fonts.push_back({.name = "New Serif", .file = "e.ttf", .source = FontSource::system});
    strip.setFonts(fonts);
    EXPECT_TRUE(strip.isListOpen());
    EXPECT_THAT(listed(), ElementsAre("New Serif"));
    EXPECT_EQ(strip.list.currentRow(), 0);
    ASSERT_EQ(strip.currentIndex(), 2);
    EXPECT_EQ(strip.buttons()[2]->title(), "New Serif");
    EXPECT_THAT(chosen, ElementsAre());
}

TEST(FontPictures, AreDrawnLaterTheNewestFirst) {
    foundation::VirtualRunLoop loop;
    FontPictures pictures(loop);
    FontSample first{builtIn("fonts/Abel-Regular.ttf"), "Abel", 20, 150, 30};
    FontSample second = first;
    second.font = builtIn("fonts/Monoton-Regular.ttf");
    std::vector<bool> isSecondThere;
    QObject::connect(&pictures, &FontPictures::drawn, [&] {
        isSecondThere.push_back(pictures.find(second) != nullptr);
    });
    EXPECT_EQ(pictures.find(first), nullptr);
    EXPECT_EQ(pictures.find(second), nullptr);
    loop.drain();
    EXPECT_THAT(isSecondThere, ElementsAre(true, true));
    ASSERT_NE(pictures.find(first), nullptr);
    EXPECT_NE(*pictures.find(first), *pictures.find(second)) << "each in its own face";
}

TEST(FontPictures, FitIntoTheirSpaceAndAreEmptyWhereALetterIsMissing) {
    FontSample sample{builtIn("fonts/Monoton-Regular.ttf"), "Monoton", 20, 400, 40};
    const QImage whole = drawSample(sample);
    ASSERT_GT(whole.width(), 80);
    sample.width = 80;
    const QImage narrow = drawSample(sample);
    EXPECT_EQ(narrow.width(), 80);
    EXPECT_NEAR(
        double(narrow.height()) / narrow.width(), double(whole.height()) / whole.width(), 0.03);
    sample.text = QString::fromUtf8("Monoton 漢");
    EXPECT_TRUE(drawSample(sample).isNull());
    sample.font.path = "/nowhere.ttf";
    EXPECT_TRUE(drawSample(sample).isNull());
}

} // namespace
} // namespace zelvo::ui
