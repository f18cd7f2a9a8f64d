// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// View of an Inspirator. While the button is disabled, its title fades out and in by itself.
Item {
    id: root

    required property Layouter.Inspirator controller

    MyButton {
        id: button

        anchors.horizontalCenter: parent.horizontalCenter
        width: 200
        height: 36
        reach: 4
        dimmed: 1
        controller: root.controller.button

        contentItem: Item {
            Text {
                anchors.centerIn: parent
                text: button.controller.title
                color: button.controller.textColor
                font.pixelSize: Theme.px(13)
                font.weight: Font.DemiBold
                opacity: root.controller.titleAlpha

                Behavior on opacity {
                    NumberAnimation {
                        duration: root.controller.titleFadeMilliseconds * Theme.motion
                    }
                }
            }
        }
    }
}
