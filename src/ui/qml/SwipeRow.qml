// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A row of a list that can be deleted. A drag to the left opens "Delete", and a second action if it
// has a title. A row under the pointer, or with the keyboard focus, also has buttons for them. The
// content is between the left margin and these buttons, the accessory at the right end.
Item {
    id: root

    property string name // what the row is called when it is read out, and on its button
    property bool isCurrent
    property bool isOpen
    property string secondTitle // empty: there is no second action
    property string secondName: secondTitle
    default property alias content: place.data
    property alias accessory: end.data
    readonly property real actionWidth: 96
    readonly property real openWidth: secondTitle === "" ? actionWidth : 2 * actionWidth
    readonly property real rest: isOpen ? -openWidth : 0
    readonly property real dragged: Math.max(-1.4 * openWidth, Math.min(0, rest + swipe.activeTranslation.x))

    signal picked // by a press or a drag
    signal tapped // while it was not open
    signal opened
    signal closed
    signal deleted
    signal secondChosen

    clip: true

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.focused: isCurrent
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: tap()

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
            anchors.right: buttons.left
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
        Row {
            id: buttons

            anchors.right: end.left
            anchors.verticalCenter: parent.verticalCenter
            opacity: !root.isOpen && (hover.hovered || root.isCurrent) ? 1 : 0
            enabled: opacity > 0

            ScreenButton {
                visible: root.secondTitle !== ""
                text: root.secondTitle
                name: root.secondName
                tint: Theme.howto
                focusPolicy: Qt.NoFocus
                onClicked: root.secondChosen()
            }
            ScreenButton {
                text: qsTr("Delete")
                name: qsTr("Delete %1").arg(root.name)
                tint: Theme.record
                focusPolicy: Qt.NoFocus
                onClicked: root.deleted()
            }
        }
        Item {
            id: end

            anchors.right: parent.right
            anchors.rightMargin: 8
            width: childrenRect.width
            height: parent.height
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
            NumberAnimation { duration: 140 * Theme.motion; easing.type: Easing.OutCubic }
        }

        ScreenButton {
            anchors.right: parent.right
            width: root.secondTitle === "" ? parent.width : root.actionWidth
            height: parent.height
            text: qsTr("Delete")
            name: qsTr("Delete %1").arg(root.name)
            focusPolicy: Qt.NoFocus
            onClicked: root.deleted()
        }
        Rectangle {
            width: parent.width - root.actionWidth
            height: parent.height
            color: Theme.howto
            visible: root.secondTitle !== ""

            ScreenButton {
                anchors.fill: parent
                text: root.secondTitle
                name: root.secondName
                focusPolicy: Qt.NoFocus
                onClicked: root.secondChosen()
            }
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
