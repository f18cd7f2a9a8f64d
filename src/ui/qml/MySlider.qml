// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// View of a MySlider. A double click restores the default; a click on the number lets the user type
// one.
FocusScope {
    id: root

    required property Controls.MySlider controller
    readonly property real room: width - handle.width
    readonly property real middle: shareOf(0) // the fill starts at zero, if zero is in the range

    function shareOf(value: real): real {
        const share = (value - controller.minimumValue) / (controller.maximumValue - controller.minimumValue);
        return Math.max(0, Math.min(1, share));
    }
    function moveHandle(left: real): void {
        controller.moveTo(controller.minimumValue + left / room * (controller.maximumValue - controller.minimumValue));
    }

    implicitWidth: 160
    implicitHeight: 36
    activeFocusOnTab: true

    Accessible.role: Accessible.Slider
    Accessible.name: controller.name + " " + controller.text
    Accessible.focusable: true
    Accessible.onIncreaseAction: controller.moveBy(1)
    Accessible.onDecreaseAction: controller.moveBy(-1)
    Keys.onPressed: event => event.accepted = !number.isWriting && controller.pressKey(event.key, event.modifiers)
    Keys.onReturnPressed: number.isWriting = true
    Keys.onEnterPressed: number.isWriting = true

    Rectangle {
        id: track

        objectName: "edge"
        x: handle.width / 2
        anchors.verticalCenter: parent.verticalCenter
        width: root.room
        height: 6
        radius: 3
        color: Theme.buttonFill
        border.color: Theme.mutedText

        Rectangle {
            readonly property real end: root.shareOf(root.controller.value)

            x: Math.min(root.middle, end) * parent.width
            y: 1
            width: Math.abs(root.middle - end) * parent.width
            height: parent.height - 2
            radius: parent.radius
            color: Theme.accent
        }
        Rectangle {
            x: root.middle * parent.width - width / 2
            anchors.verticalCenter: parent.verticalCenter
            width: 2
            height: 10
            visible: root.middle > 0 && root.middle < 1
            color: Theme.mutedText
        }
    }
    MouseArea {
        id: knob

        property real grip // where the handle is held, from its left edge; negative: not held

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            const inside = mouse.x - handle.x;
            grip = inside >= 0 && inside <= handle.width ? inside : handle.width / 2;
            if (grip !== inside)
                root.moveHandle(mouse.x - grip);
        }
        onPositionChanged: mouse => { if (pressed && grip >= 0) root.moveHandle(mouse.x - grip) }
        onDoubleClicked: {
            grip = -1; // so that the rest of the second click does not move the handle
            root.controller.sliderTapped();
        }
    }
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => root.controller.moveBy((event.angleDelta.y || event.angleDelta.x) / 120)
    }
    Rectangle {
        id: handle

        x: root.shareOf(root.controller.value) * root.room
        anchors.verticalCenter: parent.verticalCenter
        width: 22
        height: 22
        radius: 11
        color: knob.pressed ? Qt.darker(Theme.text, 1.15) : Theme.text

        FocusRing {
            radius: parent.radius + 2
            shown: root.activeFocus && !number.isWriting
            border.color: Theme.accent
        }
    }
    SliderNumber {
        id: number

        // On the side of the handle where the track is not filled, if there is room.
        readonly property real placeLeft: handle.x - width - 6
        readonly property real placeRight: handle.x + handle.width + 6
        readonly property bool isFilledLeft: root.shareOf(root.controller.value) >= root.middle
        readonly property bool isRight: placeRight + width <= root.width && (isFilledLeft || placeLeft < 0)

        x: isRight ? placeRight : placeLeft
        anchors.verticalCenter: parent.verticalCenter
        controller: root.controller
        onDone: root.forceActiveFocus(Qt.TabFocusReason)
    }
    Tip {
        name: root.controller.name
        isAsked: knob.containsMouse && !knob.pressed
    }
}
