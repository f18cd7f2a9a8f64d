// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// A line of the report about an object, with an icon for what was found.
Item {
    id: root

    required property Imports.reportLine modelData

    implicitHeight: Math.max(8, line.implicitHeight + 4)

    Icon {
        width: 18
        height: 18
        y: 1
        visible: name !== ""
        name: root.modelData.icon
    }
    Text {
        id: line

        x: root.modelData.icon === "" ? 0 : 26
        width: parent.width - x
        text: root.modelData.text
        color: root.modelData.icon === "" ? Theme.text : Theme.mutedText
        font.pixelSize: Theme.px(14)
        wrapMode: Text.WrapAnywhere
        textFormat: Text.PlainText
        visible: text !== ""
    }
}
