// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// The songs of an album. Those that cannot be used are dimmed and have a mark.
FocusScope {
    id: root

    required property Audio.SongsTableViewController controller
    required property Audio.CoverPictures covers

    focus: true
    Keys.forwardTo: [list] // so that keys also work after a click outside the list
    Keys.onEscapePressed: controller.backAction()
    Accessible.role: Accessible.Pane
    Accessible.name: controller.title

    Rectangle {
        anchors.fill: parent
        color: Theme.row
    }
    MouseArea { // keeps the mouse away from the list below
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    ScreenBar {
        id: bar

        width: parent.width
        title: root.controller.title

        leading: ScreenButton {
            image: "LargeLayoutBackButton"
            name: qsTr("Back")
            key: "Esc"
            onClicked: root.controller.backAction()
        }
    }
    Rectangle {
        anchors.top: bar.bottom
        width: parent.width
        height: 1
        color: Theme.separator
    }
    ListView {
        id: list

        anchors.fill: parent
        anchors.topMargin: bar.height + 1
        clip: true
        focus: true
        model: root.controller.rows
        activeFocusOnTab: true
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: root.controller.title

        Keys.onReturnPressed: root.controller.pickRow(currentIndex)
        Keys.onEnterPressed: root.controller.pickRow(currentIndex)
        Keys.onLeftPressed: root.controller.backAction()
        Keys.onPressed: event => {
            event.accepted = event.key === Qt.Key_Backspace;
            if (event.accepted && !event.isAutoRepeat)
                root.controller.backAction();
        }

        delegate: MusicRow {
            id: row

            required property int index
            required property Audio.songRowData modelData

            width: ListView.view.width
            height: root.controller.cellHeight
            isCurrent: ListView.isCurrentItem && root.activeFocus
            isDimmed: row.modelData.icon !== ""
            covers: root.covers
            picture: row.modelData.cover
            text: row.modelData.title
            icon: row.modelData.icon
            iconName: row.modelData.state
            note: row.modelData.duration
            onPicked: {
                list.currentIndex = row.index;
                root.controller.pickRow(row.index);
            }
        }
    }
    Connections {
        property int chosen: 0
        property real place: 0

        target: root.controller

        function onChanging(): void {
            chosen = list.currentIndex;
            place = list.contentY;
        }
        function onChanged(): void {
            Qt.callLater(() => {
                list.currentIndex = Math.min(chosen, list.count - 1);
                list.contentY = place;
            });
        }
    }
}
