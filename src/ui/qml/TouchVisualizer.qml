// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// View of a Visualizer: marks for the fingers, on top of everything else in the window.
Item {
    id: root

    required property Screens.Visualizer controller

    Accessible.ignored: true

    Repeater {
        model: root.controller.touchViews

        Item {
            id: finger

            required property Screens.TouchView modelData

            x: modelData.center.x - width / 2
            y: modelData.center.y - height / 2
            width: modelData.size.width
            height: modelData.size.height
            scale: modelData.ratio
            opacity: modelData.isShown ? 1 : 0

            Behavior on opacity {
                NumberAnimation { duration: finger.modelData.fadeMilliseconds * Theme.motion }
            }
            Rectangle {
                anchors.fill: parent
                visible: String(picture.source) === ""
                radius: width / 2
                color: finger.modelData.color
                border.color: "white"
                border.width: 2
            }
            Image {
                id: picture

                anchors.fill: parent
                source: finger.modelData.image
                fillMode: Image.PreserveAspectFit
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.bottom: parent.top
                anchors.bottomMargin: 6
                text: finger.modelData.timerLabel
                color: "white"
                style: Text.Outline
                styleColor: "black"
                font.pixelSize: 13
            }
        }
    }
}
