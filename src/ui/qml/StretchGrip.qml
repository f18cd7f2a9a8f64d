// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// View of a Dragger: moved by pointer and keys. While it is moved, it says its time.
FocusScope {
    id: root

    required property Audio.Dragger controller
    required property TimelineScroller timeline
    property real reachLeft: 0 // a press this far beside it hits it, too
    property real reachRight: 0
    // A finger then has to rest on it first, because otherwise it scrolls.
    property bool isScrolledByTouch: false
    property bool showsFocus: false // only to those who use the keyboard

    // For screen readers, which look for these names.
    readonly property real value: controller.place
    readonly property real minimumValue: 0
    readonly property real maximumValue: timeline.seconds

    activeFocusOnTab: true

    Accessible.role: Accessible.Slider
    Accessible.name: controller.name
    Accessible.description: controller.timeText
    Accessible.focusable: true
    Accessible.onIncreaseAction: pressKey(Qt.Key_Right, Qt.NoModifier)
    Accessible.onDecreaseAction: pressKey(Qt.Key_Left, Qt.NoModifier)
    Keys.onPressed: event => event.accepted = pressKey(event.key, event.modifiers)
    onActiveFocusChanged: {
        showsFocus = activeFocus;
        if (activeFocus)
            timeline.reveal(controller.place);
    }

    function pressKey(key: int, modifiers: int): bool {
        if (!controller.pressKey(key, modifiers))
            return false;
        showsFocus = true;
        timeline.reveal(controller.place);
        return true;
    }

    MouseArea {
        id: area

        property real pressedAt: 0 // on the timeline's window
        property real pointer: 0

        function placeOf(x: real): real {
            return mapToItem(root.timeline, x, 0).x;
        }
        function timeOf(place: real): real {
            return root.timeline.timeAt(root.timeline.contentX + place);
        }
        function begin(): void {
            preventStealing = true;
            root.controller.beginDrag(timeOf(pressedAt));
        }
        function follow(): void {
            root.controller.dragTo(timeOf(pointer));
        }
        function end(): void {
            preventStealing = false;
            root.controller.endDrag();
        }

        anchors.fill: parent
        anchors.leftMargin: -root.reachLeft
        anchors.rightMargin: -root.reachRight
        cursorShape: !root.isScrolledByTouch ? Qt.SizeHorCursor : pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        pressAndHoldInterval: 300
        onPressed: mouse => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            root.showsFocus = false;
            pressedAt = placeOf(mouse.x);
            pointer = pressedAt;
            preventStealing = !root.isScrolledByTouch || mouse.source === Qt.MouseEventNotSynthesized;
        }
        onPressAndHold: if (!root.controller.isHeld) begin()
        onPositionChanged: mouse => {
            pointer = placeOf(mouse.x);
            if (preventStealing && !root.controller.isHeld && Math.abs(pointer - pressedAt) > 2)
                begin();
            follow();
        }
        onReleased: end()
        onCanceled: end()
    }
    Timer { // at an edge of the window, the timeline scrolls on
        interval: 16
        repeat: true
        running: root.controller.isHeld
        onTriggered: if (root.timeline.scrollAtEdge(area.pointer)) area.follow()
    }
    Rectangle {
        readonly property real wanted: root.isScrolledByTouch ? 0 : (root.width - width) / 2

        x: Math.max(wanted, root.timeline.contentX - root.timeline.xOf(root.controller.place) + (root.isScrolledByTouch ? 0 : root.width))
        y: -height
        z: 1
        width: words.implicitWidth + 10
        height: Math.max(13, words.implicitHeight)
        radius: 3
        visible: root.controller.isHeld || root.showsFocus
        color: Theme.text

        Text {
            id: words

            anchors.centerIn: parent
            text: root.controller.timeText
            color: Theme.background
            font.family: Theme.digitsFamily
            font.pixelSize: Theme.px(10)
            font.weight: Font.DemiBold
        }
    }
    FocusRing {
        anchors.margins: -1
        z: 1
        shown: root.showsFocus
        border.color: Theme.hint
    }
}
