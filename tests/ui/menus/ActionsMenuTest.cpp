// SPDX-License-Identifier: MIT
#include "ui/menus/ActionsMenu.h"

#include "platform/foundation/UserDefaults.h"
#include "ui/UiFixture.h"
#include "ui/menus/VideoAlertViewController.h"

#include <gmock/gmock.h>

namespace zelvo::test {

namespace {

using testing::ElementsAre;
using testing::SizeIs;

using Titles = std::vector<std::string>;

[[nodiscard]] Titles everyTab() {
    Titles titles;
    for (const catalogue::Tab& tab : catalogue::tabs())
        titles.emplace_back(tab.shortTitle);
    return titles;
}

/// The tabs of a page, by their places.
[[nodiscard]] Titles page(int number) {
    Titles titles;
    for (int place = 1; place <= static_cast<int>(catalogue::tabs().size()); ++place) {
        for (const catalogue::Tab& tab : catalogue::tabs()) {
            if (tab.onPage.page == number && tab.onPage.place == place)
                titles.emplace_back(tab.shortTitle);
        }
    }
    return titles;
}

/// The row of these tabs, with the lit one in brackets.
[[nodiscard]] std::string shown(const Titles& tabs, const std::string& lit) {
    std::string text;
    for (const std::string& tab : tabs)
        text += (text.empty() ? "" : " ") + (tab == lit ? "[" + tab + "]" : tab);
    return text;
}

class ActionsMenuTest : public UiTest {
protected:
    /// The tabs of the row, arrows as "<" and ">", the lit one in brackets.
    [[nodiscard]] std::string row() const {
        std::string text;
        for (const ui::MyButton* const button : menu.stackView.arranged()) {
            std::string face = button->title().toStdString();
            if (button == menu.arrowLeft.get())
                face = "<";
            if (button == menu.arrowRight.get())
                face = ">";
            if (!button->isEnabled())
                face = "-";
            text += (text.empty() ? "" : " ") + (button->isMySelected() ? "[" + face + "]" : face);
        }
        return text;
    }

    /// The name of the first action button.
    [[nodiscard]] std::string firstAction() const {
        return menu.actionButtons().empty() ? ""
                                            : menu.actionButtons().front()->name().toStdString();
    }

    void appear(qreal width) {
        menu.setWidths(width, 700);
        menu.viewWillAppear();
    }

    ui::ActionsMenu menu{services};
};

constexpr qreal kWide = 1280;
constexpr qreal kNarrow = 600;

TEST_F(ActionsMenuTest, AWideWindowShowsEveryTabAndOpensTheSecond) {
    appear(kWide);
    EXPECT_EQ(row(), shown(everyTab(), "IN1"));
    EXPECT_EQ(firstAction(), "Left In");
    EXPECT_THAT(menu.actionButtons(), SizeIs(6));
}

TEST_F(ActionsMenuTest, ANarrowWindowShowsPagesOfWhichTheFirstLightsAnotherTabThanItOpens) {
    appear(kNarrow);
    EXPECT_EQ(row(), shown(page(1), "OT1") + " >");
    EXPECT_EQ(firstAction(), "Pass Right");
    menu.arrowRight->click();
    EXPECT_EQ(row(), "< " + shown(page(2), "TXT"));
    menu.tabButton("CAM").click();
    menu.arrowLeft->click();
    EXPECT_EQ(row(), shown(page(1), "OT1") + " >");
    EXPECT_EQ(firstAction(), "Pass Right");
}

TEST_F(ActionsMenuTest, ResizingKeepsTheTabThatIsOpen) {
    appear(kWide);
    menu.tabButton("FX1").click();
    const std::string open = firstAction();
    menu.setWidths(kNarrow, 700);
    EXPECT_EQ(row(), "< " + shown(page(2), "FX1"));
    EXPECT_EQ(firstAction(), open);
    menu.setWidths(kWide, 700);
    EXPECT_EQ(row(), shown(everyTab(), "FX1"));
}

TEST_F(ActionsMenuTest, KeysStepThroughTheTabsAcrossPagesAndAroundTheEnds) {
    appear(kNarrow);
    menu.previousTab();
    EXPECT_EQ(row(), "< " + shown(page(2), page(2).back()));
    menu.nextTab();
    EXPECT_EQ(row(), shown(page(1), "OT1") + " >");
    EXPECT_EQ(firstAction(), "Left Out") << "a key opens the tab that it lights";
    for (std::size_t i = 0; i < page(1).size(); ++i)
        menu.nextTab();
    EXPECT_EQ(row(), "< " + shown(page(2), "TXT"));
    menu.setWidths(kWide, 700);
    menu.tabButton(catalogue::tabs().back().field).click();
    menu.nextTab();
    EXPECT_EQ(row(), shown(everyTab(), "FLY"));
}

TEST_F(ActionsMenuTest, AKeyRecordsItsButtonsAction) {
    appear(kWide);
    model.start();
    loop().runFor(3);
    menu.pressButton(0);
    menu.releaseButton(0);
    menu.pressButton(6); // there is no seventh
    menu.pressButton(-1);
    loop().drain();
    ASSERT_THAT(controller().recordedActions(), SizeIs(1));
    EXPECT_THAT(controller().recordedActions()[0]->title, testing::StartsWith("Left In ("));
}

TEST_F(ActionsMenuTest, ChangingTheTabEndsAHeldButton) {
    appear(kWide);
    menu.tabButton("FX1").click();
    model.start();
    loop().runFor(3);
    menu.pressButton(0);
    loop().runFor(0.5);
    const auto during = controller().recordedActions().size();
    menu.nextTab();
    loop().drain();
    EXPECT_GT(controller().recordedActions().size(), during) << "the end was not recorded";
}

TEST_F(ActionsMenuTest, TheSpeedMenuIsOffAtFirstAndItsStateIsKept) {
    std::vector<bool> told;
    menu.speedClosure = [&](bool isOn) { told.push_back(isOn); };
    appear(kWide);
    EXPECT_EQ(world.defaults.boolean("SpeedMenuVisibleKey"), false);
    menu.speedButton.click();
    EXPECT_EQ(menu.speedButton.image(), "Controls_on");
    EXPECT_EQ(world.defaults.boolean("SpeedMenuVisibleKey"), true);
    menu.viewWillAppear();
    menu.speedButton.click();
    EXPECT_THAT(told, ElementsAre(false, true, true, false));
}

TEST(VideoAlert, StandsInTheMiddleWithItsButtonBelowTheMovie) {
    ui::VideoAlertViewController alert("/nowhere/Hint.mp4", {800, 450});
    EXPECT_EQ(alert.frameIn(1280, 720), QRectF(240, 113, 800, 494));
    EXPECT_TRUE(alert.movie().isEmpty());
    alert.viewDidAppear();
    EXPECT_TRUE(alert.isPlaying());
    alert.dismissAction();
    EXPECT_FALSE(alert.isPlaying());
}

} // namespace

} // namespace zelvo::test
