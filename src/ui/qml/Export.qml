// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// View of an ExportViewController: a ring with a percentage, and at the end the preview.
FocusStack {
    id: root

    required property Screens.ExportViewController controller

    focus: true

    FocusScope {
        anchors.centerIn: parent
        width: Math.min(540, parent.width - 48)
        height: Math.min(480, parent.height - 48)
        visible: root.controller.preview === null
        Keys.onEscapePressed: root.controller.dismissViewController()

        Rectangle {
            anchors.fill: parent
            radius: 12
            color: Theme.background
            border.color: Theme.separator
        }

        ScreenButton {
            x: 6
            y: 6
            image: "CloseButton_Gray"
            name: root.controller.picturesPlace === "" ? qsTr("Cancel the export") : qsTr("Close")
            key: "Esc"
            onClicked: root.controller.dismissViewController()
        }
        Column {
            anchors.centerIn: parent
            spacing: 14

            ExportRing {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(280, root.height * 0.46)
                height: width
                controller: root.controller.progressView

                Text {
                    anchors.centerIn: parent
                    text: root.controller.progressLabel
                    color: Theme.text
                    font.family: Theme.digitsFamily
                    font.pixelSize: Theme.px(20)
                    font.weight: Font.Medium
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: root.controller.status
                color: Qt.lighter(Theme.mutedText, 1.35)
                font.pixelSize: Theme.px(14)
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                height: Theme.px(18)
                visible: root.controller.picturesPlace === ""
                text: root.controller.timeLeft
                color: Qt.lighter(Theme.mutedText, 1.35)
                font.family: Theme.digitsFamily
                font.pixelSize: Theme.px(14)
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            ScreenButton {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: root.controller.picturesPlace !== ""
                text: qsTr("Open Folder")
                fill: Theme.accent
                onClicked: root.controller.openPictures()
            }
        }
    }
    Loader {
        anchors.fill: parent
        visible: root.controller.preview !== null
        active: root.controller.preview !== null
        onActiveChanged: if (active) setSource("Preview.qml", { controller: root.controller.preview })
    }
}
