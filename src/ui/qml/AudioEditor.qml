// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// View of an AudioViewController: the timeline with the music, and a row of buttons. The tab with the
// title lies between the buttons.
FocusScope {
    id: root

    required property Audio.AudioViewController controller
    readonly property real rowHeight: 34

    AudioTimeline {
        width: parent.width
        height: parent.height - root.rowHeight - 4
        controller: root.controller
    }
    Row {
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        spacing: 3

        MyButton {
            height: root.rowHeight
            reach: 2
            controller: root.controller.playPauseButton
        }
        MyButton {
            height: root.rowHeight
            reach: 2
            controller: root.controller.fadesButton
        }
        MyButton {
            height: root.rowHeight
            reach: 2
            role: Accessible.CheckBox
            controller: root.controller.snapButton
        }
    }
    Row {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        spacing: 3

        MyButton {
            height: root.rowHeight
            reach: 2
            controller: root.controller.importButton
        }
        MyButton {
            height: root.rowHeight
            reach: 2
            controller: root.controller.trashButton
        }
    }
    ImportDialog {
        id: dialog

        title: qsTr("Choose the music")
        onAccepted: root.controller.importFrom(selectedFile)
    }
    Connections {
        target: root.controller

        function onFileAsked(nameFilters: list<string>, folder: url): void {
            dialog.ask(nameFilters, folder);
        }
    }
}
