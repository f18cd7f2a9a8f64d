// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// View of a MySlider. A double click restores the default; a click on the number lets the user type
// one.
SliderArea {
    id: root

    readonly property real middle: shareOf(0) // the fill starts at zero, if zero is in the range

    isWriting: number.isWriting
    Keys.onReturnPressed: number.isWriting = true
    Keys.onEnterPressed: number.isWriting = true

    Rectangle {
        id: track

        objectName: "edge"
        x: handle.width / 2
        anchors.verticalCenter: parent.verticalCenter
        width: root.room
        height: 6
        radius: 3
        color: Theme.buttonFill
        border.color: Theme.mutedText

        Rectangle {
            readonly property real end: root.shareOf(root.controller.value)

            x: Math.min(root.middle, end) * parent.width
            y: 1
            width: Math.abs(root.middle - end) * parent.width
            height: parent.height - 2
            radius: parent.radius
            color: Theme.accent
        }
        Rectangle {
            x: root.middle * parent.width - width / 2
            anchors.verticalCenter: parent.verticalCenter
            width: 2
            height: 10
            visible: root.middle > 0 && root.middle < 1
            color: Theme.mutedText
        }
    }
    Rectangle {
        id: handle

        x: root.handleX
        anchors.verticalCenter: parent.verticalCenter
        width: root.handleSize
        height: root.handleSize
        radius: width / 2
        color: root.isHeld ? Qt.darker(Theme.text, 1.15) : Theme.text

        FocusRing {
            radius: parent.radius + 2
            shown: root.activeFocus && !number.isWriting
            border.color: Theme.accent
        }
    }
    SliderNumber {
        id: number

        // On the side of the handle where the track is not filled, if there is room.
        readonly property real placeLeft: handle.x - width - 6
        readonly property real placeRight: handle.x + handle.width + 6
        readonly property bool isFilledLeft: root.shareOf(root.controller.value) >= root.middle
        readonly property bool isRight: placeRight + width <= root.width && (isFilledLeft || placeLeft < 0)

        x: isRight ? placeRight : placeLeft
        anchors.verticalCenter: parent.verticalCenter
        controller: root.controller
        onDone: root.forceActiveFocus(Qt.TabFocusReason)
    }
}
