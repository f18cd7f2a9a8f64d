// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// A menu over the preview: what to do with the finished movie. A click outside closes it.
FocusScope {
    id: root

    required property Screens.PreviewViewController controller
    property real below // y of the menu: the lower edge of the bar

    Keys.onEscapePressed: controller.share()

    Accessible.role: Accessible.PopupMenu
    Accessible.name: qsTr("Share")

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.controller.share()
        onWheel: wheel => wheel.accepted = true
    }
    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: 8
        y: root.below
        width: choices.width + 16
        height: choices.implicitHeight + 16
        radius: 10
        color: Theme.row
        border.color: Theme.separator

        MouseArea {
            anchors.fill: parent
        }
        Column {
            id: choices

            anchors.centerIn: parent
            width: Math.max(220, implicitWidth)

            ScreenButton {
                width: choices.width
                text: qsTr("Open in Player")
                focus: true
                KeyNavigation.down: folder
                onClicked: root.controller.openInPlayer()
            }
            ScreenButton {
                id: folder

                width: choices.width
                text: qsTr("Show Folder")
                KeyNavigation.down: path
                onClicked: root.controller.openFolder()
            }
            ScreenButton {
                id: path

                width: choices.width
                text: qsTr("Copy Path")
                KeyNavigation.down: copy
                onClicked: root.controller.copyPath()
            }
            ScreenButton {
                id: copy

                width: choices.width
                text: qsTr("Save a Copy…")
                onClicked: {
                    dialog.active = true;
                    (dialog.item as SaveDialog).ask(root.controller.suggestedCopy());
                }
            }
        }
    }
    Loader {
        id: dialog

        active: false
        source: "SaveDialog.qml"
    }
    Connections {
        target: dialog.item

        function onAccepted(): void {
            root.controller.saveCopy((dialog.item as SaveDialog).selectedFile);
        }
    }
}
