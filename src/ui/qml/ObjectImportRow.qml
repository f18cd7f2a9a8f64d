// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Imports as Imports

// A file of the imported objects. An object has a button "Info"; its parts, such as pictures, do not.
SwipeRow {
    id: root

    required property Imports.objectRowData modelData

    signal infoAsked

    name: modelData.name
    secondTitle: qsTr("Rename")
    secondName: qsTr("Rename %1").arg(name)

    accessory: ScreenButton {
        width: Math.min(150, root.width / 4)
        y: (root.height - height) / 2
        visible: root.modelData.isObject
        text: qsTr("Info")
        name: qsTr("Info about %1").arg(root.name)
        tint: Theme.accentText
        focusPolicy: Qt.NoFocus
        onClicked: root.infoAsked()
    }

    Text {
        anchors.fill: parent
        text: root.name
        color: root.modelData.isObject ? Theme.accentText : "#dddddd"
        font.pixelSize: Theme.px(19)
        elide: Text.ElideMiddle
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
    }
}
