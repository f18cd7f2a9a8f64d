// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A TimePickerView: two wheels for the duration dialog.
Item {
    id: root

    required property var controller

    implicitHeight: 140

    Rectangle {
        anchors.verticalCenter: picker.verticalCenter
        anchors.left: picker.left
        anchors.right: picker.right
        height: 28
        radius: Theme.radius
        color: Theme.buttonFillClear
    }
    Item {
        id: picker

        anchors.horizontalCenter: parent.horizontalCenter
        width: 252
        height: parent.height

        Wheel {
            x: 12
            name: qsTr("Minutes")
            rows: root.controller.rows
            row: root.controller.minutes
            onPicked: row => root.controller.select(0, row)
            focus: true
        }
        WheelLabel {
            x: 72
            text: "Min"
        }
        Wheel {
            x: 132
            name: qsTr("Seconds")
            rows: root.controller.rows
            row: root.controller.seconds
            onPicked: row => root.controller.select(1, row)
        }
        WheelLabel {
            x: 192
            text: "Sec"
        }
    }

    component WheelLabel: Text {
        anchors.verticalCenter: parent.verticalCenter
        width: 60
        color: Theme.text
        font.pixelSize: Theme.px(13)
        font.bold: true
    }
}
