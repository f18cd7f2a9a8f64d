// SPDX-License-Identifier: MIT
// The views on their controllers, with events as a window gets them.

#include "ui/qml/Views.h"

#include "support/ViewSearch.h"
#include "ui/UiFixture.h"
#include "ui/controls/MySlider.h"
#include "ui/controls/ValueLabel.h"
#include "ui/layouter/FontStrip.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/layouter/Strips.h"
#include "ui/main/MainViewController.h"
#include "ui/menus/ActionsMenu.h"
#include "ui/menus/ControlMenu.h"
#include "ui/menus/SpeedViewController.h"
#include "ui/menus/TimePickerView.h"
#include "ui/menus/VideoAlertViewController.h"
#include "ui/screens/HistoryController.h"
#include "ui/screens/TemplatesController.h"
#include "ui/screens/Visualizer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <algorithm>
#include <set>

namespace zelvo::test {

namespace {

class MenuViewsTest : public UiTest {
protected:
    MenuViewsTest() {
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(960, 540);
    }

    void show(const QString& file, const QString& property, QObject* controller) {
        view.setInitialProperties({{property, QVariant::fromValue(controller)}});
        view.setSource(ui::viewUrl(file));
        ASSERT_EQ(view.status(), QQuickView::Ready);
        view.show();
        layOut();
    }

    /// Rows get their positions when a frame is drawn.
    void layOut() {
        QCoreApplication::processEvents();
        static_cast<void>(view.grabWindow());
    }

    /// The controller that the style panel's strip shows.
    [[nodiscard]] const QObject* stripOnShow() const {
        for (const QQuickItem* const item : view.rootObject()->findChildren<QQuickItem*>()) {
            const auto* const loaded = item->property("item").value<QQuickItem*>();
            if (item->objectName() == "strip" && loaded != nullptr)
                return loaded->property("controller").value<QObject*>();
        }
        return nullptr;
    }

    [[nodiscard]] static QPoint middleOf(qsizetype place, qsizetype count, qreal width) {
        const auto share = width / static_cast<qreal>(count);
        return QPointF((static_cast<qreal>(place) + 0.5) * share, 18).toPoint();
    }

    ui::ActionsMenu menu{services}; // declared before the view, so that they outlive it
    ui::ControlMenu control{services};
    QQuickView view;
};

TEST_F(MenuViewsTest, AMousePressFiresBeforeItIsLetGoAndLightsUpSoftly) {
    show("ActionsMenu", "controller", &menu);
    model.start();
    loop().runFor(3);
    QTest::mousePress(&view, Qt::LeftButton, {}, middleOf(2, 6, view.width()));
    const QQuickItem* const light =
        viewOf(view.rootObject(), menu.actionButtons()[2].get(), "controller")->childItems().at(1);
    EXPECT_LT(light->opacity(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return light->opacity() == 1; }, 2000));
    loop().drain();
    EXPECT_EQ(controller().recordedActions().size(), 1u);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, middleOf(2, 6, view.width()));
    loop().drain();
    EXPECT_EQ(controller().recordedActions().size(), 1u);
}

TEST_F(MenuViewsTest, TwoFingersHoldTwoButtonsAndOneWanders) {
    show("ActionsMenu", "controller", &menu);
    menu.tabButton("FX1").click();
    layOut();
    const auto device = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
    const QPoint first = middleOf(0, 6, view.width());
    const QPoint second = middleOf(1, 6, view.width());
    const auto& buttons = menu.actionButtons();
    auto touches = QTest::touchEvent(&view, device.get(), false);
    touches.press(1, first).commit();
    touches.stationary(1).press(2, second).commit();
    touches.stationary(2).move(1, first + QPoint(0, 300)).commit();
    EXPECT_TRUE(buttons[0]->isPressed());
    EXPECT_TRUE(buttons[1]->isPressed());
    touches.stationary(2).release(1, first + QPoint(0, 300)).commit();
    EXPECT_FALSE(buttons[0]->isPressed());
    EXPECT_TRUE(buttons[1]->isPressed());
    touches.release(2, second).commit();
    EXPECT_FALSE(buttons[1]->isPressed());
}

TEST_F(MenuViewsTest, AFocusedButtonIsHeldByReturnWithoutRepeating) {
    show("ActionsMenu", "controller", &menu);
    menu.tabButton("FX1").click();
    layOut();
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyPress(&view, Qt::Key_Return);
    EXPECT_TRUE(menu.actionButtons()[0]->isPressed());
    QTest::simulateEvent(&view, false, Qt::Key_Return, {}, "\r", true);
    EXPECT_TRUE(menu.actionButtons()[0]->isPressed()) << "auto-repeat does not release it";
    QTest::keyRelease(&view, Qt::Key_Return);
    EXPECT_FALSE(menu.actionButtons()[0]->isPressed());
}

TEST_F(MenuViewsTest, TipsComeWithThePointerOnlyAndHideNothingThatIsToBePressed) {
    ui::MainViewController main(services);
    main.showAnim();
    show("MainBars", "main", &main);
    const auto placeOf = [this](const QObject* button) {
        const QQuickItem* const shown = viewOf(view.rootObject(), button, "controller");
        return shown->mapRectToScene(shown->boundingRect());
    };
    auto& panel = *qobject_cast<ui::ActionsMenu*>(main.panel());
    QList<const QObject*> buttons{&main.shareButton, &panel.speedButton};
    for (const QObject* const tab : panel.stackView.arranged())
        buttons.append(tab);
    for (const QObject* const action : panel.actionObjects())
        buttons.append(action);
    for (const QObject* const pointedAt :
         {buttons.at(0), buttons.at(1), buttons.at(3), buttons.last()}) {
        const QQuickItem* const shown = viewOf(view.rootObject(), pointedAt, "controller");
        const QObject* tip = nullptr;
        for (const QObject* const part : shown->children())
            tip = part->inherits("QQuickToolTip") ? part : tip;
        ASSERT_NE(tip, nullptr);
        for (const int step : {0, 1})
            QTest::mouseMove(&view, placeOf(pointedAt).center().toPoint() + QPoint(step, 0));
        ASSERT_TRUE(QTest::qWaitFor([&] { return tip->property("visible").toBool(); }, 5000));
        EXPECT_EQ(tip->property("text"), pointedAt->property("name"));
        const QQuickItem* const told =
            tip->property("contentItem").value<QQuickItem*>()->parentItem();
        for (const QObject* const button : buttons)
            EXPECT_FALSE(placeOf(button).intersects(told->mapRectToScene(told->boundingRect())))
                << tip->property("text").toString().toStdString();
        QTest::keyClick(&view, Qt::Key_Shift);
        EXPECT_FALSE(tip->property("visible").toBool()) << "a key hides the tip";
    }
    view.setSource({});
}

TEST_F(MenuViewsTest, AButtonShowsWhatItDoesWhileItIsLookedAt) {
    show("ActionsMenu", "controller", &menu);
    view.rootObject()->setY(400);
    menu.tabButton("FX1").click();
    layOut();
    const auto tipOf = [this](int place) -> const QObject* {
        const auto* const button =
            viewOf(view.rootObject(), menu.actionButtons()[place].get(), "controller");
        for (const QObject* const part : button->children()) {
            if (part->inherits("QQuickToolTip"))
                return part;
        }
        return nullptr;
    };
    const auto isShown = [&](int place) {
        return QTest::qWaitFor([&] { return tipOf(place)->property("visible").toBool(); }, 5000);
    };
    const auto isGone = [&](int place) {
        return QTest::qWaitFor([&] { return !tipOf(place)->property("visible").toBool(); }, 5000);
    };
    const auto frames = [&](int place, int count) {
        const auto* const loop = tipOf(place)
                                     ->property("contentItem")
                                     .value<QQuickItem*>()
                                     ->findChild<QQuickItem*>("loop");
        std::set<int> seen;
        return QTest::qWaitFor(
            [&] {
                seen.insert(loop->property("shown").toInt());
                return static_cast<int>(seen.size()) >= count;
            },
            5000);
    };

    QTest::keyClick(&view, Qt::Key_Tab);
    EXPECT_TRUE(isShown(0)) << "it has the focus";
    EXPECT_TRUE(frames(0, 12)) << "the loop runs";
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_TRUE(isGone(0));
    for (const int step : {0, 1})
        QTest::mouseMove(&view, middleOf(3, 6, view.width()) + QPoint(step, 400));
    EXPECT_TRUE(isShown(3)) << "the pointer rests on it";
    EXPECT_TRUE(frames(3, 12));
    QTest::mousePress(&view, Qt::LeftButton, {}, middleOf(3, 6, view.width()) + QPoint(0, 400));
    EXPECT_TRUE(isGone(3)) << "now the stage itself shows it";
    QTest::mouseRelease(&view, Qt::LeftButton, {}, middleOf(3, 6, view.width()) + QPoint(0, 400));

    const auto device = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
    auto touches = QTest::touchEvent(&view, device.get(), false);
    touches.press(1, middleOf(5, 6, view.width()) + QPoint(0, 400)).commit();
    EXPECT_TRUE(isShown(5)) << "a finger holds it";
    touches.release(1, middleOf(5, 6, view.width()) + QPoint(0, 400)).commit();
    EXPECT_TRUE(isGone(5));
    view.setSource({});
}

TEST_F(MenuViewsTest, ActionsAreSearchedAndPressedByKeys) {
    show("ActionsMenu", "controller", &menu);
    view.rootObject()->setY(400);
    model.start();
    loop().runFor(3);
    QTest::keyClick(&view, Qt::Key_Tab);
    const QQuickItem* const before = view.activeFocusItem();
    ASSERT_NE(before, nullptr);
    menu.searchButton.click();
    layOut();
    EXPECT_NE(view.activeFocusItem(), before);
    QTest::keyClick(&view, Qt::Key_Escape);
    layOut();
    EXPECT_EQ(view.activeFocusItem(), before) << "Escape gives the focus back";
    menu.searchButton.click();
    layOut();
    for (const char letter : {'c', 'a', 'm'})
        QTest::keyClick(&view, letter);
    EXPECT_EQ(menu.search.count(), 6);
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyPress(&view, Qt::Key_Return);
    QTest::simulateEvent(&view, true, Qt::Key_Return, {}, "\r", true);
    loop().drain();
    EXPECT_TRUE(menu.tabButton("CAM").isMySelected());
    ASSERT_EQ(controller().recordedActions().size(), 1u);
    EXPECT_EQ(controller().recordedActions()[0]->title, "Zoom Cam");
    EXPECT_TRUE(menu.actionButtons()[0]->isPressed()) << "as long as the key";
    QTest::keyRelease(&view, Qt::Key_Return);
    EXPECT_FALSE(menu.actionButtons()[0]->isPressed());
    QTest::keyClick(&view, Qt::Key_W); // replaces the text
    for (const char letter : {'a', 'v', 'e'})
        QTest::keyClick(&view, letter);
    EXPECT_EQ(menu.search.text(), "wave");
    QTest::keyPress(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Escape);
    layOut();
    EXPECT_FALSE(menu.search.isOpen());
    EXPECT_FALSE(menu.actionButtons()[4]->isPressed()) << "nothing stays held behind it";
    loop().drain();
    EXPECT_EQ(controller().recordedActions().size(), 3u);
    view.setSource({});
}

TEST_F(MenuViewsTest, TheRowOfTabsFollowsTheWindowsWidth) {
    show("ActionsMenu", "controller", &menu);
    EXPECT_EQ(menu.stackView.arranged().size(), 14);
    EXPECT_TRUE(menu.tabButton("IN1").isMySelected());
    view.rootObject()->setWidth(500);
    EXPECT_EQ(menu.stackView.arranged().size(), 9);
}

TEST_F(MenuViewsTest, TheDurationDialogIsWorkedByKeysAndClicks) {
    control.setButtonsEnabled(true);
    show("AlertHost", "alerts", &alerts);
    view.rootObject()->forceActiveFocus();
    control.askForDuration();
    const auto* const picker = qobject_cast<ui::TimePickerView*>(alerts.content());
    const auto wheel = [this] { // the wheel with the focus; the focus itself is in its middle row
        QQuickItem* item = view.activeFocusItem();
        while (item != nullptr && !item->property("row").isValid())
            item = item->parentItem();
        return item;
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return wheel() != nullptr; }, 2000));
    EXPECT_EQ(picker->seconds(), 8) << "the wheels changed it when they were made";
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(picker->seconds(), 9);
    QTest::keyClick(&view, Qt::Key_3);
    QTest::keyClick(&view, Qt::Key_5);
    EXPECT_EQ(picker->seconds(), 35);
    const auto hasTurned = [&] {
        return wheel()->property("contentY") == 35 * 26 - (140 - 26) / 2;
    };
    ASSERT_TRUE(QTest::qWaitFor(hasTurned, 5000));
    QTest::mouseClick(
        &view, Qt::LeftButton, {}, wheel()->mapToScene({20, wheel()->height() / 2 + 26}).toPoint());
    EXPECT_EQ(picker->seconds(), 36) << "the row below the middle";
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_1);
    EXPECT_EQ(picker->minutes(), 1);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_FALSE(alerts.isShowing());
    loop().drain();
    EXPECT_EQ(model.duration(), 96);
}

TEST_F(MenuViewsTest, ASliderIsWorkedByMouseWheelAndKeys) {
    ui::MySlider slider("Depth", {.minimum = -100, .maximum = 100, .step = 5});
    slider.defaultValue = 20;
    show("MySlider", "controller", &slider);
    view.rootObject()->forceActiveFocus();
    const auto at = [this](double share) { return QPoint(11 + int(share * 938), 270); };
    QTest::mousePress(&view, Qt::LeftButton, {}, at(0.25));
    QTest::mouseMove(&view, at(0.75));
    EXPECT_NEAR(slider.value(), 50, 0.5);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, at(0.75));
    QTest::mouseClick(&view, Qt::LeftButton, {}, at(0.9));
    QTest::mouseDClick(&view, Qt::LeftButton, {}, at(0.9));
    EXPECT_EQ(slider.value(), 20);

    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(&view, key, with);
    };
    press(Qt::Key_Right);
    EXPECT_EQ(slider.value(), 25);
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(slider.value(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(slider.value(), 100);

    press(Qt::Key_Return); // into the number
    for (const Qt::Key key : {Qt::Key_Minus, Qt::Key_7, Qt::Key_Period, Qt::Key_5})
        press(key);
    EXPECT_EQ(slider.value(), 100);
    press(Qt::Key_Return);
    EXPECT_EQ(slider.value(), -7.5);
    press(Qt::Key_Return);
    press(Qt::Key_3);
    press(Qt::Key_Escape);
    press(Qt::Key_Right);
    EXPECT_EQ(slider.value(), -2.5) << "Escape keeps the value, and keys move the slider again";

    QWheelEvent notch(at(0.2), at(0.2), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &notch);
    EXPECT_EQ(slider.value(), 2.5);
    view.setSource({});
}

TEST_F(MenuViewsTest, AStripIsScrolledByDragAndWheelAndSteppedByKeys) {
    ui::LayouterMenu panel(services);
    panel.setCurrentNodeFromButton(3);
    show("LayouterMenu", "controller", &panel);
    const auto* const strip = qobject_cast<ui::ButtonStrip*>(panel.stripObject());
    QQuickItem* const row = viewOf(view.rootObject(), strip, "controller");
    const auto place = [row] { return row->property("contentX").toReal(); };
    const auto isCentred = [&](std::size_t entry) {
        const QQuickItem* const button = viewOf(row, strip->buttons()[entry].get(), "controller");
        const QRectF shown = button->mapRectToItem(row, button->boundingRect());
        return std::abs(shown.center().x() - row->width() / 2) < 1;
    };
    const auto onEntry = [&](std::size_t entry) {
        const QQuickItem* const button = viewOf(row, strip->buttons()[entry].get(), "controller");
        return button->mapToScene(button->boundingRect().center()).toPoint();
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return isCentred(0); }, 2000));

    QTest::mouseClick(&view, Qt::LeftButton, {}, onEntry(2));
    EXPECT_FALSE(isCentred(2)) << "a tap scrolls softly";
    EXPECT_TRUE(QTest::qWaitFor([&] { return isCentred(2); }, 2000));
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(strip->currentIndex(), 3) << "the tap has given it the focus";
    EXPECT_TRUE(QTest::qWaitFor([&] { return isCentred(3); }, 2000));

    const qreal before = place();
    QPoint finger = onEntry(4);
    QTest::mousePress(&view, Qt::LeftButton, {}, finger);
    for (int step = 0; step < 8; ++step)
        QTest::mouseMove(&view, finger -= QPoint(15, 0), 10);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, finger, 10);
    const qreal released = place();
    EXPECT_GT(released, before + 60);
    EXPECT_EQ(strip->currentIndex(), 3) << "a drag chooses nothing";
    EXPECT_TRUE(QTest::qWaitFor([&] { return place() > released + 20; }, 2000)) << "momentum";

    const auto device = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
    auto touch = QTest::touchEvent(&view, device.get(), false);
    const QPoint below = onEntry(2) + QPoint(0, 21); // fingers press beside the picture, too
    touch.press(1, below).commit();
    touch.release(1, below).commit();
    EXPECT_EQ(strip->currentIndex(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isCentred(2); }, 2000));
    const qreal touched = place();
    finger = onEntry(3);
    touch.press(1, finger).commit();
    for (int step = 0; step < 8; ++step) {
        QTest::qWait(10);
        touch.move(1, finger -= QPoint(15, 0)).commit();
    }
    touch.release(1, finger).commit();
    const qreal lifted = place();
    EXPECT_GT(lifted, touched + 60);
    EXPECT_EQ(strip->currentIndex(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place() > lifted + 20; }, 2000)) << "momentum";

    const auto turn = [&](QPoint pixels, QPoint angle) {
        QWheelEvent event(finger, finger, pixels, angle, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    };
    for (const QPoint back : {QPoint(40, 0), QPoint(0, 40)}) {
        const qreal from = place();
        turn(back, back * 3); // as a touchpad does
        EXPECT_NEAR(place(), from - 40, 0.5);
    }
    turn({}, {0, 12'000});
    EXPECT_TRUE(QTest::qWaitFor([&] { return place() == 0; }, 2000)) << "not beyond the first";
    view.setSource({});
}

TEST_F(MenuViewsTest, TheListOfFontsIsSearchedAndSteppedFromItsField) {
    ui::LayouterMenu panel(services);
    panel.setCurrentNodeFromButton(0);
    panel.setCurrentOption(ui::CurrentOption::font);
    show("LayouterMenu", "controller", &panel);
    view.rootObject()->setY(400);
    auto* const strip = qobject_cast<ui::FontStrip*>(panel.stripObject());
    const auto current = [&] {
        loop().drain();
        return nodes.textNode1->fontName();
    };
    const auto built = [&] {
        return std::ranges::count_if(strip->buttons(), [this](const auto& button) {
            return viewOf(view.rootObject(), button.get(), "controller") != nullptr;
        });
    };
    EXPECT_GT(built(), 3);
    EXPECT_LT(built(), 25) << "names out of sight are not built";

    strip->listButton.click();
    layOut();
    const std::string before = current();
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_NE(current(), before);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(current(), before);
    for (const char letter : {'m', 'o', 'n', 'o', 't'})
        QTest::keyClick(&view, letter);
    EXPECT_EQ(strip->list.count(), 1);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(current(), "Monoton-Regular");
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_GT(strip->list.count(), 50) << "Escape first clears the field";
    EXPECT_TRUE(strip->isListOpen());
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(strip->isListOpen());
    strip->listButton.click();
    layOut();
    QTest::mouseClick(&view, Qt::LeftButton, {}, {700, 20});
    EXPECT_FALSE(strip->isListOpen()) << "a press elsewhere";
    strip->listButton.click();
    view.rootObject()->setEnabled(false); // a screen or an alert comes up
    EXPECT_FALSE(strip->isListOpen());
    view.setSource({});
}

TEST_F(MenuViewsTest, AMenuThatIsOffIsDimmedOnce) {
    show("ControlMenu", "controller", &control);
    const QQuickItem* const menuView = view.rootObject();
    const QQuickItem* const record = menuView->childItems().constFirst();
    const auto* const fill = record->property("background").value<QQuickItem*>();
    EXPECT_DOUBLE_EQ(menuView->opacity() * record->opacity() * fill->opacity(), 0.1);
}

TEST_F(MenuViewsTest, WritingShowsPreeditAndPastedTextOnTheStage) {
    ui::LayouterMenu panel(services);
    show("LayouterMenu", "controller", &panel);
    panel.setCurrentNodeFromButton(0);
    panel.writeAction();
    layOut();
    const auto shown = [&] {
        loop().drain();
        return nodes.textNode1->text();
    };
    const auto compose = [&](const QString& preedit, const QString& commit) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(view.focusObject(), &event);
    };
    EXPECT_EQ(shown(), "TITLE");
    compose(QStringLiteral("n"), {});
    EXPECT_EQ(shown(), "n") << "instead of all that was selected";
    compose(QStringLiteral("ñu"), {});
    EXPECT_EQ(shown(), "ñu");
    compose({}, QStringLiteral("ñ"));
    EXPECT_EQ(shown(), "ñ");
    QGuiApplication::clipboard()->setText(QStringLiteral("a\r\nb\u2028") + QString(300, 'c'));
    QTest::keyClick(&view, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown().find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ(QString::fromStdString(shown()).size(), 199) << "of 200, CR and LF are one blank";
    panel.textFieldDidChange(QStringLiteral("a\r\nb\t") + QChar(0xD83D));
    EXPECT_EQ(shown(), "a b ");
    view.setSource({});
}

TEST_F(MenuViewsTest, EachTabOfTheStylePanelShowsItsStrip) {
    ui::LayouterMenu panel(services);
    show("LayouterMenu", "controller", &panel);
    for (int node = -1; node < 4; ++node) {
        panel.setCurrentNodeFromButton(node);
        for (ui::MyButton* const tab : QList(panel.stackView.arranged())) {
            if (!panel.stackView.arranged().contains(tab))
                continue; // a click has replaced the tabs
            tab->click();
            layOut();
            EXPECT_EQ(stripOnShow(), panel.stripObject()) << tab->title().toStdString();
        }
    }
    view.setSource({});
}

TEST_F(MenuViewsTest, KeysStayInTheRowOfTabsWhenATabReplacesIt) {
    ui::LayouterMenu panel(services);
    show("LayouterMenu", "controller", &panel);
    const auto tab = [&](qsizetype place) {
        return viewOf(view.rootObject(), panel.stackView.arranged().at(place), "controller");
    };
    tab(5)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(&view, Qt::Key_Return);
    ASSERT_EQ(panel.currentOption(), ui::CurrentOption::audio);
    EXPECT_EQ(view.activeFocusItem(), tab(0)) << "there is only one now";
    panel.setCurrentNodeFromButton(0);
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyClick(&view, Qt::Key_Return);
    ASSERT_EQ(panel.currentOption(), ui::CurrentOption::font);
    EXPECT_EQ(view.activeFocusItem(), tab(1));
    view.setSource({});
}

TEST_F(MenuViewsTest, TemplatesAreChosenByKeysMouseAndFinger) {
    const auto choose = [&](const std::function<void()>& act) {
        std::vector<std::filesystem::path> chosen;
        ui::TemplatesController templates([&](const auto& file) { chosen.push_back(file); });
        int dismissals = 0;
        QObject::connect(&templates, &ui::TemplatesController::dismissed, [&] { ++dismissals; });
        show("Templates", "controller", &templates);
        act();
        QTest::keyClick(&view, Qt::Key_Escape);
        EXPECT_EQ(dismissals, 1);
        view.setSource({});
        return chosen;
    };
    const auto key = [&](Qt::Key pressed) { QTest::keyClick(&view, pressed); };
    // 960 points have room for four columns: row 0 is the empty stage, row 5 the fifth template.
    const auto byKeys = choose([&] {
        key(Qt::Key_Right);
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        key(Qt::Key_Return);
    });
    ASSERT_EQ(byKeys.size(), 1U);
    EXPECT_EQ(byKeys.front().filename(), "news.json");
    const auto empty = choose([&] { key(Qt::Key_Space); });
    ASSERT_EQ(empty.size(), 1U);
    EXPECT_EQ(empty.front(), "");

    const QPoint second(360, 120);
    const auto byMouse = choose([&] { QTest::mouseClick(&view, Qt::LeftButton, {}, second); });
    ASSERT_EQ(byMouse.size(), 1U);
    EXPECT_EQ(byMouse.front().filename(), "night.json");
    const auto device = std::unique_ptr<QPointingDevice>(QTest::createTouchDevice());
    const auto byTouch = choose([&] {
        QTest::touchEvent(&view, device.get()).press(1, second).commit();
        QTest::touchEvent(&view, device.get()).release(1, second).commit();
    });
    EXPECT_EQ(byTouch, byMouse);
    // A drag scrolls, and chooses nothing.
    const auto byDrag = choose([&] {
        QTest::touchEvent(&view, device.get()).press(1, second).commit();
        for (int y = 120; y > 20; y -= 20)
            QTest::touchEvent(&view, device.get()).move(1, {360, y}).commit();
        QTest::touchEvent(&view, device.get()).release(1, {360, 20}).commit();
    });
    EXPECT_TRUE(byDrag.empty());
}

TEST_F(MenuViewsTest, TheOthersStandUpWithoutAWarning) {
    ui::SpeedViewController speed(services);
    ui::HistoryController history(services);
    ui::Visualizer fingers(loop());
    fingers.start({});
    speed.setHidden(false);
    ui::ValueLabel label(loop());
    ui::VideoAlertViewController video("/nowhere/Hint.mp4", {600, 338}, "Press the red button.");
    show("ControlMenu", "controller", &control);
    show("SpeedStrip", "controller", &speed);
    show("ValueLabel", "controller", &label);
    show("History", "controller", &history);
    show("TouchVisualizer", "controller", &fingers);
    fingers.handleEvent({{.id = 1, .phase = ui::TouchPhase::began, .location = {9, 9}}});
    layOut();
    EXPECT_EQ(view.rootObject()->childItems().size(), 2) << "one finger and the repeater";
    show("VideoAlert", "controller", &video);
    int dismissals = 0;
    QObject::connect(&video, &ui::VideoAlertViewController::dismissed, [&] { ++dismissals; });
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(dismissals, 1);
    view.setSource({});
}

} // namespace

} // namespace zelvo::test
