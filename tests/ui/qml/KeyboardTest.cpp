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
            function pressButton(place) { root.calls += "+" + place }
            function releaseButton(place) { root.calls += "-" + place }
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
    Item { objectName: "other" }
}
)";

class KeyboardTest : public testing::Test {
protected:
    KeyboardTest() {
        QQmlComponent component(&engine);
        component.setData(kScene, QUrl("qrc:/zelvo/KeyboardTest.qml"));
        window.reset(qobject_cast<QQuickWindow*>(component.create()));
        EXPECT_NE(window, nullptr) << component.errorString().toStdString();
    }

    void SetUp() override {
        ASSERT_NE(window, nullptr);
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    [[nodiscard]] std::string calls() const {
        return window->property("calls").toString().toStdString();
    }

    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
};

TEST_F(KeyboardTest, LetsEachButtonGoThatItHolds) {
    QTest::keyPress(window.get(), Qt::Key_1);
    QTest::keyPress(window.get(), Qt::Key_6);
    QTest::keyPress(window.get(), Qt::Key_7);
    QTest::keyRelease(window.get(), Qt::Key_7);
    QTest::keyRelease(window.get(), Qt::Key_1, Qt::ShiftModifier);
    EXPECT_EQ(calls(), "+0+5-0");
    window->findChild<QQuickItem*>("other")->forceActiveFocus();
    EXPECT_EQ(calls(), "+0+5-0-5") << "the release goes elsewhere";
}

TEST_F(KeyboardTest, LeavesDigitsWithModifiersAlone) {
    QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(calls(), "");
}

} // namespace
} // namespace zelvo::ui
