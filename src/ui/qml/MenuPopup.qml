// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Zelvo
import Zelvo.Controls as Controls

// A menu of buttons in two parts, the second one under a heading. While it is open, it has all keys; a
// press elsewhere closes it.
T.Popup {
    id: root

    property alias model: rows.model // the buttons
    required property string name // for screen readers
    property int headedFrom: -1 // the first row of the second part
    property string heading
    property bool hasTips // on the rows of the second part
    property real rowHeight: 38
    readonly property real room: (Window.window?.height ?? 720) - 94 - 45 - 24 // between the bars

    padding: 6
    implicitWidth: 300
    implicitHeight: Math.min(rows.contentHeight, room) + 2 * padding
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    onAboutToShow: contentItem.parent.Accessible.name = name
    onOpened: {
        rows.currentIndex = 0;
        rows.forceActiveFocus();
    }

    background: Rectangle {
        radius: 10
        color: Theme.row
        border.color: Theme.separator
    }
    contentItem: ListView {
        id: rows

        clip: true
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        keyNavigationWraps: true
        highlightMoveDuration: 0
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.name

        delegate: T.AbstractButton {
            id: row

            required property int index
            required property Controls.MyButton modelData
            readonly property bool isHeaded: index === root.headedFrom
            readonly property real above: isHeaded ? 34 : 0

            width: ListView.view.width
            height: root.rowHeight + above
            enabled: modelData.isEnabled
            hoverEnabled: true
            Accessible.name: modelData.name
            Accessible.selectable: true
            Accessible.selected: ListView.isCurrentItem
            Accessible.onPressAction: modelData.click()
            Spoken.role: Accessible.MenuItem
            Spoken.key: modelData.key
            Spoken.isToggle: modelData.isMySelected
            Spoken.isOn: modelData.isMySelected
            onClicked: modelData.click()
            Keys.onReturnPressed: modelData.click()
            Keys.onEnterPressed: modelData.click()
            Keys.onSpacePressed: modelData.click()
            onHoveredChanged: if (hovered) ListView.view.currentIndex = index

            background: Rectangle {
                y: row.above
                height: row.height - row.above
                radius: Theme.radius
                color: Theme.text
                opacity: row.down ? 0.22 : row.ListView.isCurrentItem ? 0.12 : 0
            }
            contentItem: Item {
                Text {
                    x: 10
                    y: 14
                    visible: row.isHeaded
                    text: root.heading
                    color: Theme.mutedText
                    font.pixelSize: Theme.px(11)
                    font.weight: Font.DemiBold
                }
                Rectangle {
                    visible: row.isHeaded
                    y: 4
                    width: parent.width
                    height: 1
                    color: Theme.separator
                }
                Text {
                    anchors.left: parent.left
                    anchors.right: key.left
                    anchors.leftMargin: 10
                    anchors.rightMargin: 8
                    y: row.above + (row.height - row.above - height) / 2
                    text: row.modelData.title
                    color: row.modelData.isEnabled ? Theme.text : Theme.mutedText
                    font.pixelSize: Theme.px(13)
                    elide: Text.ElideMiddle
                }
                Text {
                    id: key

                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    y: row.above + (row.height - row.above - height) / 2
                    text: row.modelData.isMySelected ? "✓" : row.modelData.key
                    color: Theme.mutedText
                    font.pixelSize: Theme.px(12)
                }
            }

            Tip {
                name: row.modelData.name
                isAsked: root.hasTips && row.hovered && row.index >= root.headedFrom
            }
        }
    }
}
