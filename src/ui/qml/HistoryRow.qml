// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A row of the history. A drag to the left opens "Delete". A row under the pointer, or with the
// keyboard focus, also has a button for it.
Item {
    id: root

    required property string title
    required property string detail
    property bool isCurrent
    property bool isOpen
    readonly property real openWidth: 96
    readonly property real rest: isOpen ? -openWidth : 0
    readonly property real dragged: Math.max(-1.4 * openWidth, Math.min(0, rest + swipe.activeTranslation.x))

    signal picked
    signal opened
    signal closed
    signal deleted

    implicitHeight: texts.implicitHeight + 8
    clip: true

    Accessible.role: Accessible.ListItem
    Accessible.name: title + ", " + detail
    Accessible.focused: isCurrent

    function settle() {
        if (dragged < -openWidth / 2)
            opened();
        else
            closed();
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
        Column {
            id: texts

            anchors.left: parent.left
            anchors.leftMargin: 18
            anchors.right: remover.left
            anchors.verticalCenter: parent.verticalCenter
            spacing: 1

            Text {
                width: parent.width
                text: root.title
                color: Theme.text
                font.pixelSize: Theme.px(14)
                font.weight: Font.Medium
                elide: Text.ElideRight
            }
            Text {
                text: root.detail
                color: Theme.mutedText
                font.pixelSize: Theme.px(14)
                font.weight: Font.Medium
            }
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
            onTapped: {
                root.picked();
                root.closed();
            }
        }
        ScreenButton {
            id: remover

            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Delete")
            name: qsTr("Delete %1").arg(root.title)
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
            name: qsTr("Delete %1").arg(root.title)
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
