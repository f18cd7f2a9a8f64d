// SPDX-License-Identifier: MIT
// The keys of the main screen.

#include "ui/UiFixture.h"
#include "ui/layouter/LayouterMenu.h"
#include "ui/main/MainViewController.h"
#include "ui/menus/ActionsMenu.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <memory>

namespace zelvo::ui {
namespace {

constexpr const char* kScene = R"(
import QtQuick
import Zelvo
import Zelvo.Main as MainScreen

Window {
    id: root

    required property MainScreen.MainViewController screen

    width: 200
    height: 100
    visible: true

    Keyboard {
        focus: true
        main: root.screen
        window: root
    }
    TextInput { objectName: "other" }
}
)";

class KeyboardTest : public test::UiTest {
protected:
    void show(const char* scene, const QVariantMap& properties) {
        QQmlComponent component(&engine);
        component.setData(scene, QUrl("KeyboardTest.qml"));
        window.reset(
            qobject_cast<QQuickWindow*>(component.createWithInitialProperties(properties)));
        ASSERT_NE(window, nullptr) << component.errorString().toStdString();
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(window.get(), key, with);
        loop().runFor(0.2);
    }

    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
};

class MainKeysTest : public KeyboardTest {
protected:
    void SetUp() override {
        main.showAnim();
        menu().viewWillAppear();
        show(kScene, {{"screen", QVariant::fromValue(&main)}});
    }

    void TearDown() override { window.reset(); } // before the controllers that it shows

    template <class Kind> Kind& panel() { return *qobject_cast<Kind*>(main.panel()); }

    ActionsMenu& menu() { return panel<ActionsMenu>(); }

    /// The indices of the buttons that are held.
    [[nodiscard]] std::string held() {
        std::string places;
        for (std::size_t i = 0; i < menu().actionButtons().size(); ++i)
            places += menu().actionButtons()[i]->isPressed() ? std::to_string(i) : "";
        return places;
    }

    MainViewController main{services};
};

TEST_F(MainKeysTest, LetEachButtonGoThatTheyHoldAndStartUnlessOneWrites) {
    QTest::keyPress(window.get(), Qt::Key_1);
    QTest::keyPress(window.get(), Qt::Key_6);
    QTest::keyPress(window.get(), Qt::Key_7);
    QTest::keyRelease(window.get(), Qt::Key_7);
    EXPECT_EQ(held(), "05");
    QTest::keyRelease(window.get(), Qt::Key_1, Qt::ShiftModifier);
    EXPECT_EQ(held(), "5");
    window->findChild<QQuickItem*>("other")->forceActiveFocus();
    EXPECT_EQ(held(), "") << "the key's release will go to another item";
    press(Qt::Key_Space);
    EXPECT_FALSE(model.isPlaying()) << "a text field has the focus";
    window->findChild<QQuickItem*>("other")->setFocus(false);
    press(Qt::Key_Space);
    EXPECT_TRUE(model.isPlaying());
    QTest::keyPress(window.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(held(), "") << "Ctrl+1 presses no button";
}

TEST_F(MainKeysTest, ReachWhatTheButtonsDo) {
    press(Qt::Key_S);
    EXPECT_TRUE(menu().speedButton.isMySelected());
    press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_TRUE(menu().tabButton("IN2").isMySelected());
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_TRUE(menu().tabButton("IN1").isMySelected());
    press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(main.visualizer.isEnabled());
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(alerts.title(), "Duration");
    alerts.escape();
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(alerts.title(), "No recorded actions");
    alerts.escape();

    press(Qt::Key_Space);
    loop().runFor(3);
    press(Qt::Key_2);
    press(Qt::Key_Space);
    EXPECT_EQ(controller().recordedActions().size(), 1U);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(controller().recordedActions().size(), 0U);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(controller().recordedActions().size(), 1U);
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(main.screenView(), "History");

    press(Qt::Key_F2);
    ASSERT_EQ(main.panelView(), "LayouterMenu");
    auto& layouter = panel<LayouterMenu>();
    press(Qt::Key_I);
    EXPECT_FALSE(layouter.inspirator.button.isEnabled());
    layouter.setCurrentNodeFromButton(0);
    press(Qt::Key_Escape);
    EXPECT_FALSE(layouter.isBackVisible());
    press(Qt::Key_F3);
    EXPECT_EQ(main.panelView(), "ActionsMenu");
    press(Qt::Key_F11);
    EXPECT_EQ(window->visibility(), QWindow::FullScreen);
    press(Qt::Key_Escape);
    EXPECT_EQ(window->visibility(), QWindow::Windowed);
}

TEST_F(MainKeysTest, TakeMoveAndSizeTheContentWhileItIsStyled) {
    press(Qt::Key_F2);
    auto& layouter = panel<LayouterMenu>();
    press(Qt::Key_Right);
    EXPECT_EQ(layouter.currentNode(), nullptr);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Backtab);
    const node::NodePtr text = model.nodes().textNode1;
    ASSERT_EQ(layouter.currentNode(), text);
    const glm::vec3 before = text->layoutPosition();
    const float size = text->scale2D;
    press(Qt::Key_Left);
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_PageUp);
    EXPECT_EQ(text->layoutPosition(), before + glm::vec3(-1, 10, 1));
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Down);
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(text->layoutPosition(), before + glm::vec3(9, 9, -9));
    press(Qt::Key_BracketRight);
    EXPECT_GT(text->scale2D, size);
    press(Qt::Key_BracketLeft);
    EXPECT_FLOAT_EQ(text->scale2D, size);
}

constexpr const char* kLayers = R"(
import QtQuick
import QtQuick.Window
import Zelvo

Window {
    id: root

    property string calls
    property alias shown: above.visible

    width: 200
    height: 100
    visible: true

    FocusStack {
        anchors.fill: parent
        focus: true

        FocusScope {
            anchors.fill: parent
            Keys.onPressed: root.calls += "b"

            Item {
                objectName: "control"
                width: 50
                height: 50
                Keys.onPressed: event => { root.calls += "c"; event.accepted = true }
            }
        }
        FocusScope {
            id: above

            anchors.fill: parent
            visible: false
            Keys.onPressed: root.calls += "a"

            Loader { id: late; focus: true }
        }
    }
}
)";

TEST_F(KeyboardTest, BelongsToWhatLiesOnTop) {
    show(kLayers, {});
    auto& control = *window->findChild<QQuickItem*>("control");
    const auto pressed = [this] {
        window->setProperty("calls", "");
        QTest::keyClick(window.get(), Qt::Key_Return);
        return window->property("calls").toString().toStdString();
    };
    EXPECT_EQ(pressed(), "b");
    control.forceActiveFocus();
    EXPECT_EQ(pressed(), "c");
    window->setProperty("shown", true);
    EXPECT_EQ(pressed(), "a");
    control.forceActiveFocus();
    EXPECT_EQ(pressed(), "a") << "what lies below has taken the focus";
    window->contentItem()->forceActiveFocus();
    EXPECT_EQ(pressed(), "a") << "the focus was lost";
    window->setProperty("shown", false);
    EXPECT_EQ(pressed(), "c") << "it has the focus as before";
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, {20, 20});
    EXPECT_EQ(pressed(), "c");
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, {150, 20});
    EXPECT_EQ(pressed(), "b") << "a click elsewhere takes the focus away";
}

} // namespace
} // namespace zelvo::ui
