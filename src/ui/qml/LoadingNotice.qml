// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// View of an ObjectLoading: says what is being loaded and how far it is, with a button to give up.
Rectangle {
    id: root

    required property Imports.ObjectLoading controller

    width: Math.min(Theme.px(420), parent.width - 48)
    height: 52
    radius: 10
    color: Qt.darker(Theme.separator, 1.35)
    border.color: Theme.buttonFill
    opacity: controller.isShown ? 1 : 0
    visible: opacity > 0
    clip: true

    Accessible.role: Accessible.ProgressBar
    Accessible.name: word.text

    Behavior on opacity {
        NumberAnimation { duration: 120 * Theme.motion }
    }
    MouseArea { // keeps the mouse away from the stage
        anchors.fill: parent
    }
    Text {
        id: word

        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: percent.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: root.controller.word
        textFormat: Text.PlainText
        color: Theme.text
        font.pixelSize: Theme.px(14)
        elide: Text.ElideMiddle
    }
    Text {
        id: percent

        anchors.right: stop.left
        anchors.rightMargin: 2
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("%1 %").arg(Math.floor(100 * root.controller.share))
        color: Qt.lighter(Theme.mutedText, 1.35)
        font.family: Theme.digitsFamily
        font.pixelSize: Theme.px(13)
    }
    ScreenButton {
        id: stop

        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        image: "CloseButton_Gray"
        name: qsTr("Give up")
        key: "Esc"
        focusPolicy: Qt.NoFocus
        onClicked: root.controller.giveUp()
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width * root.controller.share
        height: 3
        color: Theme.accent
    }
}
