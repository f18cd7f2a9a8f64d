// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// Shows where the keyboard is. Stands in the control that it surrounds.
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
