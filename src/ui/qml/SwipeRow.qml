// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A row of a list that can be deleted. A drag to the left opens "Delete". A row under the pointer,
// or with the keyboard focus, also has a button for it. The content is between the left margin and
// that button.
Item {
    id: root

    property string name // what the row is called when it is read out, and on its button
    property bool isCurrent
    property bool isOpen
    default property alias content: place.data
    readonly property real openWidth: 96
    readonly property real rest: isOpen ? -openWidth : 0
    readonly property real dragged: Math.max(-1.4 * openWidth, Math.min(0, rest + swipe.activeTranslation.x))

    signal picked // by a press or a drag
    signal tapped // while it was not open
    signal opened
    signal closed
    signal deleted

    clip: true

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.focused: isCurrent

    function settle() {
        if (dragged < -openWidth / 2)
            opened();
        else
            closed();
    }
    function tap() {
        const wasOpen = isOpen;
        picked();
        closed();
        if (!wasOpen)
            tapped();
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.row

        Rectangle {
            anchors.fill: parent
            color: Theme.text
            opacity: root.isCurrent ? 0.07 : hover.hovered ? 0.03 : 0
        }
        Rectangle {
            width: 3
            height: parent.height
            color: Theme.text
            visible: root.isCurrent
        }
        Item {
            id: place

            anchors.left: parent.left
            anchors.leftMargin: 18
            anchors.right: remover.left
            height: parent.height
        }
        Rectangle {
            anchors.bottom: parent.bottom
            x: 18
            width: parent.width - x
            height: 1
            color: Theme.separator
            opacity: 0.6
        }
        TapHandler {
            onTapped: root.tap()
        }
        ScreenButton {
            id: remover

            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Delete")
            name: qsTr("Delete %1").arg(root.name)
            tint: Theme.record
            focusPolicy: Qt.NoFocus
            opacity: !root.isOpen && (hover.hovered || root.isCurrent) ? 1 : 0
            enabled: opacity > 0
            onClicked: root.deleted()
        }
    }
    Rectangle { // slides over the row, so that the text stays readable
        property real pull: swipe.active ? root.dragged : root.rest

        x: root.width + pull
        width: Math.max(root.openWidth, -pull)
        height: root.height
        color: Theme.record
        visible: pull < 0

        Behavior on pull {
            enabled: !swipe.active
            NumberAnimation { duration: 140; easing.type: Easing.OutCubic }
        }

        ScreenButton {
            anchors.fill: parent
            text: qsTr("Delete")
            name: qsTr("Delete %1").arg(root.name)
            focusPolicy: Qt.NoFocus
            onClicked: root.deleted()
        }
    }
    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    DragHandler {
        id: swipe

        target: null
        yAxis.enabled: false
        onActiveChanged: active ? root.picked() : root.settle()
    }
}
