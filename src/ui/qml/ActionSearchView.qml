// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Menus as Menus

// A field, and the buttons of the catalogue that it finds. The arrow keys choose one, also while the
// user is typing; Return presses it for as long as it is down.
Rectangle {
    id: root

    required property Menus.ActionsMenu controller
    readonly property Menus.ActionSearch search: controller.search
    property real room: 400 // between the panel and the bar at the top

    implicitWidth: 340
    implicitHeight: Math.min(50 + Math.max(1, search.count) * 46 + 6, 420, room - 12)
    radius: 10
    color: Theme.row
    border.color: Theme.separator

    Component.onCompleted: field.forceActiveFocus()
    Component.onDestruction: if (controller) controller.releaseHit()

    function moveBy(step: int): void {
        rows.currentIndex = Math.max(0, Math.min(rows.count - 1, rows.currentIndex + step));
    }
    function isPressKey(event: KeyEvent): bool {
        return event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
    }

    Keys.onUpPressed: moveBy(-1)
    Keys.onDownPressed: moveBy(1)
    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(rows.height / 46) - 1);
        event.accepted = true;
        if (isPressKey(event) && !event.isAutoRepeat)
            controller.pressHit(rows.currentIndex);
        else if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
            moveBy(event.key === Qt.Key_PageUp ? -page : page);
        else
            event.accepted = isPressKey(event);
    }
    Keys.onReleased: event => {
        event.accepted = isPressKey(event);
        if (event.accepted && !event.isAutoRepeat) {
            controller.releaseHit();
            field.selectAll(); // the next word replaces this one
        }
    }
    Keys.onEscapePressed: search.close()

    MouseArea { // keeps presses and the wheel away from the stage
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    SearchField {
        id: field

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 8
        height: 34
        name: qsTr("Search actions")
        onTextChanged: {
            root.search.text = text;
            rows.currentIndex = 0;
        }
        onActiveFocusChanged: if (!activeFocus) root.controller.releaseHit()
    }
    ListView {
        id: rows

        anchors.fill: parent
        anchors.topMargin: field.height + 14
        anchors.bottomMargin: 6
        clip: true
        model: root.search
        highlightMoveDuration: 0
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Actions")

        delegate: ActionSearchRow {
            width: ListView.view.width
            isCurrent: ListView.isCurrentItem
            onHeld: index => {
                rows.currentIndex = index;
                root.controller.pressHit(index);
            }
            onLetGo: root.controller.releaseHit()
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse
            onWheel: event => {
                const lowest = rows.originY + Math.max(0, rows.contentHeight - rows.height);
                rows.contentY = Math.max(rows.originY, Math.min(lowest, rows.contentY - event.angleDelta.y));
            }
        }
    }
    Text {
        anchors.centerIn: rows
        visible: root.search.count === 0
        text: qsTr("No action has this name")
        color: Qt.lighter(Theme.mutedText, 1.35)
        font.pixelSize: Theme.px(13)
    }
}
