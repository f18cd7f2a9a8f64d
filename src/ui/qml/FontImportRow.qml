// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A file of the imported fonts.
SwipeRow {
    id: root

    required property string modelData

    name: modelData

    Text {
        width: parent.width
        anchors.verticalCenter: parent.verticalCenter
        text: root.modelData
        color: Theme.text
        font.pixelSize: Theme.px(19)
        elide: Text.ElideMiddle
    }
}
