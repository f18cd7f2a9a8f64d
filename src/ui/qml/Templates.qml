// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// View of a TemplatesController: an empty stage and the templates, whose previews run.
FocusScope {
    id: root

    required property Screens.TemplatesController controller

    focus: true
    Keys.onEscapePressed: controller.dismissViewController()
    Keys.forwardTo: [grid] // so that keys also work after a click outside the grid

    Rectangle {
        anchors.fill: parent
        color: Theme.row
    }
    MouseArea { // keeps the mouse away from the items below
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    ScreenBar {
        id: bar

        width: parent.width
        title: qsTr("New movie")

        leading: ScreenButton {
            image: "CloseButton_Gray"
            name: qsTr("Close")
            key: "Esc"
            onClicked: root.controller.dismissViewController()
        }
    }
    GridView {
        id: grid

        readonly property real room: Math.min(root.width - 32, 1240)
        readonly property int columns: Math.max(1, Math.floor(room / 230))

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        width: room
        topMargin: 8
        bottomMargin: 18
        cellWidth: width / columns
        cellHeight: (cellWidth - 16) * root.controller.rows.frameHeight / root.controller.rows.frameWidth + Theme.px(14) + 34
        clip: true
        focus: true
        activeFocusOnTab: true
        model: root.controller.rows
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 2000 // all of them: none may come to life while the user scrolls
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Templates")
        Keys.onReturnPressed: event => { if (!event.isAutoRepeat) root.controller.choose(currentIndex) }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat) root.controller.choose(currentIndex) }
        Keys.onSpacePressed: event => { if (!event.isAutoRepeat) root.controller.choose(currentIndex) }

        delegate: TemplateTile {
            required property int index

            width: grid.cellWidth
            height: grid.cellHeight
            rows: root.controller.rows
            isCurrent: GridView.isCurrentItem && root.activeFocus
            onPicked: {
                grid.currentIndex = index;
                root.controller.choose(index);
            }
        }
    }
    Text {
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 12
        anchors.horizontalCenter: parent.horizontalCenter
        visible: text !== ""
        text: root.controller.failure
        color: Theme.hint
        font.pixelSize: Theme.px(14)
        font.weight: Font.Medium
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
}
