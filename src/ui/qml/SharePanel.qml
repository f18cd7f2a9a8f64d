// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// What can be done with a finished movie.
Rectangle {
    id: root

    required property var controller

    implicitWidth: choices.implicitWidth + 16
    implicitHeight: choices.implicitHeight + 16
    radius: 10
    color: Theme.row
    border.color: Theme.separator
    onVisibleChanged: if (visible) player.forceActiveFocus(Qt.TabFocusReason)

    Accessible.role: Accessible.PopupMenu
    Accessible.name: "Share"

    MouseArea {
        anchors.fill: parent
    }
    Column {
        id: choices

        anchors.centerIn: parent
        width: Math.max(220, implicitWidth)

        ScreenButton {
            id: player

            width: parent.width
            text: "Open in Player"
            KeyNavigation.down: folder
            onClicked: root.controller.openInPlayer()
        }
        ScreenButton {
            id: folder

            width: parent.width
            text: "Show Folder"
            KeyNavigation.down: path
            onClicked: root.controller.openFolder()
        }
        ScreenButton {
            id: path

            width: parent.width
            text: "Copy Path"
            KeyNavigation.down: copy
            onClicked: root.controller.copyPath()
        }
        ScreenButton {
            id: copy

            width: parent.width
            text: "Save a Copy…"
            onClicked: dialog.item ? dialog.item.open() : dialog.active = true
        }
    }
    Loader {
        id: dialog

        active: false
        source: "qrc:/zelvo/SaveDialog.qml"
        onLoaded: item.open()
    }
    Connections {
        target: dialog.item

        function onAccepted() {
            root.controller.saveCopy(dialog.item.selectedFile);
        }
    }
}
