// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A sheet in the middle of the window, which dims what is behind it. A click outside closes it.
FocusScope {
    id: root

    property real sheetWidth: 560
    property real sheetHeight: 620
    default property alias content: paper.data

    signal closed

    Accessible.role: Accessible.Dialog
    Keys.onEscapePressed: closed()

    Rectangle {
        anchors.fill: parent
        color: "#99000000"
    }
    MouseArea { // keeps the mouse away from the items below
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.closed()
        onWheel: wheel => wheel.accepted = true
    }
    Rectangle {
        anchors.centerIn: parent
        width: Math.min(parent.width - 48, Theme.px(root.sheetWidth))
        height: Math.min(parent.height - 48, Theme.px(root.sheetHeight))
        color: Theme.row
        radius: 2 * Theme.radius
        border.color: Theme.separator

        MouseArea { // a click on the sheet does not close it
            anchors.fill: parent
        }
        Item {
            id: paper

            anchors.fill: parent
            anchors.margins: 1 // inside the border
            anchors.bottomMargin: 2 * Theme.radius
            clip: true
        }
    }
}
