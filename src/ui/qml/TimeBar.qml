// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo.Screens as Screens

// View of a ProgressView: a thin bar.
Item {
    id: root

    required property Screens.ProgressView controller

    implicitHeight: 3

    Rectangle {
        width: root.width * root.controller.fill
        height: root.height
        color: root.controller.color
    }
}
