// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A row of the history.
SwipeRow {
    id: root

    required property string title
    required property string detail

    implicitHeight: texts.implicitHeight + 8
    name: title
    Accessible.name: title + ", " + detail

    Column {
        id: texts

        width: parent.width
        anchors.verticalCenter: parent.verticalCenter
        spacing: 1

        Text {
            width: parent.width
            text: root.title
            color: Theme.text
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
            elide: Text.ElideRight
        }
        Text {
            text: root.detail
            color: Theme.mutedText
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
        }
    }
}
