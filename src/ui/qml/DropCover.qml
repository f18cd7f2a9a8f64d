// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Main as MainScreen

// Files and pictures can be dropped on it. While they are dragged over it, it says what a drop does.
MainScreen.DropTarget {
    id: root

    readonly property bool isOver: promise !== ""

    Rectangle {
        anchors.fill: parent
        anchors.margins: 8
        radius: 14
        color: Theme.dimmedPanel
        border.width: 3
        border.color: root.isWelcome ? Theme.accent : Theme.mutedText
        opacity: root.isOver ? 1 : 0
        visible: opacity > 0

        Accessible.role: Accessible.AlertMessage
        Accessible.name: word.text

        Behavior on opacity {
            NumberAnimation { duration: 120 * Theme.motion }
        }

        Rectangle {
            anchors.centerIn: parent
            width: row.implicitWidth + 40
            height: row.implicitHeight + 24
            radius: height / 2
            color: Theme.row
            border.color: Theme.separator

            Row {
                id: row

                anchors.centerIn: parent
                spacing: 10

                Icon {
                    width: 24
                    height: 24
                    anchors.verticalCenter: parent.verticalCenter
                    visible: root.isWelcome
                    name: "Import"
                }
                Text {
                    id: word

                    anchors.verticalCenter: parent.verticalCenter
                    color: Theme.text
                    font.pixelSize: Theme.px(17)
                    font.weight: Font.DemiBold
                    // The last words stay while the cover fades out.
                    Binding on text {
                        when: root.isOver
                        value: root.promise
                        restoreMode: Binding.RestoreNone
                    }
                }
            }
        }
    }
}
