// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// A field for a short text in a sheet.
T.TextField {
    id: root

    required property string name

    implicitHeight: 44
    leftPadding: 12
    rightPadding: 12
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.text
    font.pixelSize: Theme.px(14)
    verticalAlignment: Text.AlignVCenter
    selectByMouse: true
    maximumLength: 120
    Accessible.name: name

    background: Rectangle {
        radius: Theme.radius
        color: Theme.buttonFill
        border.width: root.activeFocus ? 2 : 0
        border.color: Theme.accent
    }
}
