// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Timeline as Timeline

// View of a TimelineController: a thin strip with the button that plays, and the performance.
Bar {
    id: root

    required property Timeline.TimelineController controller

    color: Theme.background // opaque: the numbers of the ruler are small

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.separator
    }
    MyButton {
        id: play

        x: 6
        y: 1
        width: 40
        height: parent.height - 2
        horizontalInset: 9
        controller: root.controller.playButton
    }
    FocusScope {
        id: strip

        readonly property Timeline.TimelineHand hand: root.controller.hand
        readonly property real rulerHeight: Theme.px(12)
        property bool showsFocus: false // only to those who use the keyboard

        function openMenu(place: point, isFinger: bool): void {
            hand.pickForMenu(place, isFinger);
            root.controller.menu.open(place);
        }
        function tellRoom(): void {
            root.controller.setRoom(width, rulerHeight, height - rulerHeight - 1);
        }

        anchors.left: play.right
        anchors.right: parent.right
        anchors.leftMargin: 8
        anchors.rightMargin: 12
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: 1
        activeFocusOnTab: true
        onWidthChanged: tellRoom()
        onHeightChanged: tellRoom()

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Time line")
        Accessible.description: root.controller.summary
        Accessible.focusable: true
        Keys.onShortcutOverride: event => event.accepted = root.controller.takesKey(event.key, event.modifiers)
        Keys.onPressed: event => {
            event.accepted = root.controller.pressKey(event.key, event.modifiers);
            showsFocus = showsFocus || event.accepted;
        }
        onActiveFocusChanged: showsFocus = activeFocus
        Keys.onMenuPressed: root.controller.menu.open(Qt.point(root.controller.playheadX, 0))

        TimelineGround {
            anchors.fill: parent
            controller: root.controller
            rulerHeight: strip.rulerHeight
        }
        Repeater {
            model: root.controller.marks
            delegate: TimelineMark {
                hand: strip.hand
                onPicked: root.controller.pickOnly(identifier)
            }
        }
        TimelineCursor {
            anchors.fill: parent
            controller: root.controller
            rulerHeight: strip.rulerHeight
        }
        MouseArea {
            id: area

            readonly property point place: Qt.point(mouseX, mouseY)
            readonly property bool isFree: containsMouse && !strip.hand.isDragging && !root.controller.isRunning
            readonly property int hovered: isFree ? strip.hand.actAt(place, false) : -1

            function isFinger(mouse: MouseEvent): bool {
                return mouse.source !== Qt.MouseEventNotSynthesized;
            }

            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            hoverEnabled: true
            preventStealing: true
            cursorShape: hovered < 0 ? Qt.ArrowCursor : strip.hand.isEndAt(place, false) ? Qt.SizeHorCursor : Qt.PointingHandCursor
            onPressed: mouse => {
                strip.forceActiveFocus(Qt.MouseFocusReason);
                strip.showsFocus = false;
                if (mouse.button === Qt.RightButton)
                    strip.openMenu(place, false);
                else
                    strip.hand.press(place, mouse.modifiers, isFinger(mouse));
            }
            onPressAndHold: mouse => {
                if (isFinger(mouse) && !strip.hand.isDragging)
                    strip.openMenu(place, true);
            }
            onPositionChanged: mouse => {
                if (pressedButtons & Qt.LeftButton)
                    strip.hand.move(place, mouse.modifiers);
            }
            onReleased: mouse => {
                if (mouse.button === Qt.LeftButton)
                    strip.hand.release();
            }
            onCanceled: strip.hand.cancel()
        }
        Item {
            readonly property rect place: root.controller.placeOf(area.hovered)

            x: place.x
            width: place.width

            Tip {
                name: root.controller.titleOf(area.hovered)
                key: root.controller.detailsOf(area.hovered)
                isAsked: area.hovered >= 0 && !area.pressed && !root.controller.menu.isOpen
            }
        }
        TimelineMenu {
            controller: root.controller.menu
        }
        FocusRing {
            anchors.margins: -1
            shown: strip.showsFocus
        }
    }
}
