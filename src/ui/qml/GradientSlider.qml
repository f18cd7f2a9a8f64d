// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// View of a GradientSlider: its handle shows the color, and the track what other places would give.
SliderArea {
    id: root

    required property Layouter.GradientSlider model

    controller: model.slider
    implicitHeight: 40
    handleSize: 24
    reach: 0

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: 10
        anchors.bottomMargin: 10
        radius: height / 2
        border.color: Theme.mutedText
        gradient: Gradient {
            orientation: Gradient.Horizontal

            // The colors at the ends begin under the middle of the handle.
            GradientStop { position: root.stopAt(0); color: root.model.image[0] }
            GradientStop { position: root.stopAt(1); color: root.model.image[1] }
            GradientStop { position: root.stopAt(2); color: root.model.image[2] }
            GradientStop { position: root.stopAt(3); color: root.model.image[3] }
            GradientStop { position: root.stopAt(4); color: root.model.image[4] }
            GradientStop { position: root.stopAt(5); color: root.model.image[5] }
            GradientStop { position: root.stopAt(6); color: root.model.image[6] }
        }
    }
    Rectangle {
        x: root.handleX
        anchors.verticalCenter: parent.verticalCenter
        width: root.handleSize
        height: root.handleSize
        radius: width / 2
        color: root.model.color
        border.width: 3
        border.color: root.isHeld ? Qt.darker(Theme.text, 1.15) : Theme.text

        Rectangle { // a dark edge, so that the white ring is visible on white
            anchors.fill: parent
            anchors.margins: -1
            radius: width / 2
            color: "transparent"
            border.color: Theme.background
        }
        FocusRing {
            anchors.margins: -4
            radius: parent.radius + 4
            shown: root.activeFocus
            border.color: Theme.accent
        }
    }

    function stopAt(place: int): real {
        return width > 0 ? (handleSize / 2 + place / 6 * room) / width : place / 6;
    }
}
