// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// The stretch of the song on the timeline: a window on the song, with a handle at each end.
Item {
    id: root

    required property Audio.AudioViewController controller
    required property TimelineScroller timeline
    readonly property color handleColor: Theme.text

    x: timeline.xOf(controller.audioPreRoll)
    width: Math.max(0, controller.audioEnd - controller.audioIn) * timeline.pointsPerSecond
    visible: controller.hasSong

    StretchGrip {
        id: body

        anchors.fill: parent
        controller: root.controller.draggableView
        timeline: root.timeline
        isScrolledByTouch: true

        Rectangle {
            anchors.fill: parent
            opacity: body.controller.isHeld ? 0.3 : 1
            color: body.controller.isHeld ? root.handleColor : Theme.accent

            Behavior on opacity {
                NumberAnimation { duration: 170 * Theme.motion }
            }
            Behavior on color {
                ColorAnimation { duration: 170 * Theme.motion }
            }
        }
        Audio.WaveformItem {
            anchors.fill: parent
            clip: true
            waveform: root.controller.waveform
            pointsPerSecond: root.timeline.pointsPerSecond
            songTime: root.controller.audioIn
            duration: root.controller.totalDuration
        }
        Rectangle {
            anchors.fill: parent
            color: "transparent"
            border.color: root.handleColor
            border.width: 1.5
        }
    }
    StretchGrip {
        x: -width
        width: 9
        height: parent.height
        reachLeft: 14
        reachRight: 5
        controller: root.controller.leftDragger
        timeline: root.timeline

        HandleFace {
            isLeft: true
        }
    }
    StretchGrip {
        x: parent.width
        width: 9
        height: parent.height
        reachLeft: 5
        reachRight: 14
        controller: root.controller.rightDragger
        timeline: root.timeline

        HandleFace {
            isLeft: false
        }
    }

    // Round on the outside.
    component HandleFace: Item {
        id: face

        required property bool isLeft

        anchors.fill: parent
        clip: true

        Rectangle {
            x: face.isLeft ? 0 : -Theme.radius
            width: parent.width + Theme.radius
            height: parent.height
            radius: Theme.radius
            color: Theme.text
        }
        Rectangle {
            anchors.centerIn: parent
            width: 2
            height: Math.min(14, parent.height * 0.5)
            radius: 1
            color: Theme.background
        }
    }
}
