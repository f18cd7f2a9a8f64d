// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Layouter as Layouter

// An ImagePanel: picture and word side by side on each button.
Item {
    id: root

    required property Layouter.ImagePanel controller

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        height: parent.height
        spacing: 3

        Repeater {
            model: root.controller.buttons
            delegate: MyButton {
                id: button

                required property Controls.MyButton modelData

                controller: modelData
                height: 36
                implicitWidth: Math.max(110, face.implicitWidth + 24)

                contentItem: Item {
                    Row {
                        id: face

                        anchors.centerIn: parent
                        spacing: 7

                        Icon {
                            width: 20
                            height: 20
                            anchors.verticalCenter: parent.verticalCenter
                            name: button.controller.image
                        }
                        Text {
                            anchors.verticalCenter: parent.verticalCenter
                            text: button.controller.title
                            color: button.controller.textColor
                            font.pixelSize: Theme.px(13)
                            font.weight: Font.DemiBold
                        }
                    }
                }
            }
        }
    }
}
