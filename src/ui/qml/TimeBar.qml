// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo.Screens as Screens

// View of a ProgressView: a thin bar.
Item {
    id: root

    required property Screens.ProgressView controller

    implicitHeight: 3

    // For screen readers, which look for these names.
    readonly property real value: Math.round(100 * controller.fill)
    readonly property real minimumValue: 0
    readonly property real maximumValue: 100

    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Time of the run")

    Rectangle {
        width: root.width * root.controller.fill
        height: root.height
        color: root.controller.color
    }
}
