// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// View of a FuncButton: acts when it is pressed by finger, mouse or key, not when it is released.
Rectangle {
    id: root

    required property Controls.FuncButton controller
    property bool isKnown: false // pressed or dismissed since the pointer came: no tooltip is needed
    property bool isHeld: false // by a finger
    readonly property bool hasName: controller.name !== controller.title

    implicitWidth: 90
    implicitHeight: 36
    radius: Theme.radius
    color: controller.unselectedColor
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: controller.name
    Accessible.description: controller.isHold ? qsTr("to be held") : ""
    Accessible.focusable: true
    Accessible.pressed: controller.isPressed
    Spoken.key: controller.key
    Accessible.onPressAction: {
        controller.press();
        controller.release();
    }
    Accessible.onToggleAction: { // holds it, and lets it go
        if (controller.isPressed)
            controller.release();
        else
            controller.press();
    }
    Component.onDestruction: if (controller) controller.cancel()

    function isPressKey(event: KeyEvent): bool {
        return event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
    }

    Keys.onEscapePressed: event => {
        event.accepted = tip.visible;
        isKnown = true;
    }
    Keys.onPressed: event => {
        event.accepted = isPressKey(event);
        if (event.accepted && !event.isAutoRepeat)
            controller.press();
    }
    Keys.onReleased: event => {
        event.accepted = isPressKey(event);
        if (event.accepted && !event.isAutoRepeat)
            controller.release();
    }
    onActiveFocusChanged: {
        isKnown = false;
        if (!activeFocus)
            controller.cancel();
    }

    Rectangle {
        anchors.fill: parent
        radius: parent.radius
        color: Theme.text
        opacity: hover.hovered ? 0.09 : 0
    }
    Rectangle {
        id: light

        anchors.fill: parent
        radius: parent.radius
        color: root.controller.selectedColor
        opacity: 0
        states: [
            State { name: "flash"; when: root.controller.isFlashing; PropertyChanges { light.opacity: 1 } },
            State { name: "lit"; when: root.controller.isLit || (root.controller.isPulsing && Theme.isMotionReduced); PropertyChanges { light.opacity: 1 } }
        ]
        transitions: Transition {
            to: "flash"
            NumberAnimation { property: "opacity"; duration: 80 * Theme.motion }
        }

        SequentialAnimation {
            running: root.controller.isPulsing && !Theme.isMotionReduced
            loops: Animation.Infinite
            NumberAnimation { target: light; property: "opacity"; to: 1; duration: 80 * Theme.motion }
            NumberAnimation { target: light; property: "opacity"; to: 0; duration: 80 * Theme.motion }
        }
    }
    Icon {
        anchors.fill: parent
        anchors.topMargin: 3
        anchors.bottomMargin: 2 + below.height
        visible: name !== ""
        name: root.controller.image
    }
    Text {
        anchors.fill: parent
        anchors.leftMargin: 16 // beside the key
        anchors.rightMargin: 16
        anchors.bottomMargin: root.hasName ? below.height : 0
        text: root.controller.title
        color: Theme.text
        font.pixelSize: Theme.px(13)
        font.weight: Font.DemiBold
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.px(9)
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    Text {
        id: below

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 1
        x: 3
        width: parent.width - 6
        visible: root.hasName
        text: root.controller.name
        color: Theme.text
        font.pixelSize: Theme.px(10)
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
    }
    Text {
        id: digit

        x: 5
        y: 2
        text: root.controller.key
        color: root.controller.markColor
        font.pixelSize: Theme.px(10)
        font.weight: Font.DemiBold
    }
    Rectangle { // the mark of a button that is to be held
        anchors.top: digit.bottom
        anchors.horizontalCenter: digit.horizontalCenter
        width: Math.max(8, digit.width)
        height: 3
        radius: 1.5
        visible: root.controller.isHold
        color: root.controller.markColor
    }
    FocusRing {
        shown: root.activeFocus
    }

    HoverHandler {
        id: hover

        onHoveredChanged: root.isKnown = false
    }
    Connections {
        target: root.controller

        function onGlowChanged(): void {
            root.isKnown = true;
        }
    }
    PressArea {
        anchors.fill: parent
        onPressed: {
            root.isHeld = true;
            root.controller.press();
        }
        onReleased: {
            root.isHeld = false;
            root.controller.release();
        }
        onCanceled: {
            root.isHeld = false;
            root.controller.cancel();
        }
    }
    ActionTip {
        id: tip

        name: root.controller.name
        key: root.controller.key
        loop: root.controller.loop
        isHold: root.controller.isHold
        isAsked: Pointer.isInUse ? hover.hovered && !root.isKnown : root.isHeld || (root.activeFocus && !root.isKnown)
    }
}
