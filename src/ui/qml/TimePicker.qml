// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Menus as Menus

// View of a TimePickerView: two wheels for the duration dialog.
FocusScope {
    id: root

    required property Menus.TimePickerView controller

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
            id: minutes

            x: 12
            name: qsTr("Minutes")
            rows: root.controller.rows
            row: root.controller.minutes
            onPicked: row => root.controller.select(0, row)
            onTyped: digit => root.controller.type(0, digit)
            KeyNavigation.right: seconds
        }
        WheelLabel {
            x: 72
            text: qsTr("Min")
        }
        Wheel {
            id: seconds

            x: 132
            name: qsTr("Seconds")
            rows: root.controller.rows
            row: root.controller.seconds
            onPicked: row => root.controller.select(1, row)
            onTyped: digit => root.controller.type(1, digit)
            KeyNavigation.left: minutes
            focus: true // most users set only the seconds
        }
        WheelLabel {
            x: 192
            text: qsTr("Sec")
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
