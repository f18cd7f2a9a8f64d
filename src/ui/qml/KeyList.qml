// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Zelvo
import Zelvo.Main as MainScreen

// The keys and what they do, in two columns. It scrolls where the window is low.
Flickable {
    id: root

    required property MainScreen.Help controller

    implicitWidth: Theme.px(640)
    implicitHeight: Math.min(rows.implicitHeight, (Window.window?.height ?? 720) - 230)
    contentHeight: rows.implicitHeight
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Keys")
    Accessible.focusable: true
    Keys.onUpPressed: contentY = Math.max(0, contentY - 60)
    Keys.onDownPressed: contentY = Math.max(0, Math.min(contentHeight - height, contentY + 60))

    Grid {
        id: rows

        width: root.width
        columns: root.width > Theme.px(500) ? 2 : 1
        columnSpacing: 24
        rowSpacing: 4
        flow: Grid.TopToBottom
        rows: Math.ceil(root.controller.keys.length / columns)

        Repeater {
            model: root.controller.keys
            delegate: Item {
                id: row

                required property int index
                required property string modelData

                width: (rows.width - rows.columnSpacing * (rows.columns - 1)) / rows.columns
                height: Math.max(26, key.implicitHeight + 6, meaning.implicitHeight + 6)
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData + ": " + meaning.text

                Text {
                    id: key

                    width: parent.width * 0.4
                    anchors.verticalCenter: parent.verticalCenter
                    text: row.modelData
                    color: Theme.accentText
                    font.pixelSize: Theme.px(12)
                    font.weight: Font.DemiBold
                    wrapMode: Text.Wrap
                }
                Text {
                    id: meaning

                    anchors.left: key.right
                    anchors.right: parent.right
                    anchors.leftMargin: 8
                    anchors.verticalCenter: parent.verticalCenter
                    text: root.controller.meanings[row.index]
                    color: Theme.text
                    font.pixelSize: Theme.px(12)
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
