// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// Marks the control that has the keyboard focus. Put it into that control.
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -2
    visible: shown
    color: "transparent"
    radius: Theme.radius + 2
    border.width: 2
    border.color: Theme.text
}
