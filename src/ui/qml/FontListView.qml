// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Zelvo
import Zelvo.Layouter as Layouter

// The list of all fonts, with a search field. The arrow keys try one font after the other on the
// text, also while the user is typing in the field.
Rectangle {
    id: root

    required property Layouter.FontStrip controller
    readonly property Layouter.FontList list: controller.list
    readonly property real room: Window.height - 94 - 45 // between the panel and the bar at the top

    implicitWidth: 320
    implicitHeight: Math.min(480, room - 24)
    radius: 10
    color: Theme.row
    border.color: Theme.separator

    Component.onCompleted: field.forceActiveFocus()

    Keys.onUpPressed: list.moveBy(-1)
    Keys.onDownPressed: list.moveBy(1)
    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(rows.height / 40) - 1);
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        if (event.accepted)
            list.moveBy(event.key === Qt.Key_PageUp ? -page : page);
    }
    Keys.onReturnPressed: controller.openList(false)
    Keys.onEnterPressed: controller.openList(false)
    Keys.onEscapePressed: {
        if (field.text !== "")
            field.text = "";
        else
            controller.openList(false);
    }

    MouseArea { // keeps presses and the wheel away from the stage
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    SearchField {
        id: field

        anchors.left: parent.left
        anchors.right: importButton.left
        anchors.top: parent.top
        anchors.margins: 8
        anchors.rightMargin: 6
        height: 34
        name: qsTr("Search fonts")
        onTextChanged: root.list.search = text
    }
    PictureButton {
        id: importButton

        anchors.right: parent.right
        anchors.verticalCenter: field.verticalCenter
        anchors.rightMargin: 8
        height: field.height
        minimumWidth: 0
        controller: root.controller.importButton
        onClicked: root.controller.openList(false)
    }
    ListView {
        id: rows

        anchors.fill: parent
        anchors.topMargin: field.height + 16
        anchors.bottomMargin: 6
        clip: true
        model: root.list
        currentIndex: root.list.currentRow
        highlightMoveDuration: 0
        onHeightChanged: positionViewAtIndex(Math.max(0, root.list.currentRow), ListView.Center)
        boundsBehavior: Flickable.StopAtBounds
        reuseItems: true
        cacheBuffer: 800 // names are drawn before they come into sight
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Fonts")

        delegate: FontRow {
            width: ListView.view.width
            pictures: root.controller.pictures
            isCurrent: ListView.isCurrentItem
            heading: ListView.section !== ListView.previousSection ? ListView.section : ""
            onPicked: index => {
                root.list.choose(index);
                field.forceActiveFocus();
            }
        }
        section.property: "section"
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
        visible: root.list.count === 0
        text: qsTr("No font has this name")
        color: Theme.mutedText
        font.pixelSize: Theme.px(13)
    }
}
