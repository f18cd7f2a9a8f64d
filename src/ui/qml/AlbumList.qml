// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// The list of albums, in sections by letter. Typing jumps to an album.
FocusScope {
    id: root

    required property Audio.AlbumTableViewController controller

    Keys.forwardTo: [list] // so that keys also work after a click outside the list

    ScreenBar {
        id: bar

        width: parent.width
        title: root.controller.title

        leading: ScreenButton {
            visible: root.controller.hasHelp
            text: qsTr("Help")
            tint: Theme.accentText
            onClicked: root.controller.showHelp()
        }
        trailing: ScreenButton {
            text: qsTr("Cancel")
            key: "Esc"
            onClicked: root.controller.dismissViewController()
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

        property string typed

        anchors.fill: parent
        anchors.topMargin: bar.height + 1
        anchors.bottomMargin: progress.height
        clip: true
        focus: true
        model: root.controller.rows
        activeFocusOnTab: true
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        cacheBuffer: 480 // covers are read before they come into sight
        Accessible.role: Accessible.List
        Accessible.name: root.controller.title

        Keys.onReturnPressed: root.controller.pickRow(currentIndex)
        Keys.onEnterPressed: root.controller.pickRow(currentIndex)
        Keys.onRightPressed: root.controller.pickRow(currentIndex)
        Keys.onPressed: event => {
            const page = Math.max(1, Math.floor(height / root.controller.cellHeight) - 1);
            const rows = {
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: count - 1,
                [Qt.Key_PageUp]: Math.max(0, currentIndex - page),
                [Qt.Key_PageDown]: Math.min(count - 1, currentIndex + page)
            };
            const isTyping = event.text > " " || (event.text === " " && typed !== "");
            event.accepted = rows[event.key] !== undefined || isTyping || event.key === Qt.Key_Backspace;
            if (rows[event.key] !== undefined)
                currentIndex = rows[event.key];
            else if (event.key === Qt.Key_Backspace)
                type(typed.slice(0, -1));
            else if (isTyping && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier)))
                type(typed + event.text);
        }

        function type(text: string): void {
            typed = text;
            typing.restart();
            const row = text === "" ? -1 : root.controller.rowOfTyped(text);
            if (row >= 0)
                jumpTo(row);
        }
        function jumpTo(row: int): void {
            currentIndex = row;
            positionViewAtIndex(row, ListView.Beginning);
            const isFirst = row === root.controller.rowOfSection(root.controller.sectionOfRow(row));
            if (!isFirst) // not below the letter at the top
                contentY = Math.max(originY, contentY - letter.height);
        }

        section.property: "section"
        delegate: Item {
            id: row

            required property int index
            required property string title
            required property string artist
            required property string cover
            readonly property string heading: ListView.section !== ListView.previousSection ? ListView.section : ""

            width: ListView.view.width
            height: header.height + root.controller.cellHeight

            SectionHeader {
                id: header

                width: parent.width
                section: row.heading
            }
            MusicRow {
                y: header.height
                width: parent.width
                height: root.controller.cellHeight
                rightMargin: edge.visible ? edge.width : 0
                isCurrent: row.ListView.isCurrentItem && root.activeFocus
                covers: root.controller.covers
                picture: row.cover
                text: row.title !== "" ? row.title : qsTr("Unknown Album")
                subText: row.artist
                onPicked: {
                    list.currentIndex = row.index;
                    root.controller.pickRow(row.index);
                }
            }
        }
        Timer {
            id: typing

            interval: 1200
            onTriggered: list.typed = ""
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse
            onWheel: event => {
                const lowest = list.originY + Math.max(0, list.contentHeight - list.height);
                list.contentY = Math.max(list.originY, Math.min(lowest, list.contentY - event.angleDelta.y));
            }
        }
    }
    SectionHeader { // stays, while the albums of its letter scroll
        id: letter

        anchors.top: list.top
        width: list.width
        visible: section !== "" && list.contentY > list.originY
        section: root.controller.sectionIndexTitles[edge.current] ?? ""
    }
    SectionIndex {
        id: edge

        anchors.right: list.right
        anchors.top: list.top
        anchors.bottom: list.bottom
        visible: count > 1
        controller: root.controller
        current: root.controller.sectionOfRow(Math.max(0, list.indexAt(4, list.contentY + 1)))
        onChosen: section => list.jumpTo(root.controller.rowOfSection(section))
    }
    MusicProgress {
        id: progress

        anchors.bottom: parent.bottom
        width: parent.width
        isMoving: root.controller.isIndexing
        text: root.controller.progress
    }
    EmptyMusic {
        anchors.centerIn: list
        width: list.width - 48
        visible: list.count === 0
        title: root.controller.emptyTitle
        text: root.controller.emptyText
        hasButtons: root.controller.isComplete
        onFolderAsked: root.controller.openMusicFolder()
        onDocumentAsked: root.controller.chooseDocument()
    }
}
