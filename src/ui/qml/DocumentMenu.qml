// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Documents as Documents

// What can be done with the document, and the documents of late. While it is open, it has all keys; a
// press elsewhere closes it.
T.Popup {
    id: root

    required property Documents.DocumentController controller
    readonly property real room: (Window.window?.height ?? 720) - 94 - 45 - 24 // between the bars

    y: parent.height + 6
    padding: 6
    implicitWidth: 300
    implicitHeight: Math.min(rows.contentHeight, room) + 2 * padding
    focus: true
    visible: controller.isMenuOpen
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    onClosed: controller.isMenuOpen = false
    onAboutToShow: contentItem.parent.Accessible.name = controller.menuButton.name
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
        model: root.controller.menu
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        keyNavigationWraps: true
        highlightMoveDuration: 0
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.controller.menuButton.name
        Keys.onReturnPressed: root.controller.choose(currentIndex)
        Keys.onEnterPressed: root.controller.choose(currentIndex)
        Keys.onSpacePressed: root.controller.choose(currentIndex)

        delegate: T.AbstractButton {
            id: row

            required property int index
            required property Controls.MyButton modelData
            readonly property bool isFirstRecent: index === root.controller.commandCount
            readonly property real above: isFirstRecent ? 34 : 0

            width: ListView.view.width
            height: 38 + above
            hoverEnabled: true
            Accessible.name: modelData.name
            Accessible.selectable: true
            Accessible.selected: ListView.isCurrentItem
            Accessible.onPressAction: modelData.click()
            Spoken.role: Accessible.MenuItem
            Spoken.key: modelData.key
            onClicked: modelData.click()
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
                    visible: row.isFirstRecent
                    text: qsTr("Recent")
                    color: Theme.mutedText
                    font.pixelSize: Theme.px(11)
                    font.weight: Font.DemiBold
                }
                Rectangle {
                    visible: row.isFirstRecent
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
                    color: Theme.text
                    font.pixelSize: Theme.px(13)
                    elide: Text.ElideMiddle
                }
                Text {
                    id: key

                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    y: row.above + (row.height - row.above - height) / 2
                    text: row.modelData.key
                    color: Theme.mutedText
                    font.pixelSize: Theme.px(12)
                }
            }

            Tip {
                name: row.modelData.name
                isAsked: row.hovered && row.index >= root.controller.commandCount
            }
        }
    }
}
