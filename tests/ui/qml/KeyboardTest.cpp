// SPDX-License-Identifier: MIT
// The keys of the main screen, before a screen that only writes down what it is told.

#include <gtest/gtest.h>

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
import QtQuick.Window
import "qrc:/zelvo"

Window {
    id: root

    property string calls
    property QtObject screen: QtObject {
        property string panelView: "ActionsMenu"
        property QtObject panel: QtObject {
            property var actionsStackView: [1, 2, 3, 4, 5, 6]
            function pressButton(place) { root.calls += "+" + place }
            function releaseButton(place) { root.calls += "-" + place }
        }
        property QtObject controlMenu: QtObject {
            function record() { root.calls += "r" }
        }
    }

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

class KeyboardTest : public testing::Test {
protected:
    void SetUp() override { show(kScene); }

    void show(const char* scene) {
        QQmlComponent component(&engine);
        component.setData(scene, QUrl("qrc:/zelvo/KeyboardTest.qml"));
        window.reset(qobject_cast<QQuickWindow*>(component.create()));
        ASSERT_NE(window, nullptr) << component.errorString().toStdString();
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    [[nodiscard]] std::string calls() const {
        return window->property("calls").toString().toStdString();
    }

    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
};

TEST_F(KeyboardTest, LetsEachButtonGoThatItHoldsAndStartsUnlessOneWrites) {
    QTest::keyPress(window.get(), Qt::Key_1);
    QTest::keyPress(window.get(), Qt::Key_6);
    QTest::keyPress(window.get(), Qt::Key_7);
    QTest::keyRelease(window.get(), Qt::Key_7);
    QTest::keyRelease(window.get(), Qt::Key_1, Qt::ShiftModifier);
    EXPECT_EQ(calls(), "+0+5-0");
    window->findChild<QQuickItem*>("other")->forceActiveFocus();
    EXPECT_EQ(calls(), "+0+5-0-5") << "the release goes elsewhere";
    QTest::keyClick(window.get(), Qt::Key_Space);
    EXPECT_EQ(calls(), "+0+5-0-5") << "a field is written in";
    window->findChild<QQuickItem*>("other")->setFocus(false);
    QTest::keyClick(window.get(), Qt::Key_Space);
    EXPECT_EQ(calls(), "+0+5-0-5r");
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
    show(kLayers);
    auto& control = *window->findChild<QQuickItem*>("control");
    const auto pressed = [this] {
        window->setProperty("calls", "");
        QTest::keyClick(window.get(), Qt::Key_Return);
        return calls();
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
    EXPECT_EQ(pressed(), "b") << "a press beside it takes the focus away";
}

TEST_F(KeyboardTest, LeavesDigitsWithModifiersAlone) {
    QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(calls(), "");
}

} // namespace
} // namespace zelvo::ui
