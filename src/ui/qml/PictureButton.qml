// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// View of a MyButton: a picture and a word next to each other.
MyButton {
    id: root

    property real minimumWidth: 110

    height: 36
    reach: 4
    implicitWidth: Math.max(minimumWidth, face.implicitWidth + 24)

    contentItem: Item {
        Row {
            id: face

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
                text: root.controller.title
                color: root.controller.textColor
                font.pixelSize: Theme.px(13)
                font.weight: Font.DemiBold
            }
        }
    }
}
