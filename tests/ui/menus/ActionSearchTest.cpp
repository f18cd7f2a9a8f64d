// SPDX-License-Identifier: MIT
#include "ui/menus/ActionSearch.h"

#include "ui/UiFixture.h"
#include "ui/menus/ActionsMenu.h"

#include <gmock/gmock.h>

namespace zelvo::test {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

using Names = std::vector<std::string>;

Names found(const char* text) {
    ui::ActionSearch search;
    search.setText(QString::fromUtf8(text));
    Names names;
    for (int row = 0; row < search.count(); ++row) {
        const auto value = [&](int role) {
            return search.data(search.index(row), role).toString().toStdString();
        };
        names.push_back(
            value(ui::ActionSearch::tabRole) + " " + value(ui::ActionSearch::keyRole) + " " +
            value(ui::ActionSearch::nameRole));
    }
    return names;
}

TEST(ActionSearch, FindsNamesByTheirWordsAcrossTheTabs) {
    EXPECT_THAT(found("screw"), ElementsAre("IN2 5 Screw In", "OT2 1 Screw Out"));
    EXPECT_THAT(found("  SCREW   oUt "), ElementsAre("OT2 1 Screw Out"));
    EXPECT_THAT(found("out scr"), ElementsAre("OT2 1 Screw Out")) << "in any order, parts of words";
    EXPECT_THAT(found("scr\u00e9w in"), ElementsAre("IN2 5 Screw In")) << "accents do not matter";
    EXPECT_THAT(found("glitch"), ElementsAre("FX3 5 Wobble")) << "by what its button shows";
    EXPECT_THAT(found("fx2"), AllOf(SizeIs(6), Each(StartsWith("FX2 ")))) << "by its tab";
    EXPECT_THAT(found("-180"), SizeIs(3));
    EXPECT_THAT(found("xyzzy"), IsEmpty());
    EXPECT_THAT(found("screw xyzzy"), IsEmpty()) << "all words count";
    EXPECT_THAT(found(""), SizeIs(84));
}

TEST(ActionSearch, PutsWhatBeginsWithTheTextFirst) {
    const Names hits = found("in");
    ASSERT_THAT(hits, SizeIs(testing::Gt(20U)));
    EXPECT_THAT(hits[0], EndsWith(" Invert"));
    EXPECT_THAT(hits[1], EndsWith(" Left In")) << "a word that begins so";
    EXPECT_THAT(hits, Contains(EndsWith(" Voltage")).Times(0));
}

class SearchPressTest : public UiTest {
protected:
    SearchPressTest() {
        menu.setWidths(600, 700); // two pages
        menu.viewWillAppear();
        model.start();
        loop().runFor(3);
    }

    void press(const char* text) {
        menu.search.setText(text);
        menu.pressHit(0);
        loop().drain();
    }

    [[nodiscard]] std::size_t records() const { return controller().recordedActions().size(); }

    ui::ActionsMenu menu{services};
};

TEST_F(SearchPressTest, OpensTheTabAndRecordsAsTheButtonDoes) {
    press("wave");
    EXPECT_TRUE(menu.tabButton("MID").isMySelected()) << "on the other page";
    EXPECT_THAT(menu.stackView.arranged(), Contains(&menu.tabButton("MID")));
    ASSERT_EQ(records(), 1U);
    EXPECT_THAT(controller().recordedActions()[0]->title, StartsWith("Wave"));
    menu.releaseHit();
    loop().drain();
    EXPECT_EQ(records(), 1U);
    press("no such action");
    EXPECT_EQ(records(), 1U);
}

TEST_F(SearchPressTest, HoldsAButtonUntilTheKeyIsLetGo) {
    press("zoom");
    loop().runFor(0.5);
    EXPECT_EQ(records(), 1U);
    EXPECT_TRUE(menu.actionButtons()[0]->isPressed());
    menu.search.setText("blur"); // the field may change meanwhile
    menu.releaseHit();
    loop().drain();
    ASSERT_EQ(records(), 2U) << "the way back is recorded";
    EXPECT_EQ(
        controller().recordedActions()[0]->identifier,
        controller().recordedActions()[1]->identifier);
    press("half left");
    press("zoom"); // in the same tab
    EXPECT_EQ(records(), 5U) << "another press lets the former one go";
}

} // namespace

} // namespace zelvo::test
