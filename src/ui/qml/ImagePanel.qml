// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Layouter as Layouter

// View of an ImagePanel: buttons with a picture and a word.
Item {
    id: root

    required property Layouter.ImagePanel controller

    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        height: parent.height
        spacing: 3

        Repeater {
            model: root.controller.buttons
            delegate: PictureButton {
                required property Controls.MyButton modelData

                controller: modelData
            }
        }
    }
}
