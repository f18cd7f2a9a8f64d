// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// What all views of a MySlider share: how it is moved by pointer, wheel and keys, and its place for
// a handle. A double click restores the default.
FocusScope {
    id: root

    required property Controls.MySlider controller
    property real handleSize: 22
    property real reach: 4 // a press this far above or below hits the slider, too
    property bool isWriting: false // keys go to a text field
    readonly property real room: width - handleSize
    readonly property real handleX: shareOf(controller.value) * room
    readonly property alias isHeld: knob.pressed

    // For screen readers, which look for these names and may write the value.
    property real value
    readonly property real minimumValue: controller.minimumValue
    readonly property real maximumValue: controller.maximumValue
    readonly property real stepSize: controller.step

    onValueChanged: {
        if (Math.abs(value - controller.value) > 1e-6)
            controller.moveTo(value);
        value = controller.value; // if it was out of range
    }

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
    Accessible.name: controller.name
    Accessible.description: controller.text
    Accessible.focusable: true
    Accessible.onIncreaseAction: controller.moveBy(1)
    Accessible.onDecreaseAction: controller.moveBy(-1)

    Binding {
        target: root
        property: "value"
        value: root.controller.value
    }

    Keys.onPressed: event => event.accepted = !isWriting && controller.pressKey(event.key, event.modifiers)

    MouseArea {
        id: knob

        property real grip // where the handle is held, from its left edge; negative: not held

        anchors.fill: parent
        anchors.topMargin: -root.reach
        anchors.bottomMargin: -root.reach
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            const inside = mouse.x - root.handleX;
            grip = inside >= 0 && inside <= root.handleSize ? inside : root.handleSize / 2;
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
    Tip {
        name: root.controller.name
        isAsked: knob.containsMouse && !knob.pressed
    }
}
