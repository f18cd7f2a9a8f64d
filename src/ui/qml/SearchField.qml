// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// A text field for searching a list.
T.TextField {
    id: root

    property string name

    leftPadding: 32
    rightPadding: 10
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.text
    font.pixelSize: Theme.px(13)
    verticalAlignment: Text.AlignVCenter
    selectByMouse: true
    maximumLength: 100

    Accessible.name: name

    background: Rectangle {
        radius: Theme.radius
        color: Theme.buttonFill
        border.width: root.activeFocus ? 2 : 0
        border.color: Theme.accent

        Icon {
            x: 8
            width: 18
            height: 18
            anchors.verticalCenter: parent.verticalCenter
            name: "Search"
        }
        Text {
            x: root.leftPadding
            anchors.verticalCenter: parent.verticalCenter
            visible: root.text === ""
            text: root.name
            color: Qt.lighter(Theme.mutedText, 1.35) // legible on the field
            font: root.font
        }
    }
}
