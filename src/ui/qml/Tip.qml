// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// Names a button, and the key that does the same, once the pointer rests on it.
T.ToolTip {
    id: tip

    property string name
    property string key
    property bool isBelow // where there is no room above

    text: name
    delay: 600
    timeout: 6000
    margins: 6
    padding: 7
    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: parent && isBelow ? parent.height + 6 : -implicitHeight - 6
    implicitWidth: contentItem.implicitWidth + 2 * padding
    implicitHeight: contentItem.implicitHeight + 2 * padding
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: isBelow = parent.mapToItem(null, 0, 0).y < 60 // by now the button has its place

    contentItem: Row {
        spacing: 8

        Text {
            text: tip.name
            color: Theme.text
            font.pixelSize: Theme.px(12)
        }
        Text {
            visible: tip.key !== ""
            text: tip.key
            color: Theme.mutedText
            font.pixelSize: Theme.px(12)
        }
    }
    background: Rectangle {
        color: Theme.row
        radius: Theme.radius
        border.color: Theme.separator
    }
}
