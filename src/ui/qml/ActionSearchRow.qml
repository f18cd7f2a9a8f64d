// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A row of the search for a button of the catalogue: what it does, its name, tab and key. It acts while
// it is pressed.
Item {
    id: root

    required property int index
    required property string name
    required property string tab
    required property string key
    required property string loop
    required property color markColor
    required property bool isHold
    property bool isCurrent

    signal held(int index)
    signal letGo

    height: 46

    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + tab
    Accessible.description: isHold ? qsTr("to be held") : ""
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: {
        held(index);
        letGo();
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        radius: Theme.radius
        color: root.isCurrent ? Theme.accent : Theme.text
        opacity: root.isCurrent ? 1 : hover.hovered ? 0.07 : 0
    }
    ActionLoop {
        id: picture

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 68
        height: 38
        mipmap: true
        loop: root.loop
        isRunning: root.isCurrent
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: picture.right
        anchors.leftMargin: 10
        anchors.right: place.left
        anchors.rightMargin: 8

        Text {
            width: parent.width
            text: root.name
            color: Theme.text
            font.pixelSize: Theme.px(13)
            elide: Text.ElideRight
        }
        Text {
            visible: root.isHold
            text: qsTr("to be held")
            color: Theme.text
            font.pixelSize: Theme.px(11)
        }
    }
    Rectangle {
        id: place

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 16
        width: placeText.implicitWidth + 12
        height: placeText.implicitHeight + 6
        radius: 4
        color: Theme.background

        Text {
            id: placeText

            anchors.centerIn: parent
            text: root.tab + " · " + root.key
            color: root.markColor
            font.pixelSize: Theme.px(11)
            font.weight: Font.DemiBold
        }
    }
    HoverHandler {
        id: hover
    }
    PressArea {
        anchors.fill: parent
        onPressed: root.held(root.index)
        onReleased: root.letGo()
        onCanceled: root.letGo()
    }
}
