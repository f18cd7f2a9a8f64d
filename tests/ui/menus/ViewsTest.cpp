// SPDX-License-Identifier: MIT
// The views on their controllers, with events as a window gets them.

#include "MenusFixture.h"
#include "ui/controls/ValueLabel.h"
#include "ui/menus/ActionsMenu.h"
#include "ui/menus/ControlMenu.h"
#include "ui/menus/SpeedViewController.h"
#include "ui/menus/TimePickerView.h"
#include "ui/menus/VideoAlertViewController.h"

#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

namespace zelvo::test {

namespace {

class MenuViewsTest : public MenusTest {
protected:
    MenuViewsTest() {
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(960, 540);
        QObject::connect(
            view.engine(), &QQmlEngine::warnings, &view, [this](const QList<QQmlError>& found) {
                for (const QQmlError& one : found)
                    warnings += one.toString() + "\n";
            });
    }

    ~MenuViewsTest() override { EXPECT_EQ(warnings.toStdString(), ""); }

    void show(const QString& file, const QString& property, QObject* controller) {
        view.setInitialProperties({
            {property, QVariant::fromValue(controller)}
        });
        view.setSource(QUrl("qrc:/zelvo/" + file));
        ASSERT_EQ(view.status(), QQuickView::Ready);
        view.show();
        layOut();
    }

    /// Rows place their items when a frame is made.
    void layOut() {
        QCoreApplication::processEvents();
        static_cast<void>(view.grabWindow());
    }

    [[nodiscard]] static QPoint middleOf(qsizetype place, qsizetype count, qreal width) {
        const auto share = width / static_cast<qreal>(count);
        return QPointF((static_cast<qreal>(place) + 0.5) * share, 18).toPoint();
    }

    /// One for all: the theme belongs to the engine that asks for it first.
    [[nodiscard]] static QQmlEngine* engine() {
        static auto* const shared = new QQmlEngine(QCoreApplication::instance());
        return shared;
    }

    ui::ActionsMenu menu{services}; // controllers outlive what shows them
    ui::ControlMenu control{services};
    QQuickView view{engine(), nullptr};
    QString warnings;
};

TEST_F(MenuViewsTest, AMousePressFiresBeforeItIsLetGo) {
    show("ActionsMenu.qml", "controller", &menu);
    model.start();
    loop().runFor(3);
    QTest::mousePress(&view, Qt::LeftButton, {}, middleOf(2, 6, view.width()));
    loop().drain();
    EXPECT_EQ(controller().recordedActions().size(), 1u);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, middleOf(2, 6, view.width()));
    loop().drain();
    EXPECT_EQ(controller().recordedActions().size(), 1u);
}

TEST_F(MenuViewsTest, TwoFingersHoldTwoButtonsAndOneWanders) {
    show("ActionsMenu.qml", "controller", &menu);
    menu.FX1->click();
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

TEST_F(MenuViewsTest, AFocusedButtonIsHeldByTheSpaceBarWithoutRepeating) {
    show("ActionsMenu.qml", "controller", &menu);
    menu.FX1->click();
    layOut();
    QTest::keyClick(&view, Qt::Key_Tab);
    QTest::keyPress(&view, Qt::Key_Space);
    EXPECT_TRUE(menu.actionButtons()[0]->isPressed());
    QTest::simulateEvent(&view, false, Qt::Key_Space, {}, " ", true);
    EXPECT_TRUE(menu.actionButtons()[0]->isPressed()) << "auto-repeat has let it go";
    QTest::keyRelease(&view, Qt::Key_Space);
    EXPECT_FALSE(menu.actionButtons()[0]->isPressed());
}

TEST_F(MenuViewsTest, TheRowOfTabsFollowsTheWindowsWidth) {
    show("ActionsMenu.qml", "controller", &menu);
    EXPECT_EQ(menu.stackView.arranged().size(), 14);
    EXPECT_TRUE(menu.IN1->isMySelected());
    view.rootObject()->setWidth(500);
    EXPECT_EQ(menu.stackView.arranged().size(), 9);
}

TEST_F(MenuViewsTest, TheDurationDialogIsWorkedByKeys) {
    control.setButtonsEnabled(true);
    show("AlertHost.qml", "alerts", &alerts);
    control.askForDuration();
    ASSERT_TRUE(QTest::qWaitFor([this] { return view.activeFocusItem() != nullptr; }, 2000));
    auto* const picker = qobject_cast<ui::TimePickerView*>(alerts.content());
    QCoreApplication::processEvents();
    EXPECT_EQ(picker->seconds(), 8) << "the wheels have changed it by standing up";
    // Round from the button to the wheels: seconds come last.
    for (int i = 0; i < 6 && picker->seconds() == 8; ++i) {
        QTest::keyClick(&view, Qt::Key_Tab);
        QTest::keyClick(&view, Qt::Key_Down);
        if (picker->minutes() == 1)
            picker->select(ui::TimePickerView::minutesWheel, 0), picker->select(1, 8);
    }
    EXPECT_EQ(picker->seconds(), 9);
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(alerts.isShowing());
}

TEST_F(MenuViewsTest, AMenuThatIsOffIsDimmedOnce) {
    show("ControlMenu.qml", "controller", &control);
    const QQuickItem* const menuView = view.rootObject();
    const QQuickItem* const record = menuView->childItems().constFirst();
    const auto* const fill = record->property("background").value<QQuickItem*>();
    EXPECT_DOUBLE_EQ(menuView->opacity() * record->opacity() * fill->opacity(), 0.1);
}

TEST_F(MenuViewsTest, TheOthersStandUpWithoutAWarning) {
    ui::SpeedViewController speed(services);
    ui::ValueLabel label(loop());
    ui::VideoAlertViewController video("/nowhere/Hint.mp4", {600, 338}, "Press the red button.");
    show("ControlMenu.qml", "controller", &control);
    show("SpeedStrip.qml", "controller", &speed);
    show("ValueLabel.qml", "controller", &label);
    show("VideoAlert.qml", "controller", &video);
    int dismissals = 0;
    QObject::connect(&video, &ui::VideoAlertViewController::dismissed, [&] { ++dismissals; });
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(dismissals, 1);
    view.setSource({});
}

} // namespace

} // namespace zelvo::test
