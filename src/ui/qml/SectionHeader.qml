// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// The letter above the albums that begin with it. Empty: nothing.
Rectangle {
    id: root

    required property string section

    height: section !== "" ? 28 : 0
    visible: section !== ""
    color: Theme.row

    Text {
        anchors.fill: parent
        leftPadding: 18
        verticalAlignment: Text.AlignVCenter
        text: root.section
        color: "white"
        font.pixelSize: Theme.px(13)
        font.weight: Font.Bold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
