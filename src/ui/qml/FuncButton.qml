// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// View of a FuncButton: acts when it is pressed by finger, mouse or key, not when it is released.
Rectangle {
    id: root

    required property Controls.FuncButton controller
    property bool isKnown: false // pressed since the pointer came; then no tooltip is needed

    implicitWidth: 90
    implicitHeight: 36
    radius: Theme.radius
    color: controller.unselectedColor
    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: controller.name
    Accessible.focusable: true
    Accessible.onPressAction: {
        controller.press();
        controller.release();
    }
    Component.onDestruction: if (controller) controller.cancel()

    function isPressKey(event: KeyEvent): bool {
        return event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
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
    onActiveFocusChanged: if (!activeFocus) controller.cancel()

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
            State { name: "lit"; when: root.controller.isLit; PropertyChanges { light.opacity: 1 } }
        ]
        transitions: Transition {
            to: "flash"
            NumberAnimation { property: "opacity"; duration: 80 }
        }

        SequentialAnimation {
            running: root.controller.isPulsing
            loops: Animation.Infinite
            NumberAnimation { target: light; property: "opacity"; to: 1; duration: 80 }
            NumberAnimation { target: light; property: "opacity"; to: 0; duration: 80 }
        }
    }
    Icon {
        anchors.fill: parent
        anchors.margins: 5
        visible: name !== ""
        name: root.controller.image
    }
    Text {
        anchors.fill: parent
        anchors.margins: 3
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
        onPressed: root.controller.press()
        onReleased: root.controller.release()
        onCanceled: root.controller.cancel()
    }
    Tip {
        name: root.controller.name
        key: root.controller.key
        isAsked: hover.hovered && !root.isKnown
    }
}
