// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Timeline as Timeline

// What moves over the marks of a time line: the playhead, the guide of a snap, the frame that picks, and
// the time of what is dragged.
Item {
    id: root

    required property Timeline.TimelineController controller
    required property real rulerHeight
    readonly property Timeline.TimelineHand hand: controller.hand

    Rectangle {
        x: root.hand.frame.x
        y: root.hand.frame.y
        width: root.hand.frame.width
        height: root.hand.frame.height
        visible: width > 0
        color: Qt.alpha(Theme.accentText, 0.25)
        border.color: Theme.accentText
    }
    Rectangle {
        x: Math.round(root.hand.guideX)
        width: 1
        height: parent.height
        visible: root.hand.guideX >= 0
        color: Theme.hint
    }
    Rectangle {
        id: playhead

        x: Math.round(root.controller.playheadX) - 1
        width: 2
        height: parent.height - 1
        color: Theme.text
    }
    Pill {
        centerX: root.controller.playheadX
        text: root.controller.playheadText
        color: Theme.text
        visible: root.hand.timeText === ""
    }
    Pill {
        centerX: root.hand.timeX
        text: root.hand.timeText
        color: Theme.hint
        visible: text !== ""
    }

    // A time in the ruler.
    component Pill: Rectangle {
        id: pill

        required property real centerX
        required property string text

        x: Math.max(0, Math.min(root.width - width, Math.round(centerX - width / 2)))
        width: words.implicitWidth + 8
        height: root.rulerHeight
        radius: 3

        Text {
            id: words

            anchors.centerIn: parent
            text: pill.text
            color: Theme.background
            font.family: Theme.digitsFamily
            font.pixelSize: Theme.px(10)
            font.weight: Font.DemiBold
        }
    }
}
