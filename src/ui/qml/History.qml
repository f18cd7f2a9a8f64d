// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// View of a HistoryController: the performance, with a row for each action.
FocusScope {
    id: root

    required property Screens.HistoryController controller

    focus: true
    Keys.onEscapePressed: controller.dismissViewController()
    Keys.forwardTo: [list] // so that keys also work after a click outside the list
    Component.onCompleted: controller.viewDidAppear()

    Shortcut {
        sequence: "Ctrl+Z"
        enabled: root.enabled
        onActivated: root.controller.putBack()
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.row
    }
    MouseArea { // keeps the mouse away from the items below
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }

    Item {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 860)
        height: parent.height

        ScreenBar {
            id: bar

            width: parent.width
            title: root.controller.title
            titleColor: root.controller.showsHint ? Theme.hint : Theme.mutedText

            leading: ScreenButton {
                image: "CloseButton_Gray"
                name: qsTr("Close")
                key: "Esc"
                onClicked: root.controller.dismissViewController()
            }
            trailing: [
                ScreenButton {
                    visible: root.controller.canPutBack
                    text: qsTr("Put Back")
                    key: "Ctrl+Z"
                    onClicked: root.controller.putBack()
                },
                ScreenButton {
                    text: root.controller.sortTitle
                    tint: Theme.mutedText
                    onClicked: root.controller.sortFunction()
                }
            ]
        }
        Rectangle {
            anchors.top: bar.bottom
            width: parent.width
            height: 1
            color: Theme.separator
        }
        ListView {
            id: list

            property int openRow: -1

            anchors.fill: parent
            anchors.topMargin: bar.height + 6
            anchors.bottomMargin: 18
            clip: true
            focus: true
            model: root.controller.rows
            activeFocusOnTab: true
            keyNavigationEnabled: true
            highlightMoveDuration: 0
            boundsBehavior: Flickable.StopAtBounds
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Actions")

            // A held key deletes only one row.
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace;
                if (event.accepted && !event.isAutoRepeat)
                    root.controller.deleteRow(currentIndex);
            }
            onMovementStarted: openRow = -1

            delegate: HistoryRow {
                required property int index

                width: ListView.view.width
                height: Math.max(root.controller.cellHeight, implicitHeight)
                isCurrent: ListView.isCurrentItem && root.activeFocus
                isOpen: list.openRow === index
                onPicked: list.currentIndex = index
                onOpened: list.openRow = index
                onClosed: if (list.openRow === index) list.openRow = -1
                onDeleted: {
                    list.openRow = -1;
                    root.controller.deleteRow(index);
                }
            }
            remove: Transition {
                NumberAnimation { property: "opacity"; to: 0; duration: 120 * Theme.motion }
            }
            displaced: Transition {
                NumberAnimation { property: "y"; duration: 160 * Theme.motion; easing.type: Easing.OutCubic }
                NumberAnimation { property: "opacity"; to: 1; duration: 0 }
            }
        }
        Text {
            anchors.centerIn: parent
            visible: list.count === 0
            text: qsTr("No actions")
            color: Theme.mutedText
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
        }
    }
}
