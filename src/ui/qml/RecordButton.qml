// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// View of a RecordButton: a picture and the current time.
MyButton {
    id: root

    implicitWidth: Math.max(controller.width, content.implicitWidth + 16)
    isToggle: true

    dimmed: 0.8 // less than other buttons, because red is darker than white

    contentItem: Item {
        Rectangle {
            anchors.fill: parent
            anchors.margins: 3
            radius: Theme.radius - 2
            color: Theme.background
            opacity: root.controller.isMySelected ? 0.25 : 0.85
        }
        Row {
            id: content

            anchors.centerIn: parent
            spacing: 7

            Icon {
                width: 20
                height: 20
                anchors.verticalCenter: parent.verticalCenter
                name: root.controller.image
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                // As wide as the longest time, so that the button does not change while time runs.
                width: widest.advanceWidth
                text: root.controller.title
                color: root.controller.textColor
                font: widest.font
                horizontalAlignment: Text.AlignRight
            }
        }
        TextMetrics {
            id: widest

            text: "-0:00.00"
            font.pixelSize: Theme.px(13.5)
            font.weight: Font.DemiBold
            font.family: Theme.digitsFamily
        }
    }
}
