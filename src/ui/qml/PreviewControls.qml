// SPDX-License-Identifier: MIT
import QtMultimedia
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Screens as Screens

// Play, pause, seek and the times of a movie, and the path of its file.
Item {
    id: root

    required property Screens.PreviewViewController controller
    required property MediaPlayer player

    implicitHeight: 84

    ScreenButton {
        id: play

        x: 12
        y: 2
        image: root.controller.isPlaying ? "PreviewPause" : "PreviewPlay"
        name: root.controller.isPlaying ? qsTr("Pause") : qsTr("Play")
        key: qsTr("Space")
        isUsable: root.controller.failure === ""
        onClicked: root.controller.togglePlaying()
    }
    Text {
        id: now

        anchors.left: play.right
        anchors.leftMargin: 6
        anchors.verticalCenter: play.verticalCenter
        text: root.controller.timeText(root.player.position)
        color: Theme.text
        font.family: Theme.digitsFamily
        font.pixelSize: Theme.px(13)
    }
    T.Slider {
        id: seek

        anchors.left: now.right
        anchors.right: whole.left
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        anchors.verticalCenter: play.verticalCenter
        height: 44
        focusPolicy: Qt.StrongFocus
        enabled: root.player.seekable
        to: Math.max(1, root.player.duration)
        value: root.player.position
        stepSize: 1000
        onMoved: root.player.setPosition(value)

        Accessible.role: Accessible.Slider
        Accessible.name: qsTr("Position")

        background: Rectangle {
            y: (seek.height - height) / 2
            width: seek.width
            height: 6
            radius: 3
            color: Theme.buttonFill
            border.color: Theme.mutedText

            Rectangle {
                y: 1
                width: seek.visualPosition * parent.width
                height: parent.height - 2
                radius: 2
                color: Theme.accent
            }
        }
        handle: Rectangle {
            x: seek.visualPosition * (seek.width - width)
            y: (seek.height - height) / 2
            width: 16
            height: 16
            radius: 8
            color: Theme.text

            FocusRing {
                shown: seek.visualFocus
                radius: 10
            }
        }
    }
    Text {
        id: whole

        anchors.right: parent.right
        anchors.rightMargin: 18
        anchors.verticalCenter: play.verticalCenter
        text: root.controller.timeText(root.player.duration)
        color: Theme.mutedText
        font.family: Theme.digitsFamily
        font.pixelSize: Theme.px(13)
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 12
        width: Math.min(implicitWidth, parent.width - 48)
        text: root.controller.place
        color: Theme.mutedText
        font.pixelSize: Theme.px(13)
        elide: Text.ElideMiddle
        Accessible.role: Accessible.StaticText
        Accessible.name: qsTr("The movie is at %1").arg(text)
    }
}
