// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio
import Zelvo.Timeline as Timeline

// What lies behind the marks of a time line: the ruler, the music and its beats.
Item {
    id: root

    required property Timeline.TimelineController controller
    required property real rulerHeight
    readonly property Timeline.TimelineMusic music: controller.music
    readonly property real pointsPerSecond: controller.pointsPerSecond
    readonly property real step: pointsPerSecond > 0 ? controller.labelStep(Theme.px(56)) : 1

    Rectangle {
        y: root.rulerHeight
        width: parent.width
        height: parent.height - y - 1
        radius: 2
        color: Theme.row
    }
    Item {
        y: root.rulerHeight
        width: parent.width
        height: parent.height - y - 1
        clip: true
        visible: root.music.hasSong

        Item {
            x: root.music.begins * root.pointsPerSecond
            width: root.music.length * root.pointsPerSecond
            height: parent.height
            clip: true

            Audio.WaveformItem {
                anchors.fill: parent
                waveform: root.music.waveform
                pointsPerSecond: root.pointsPerSecond
                songTime: root.music.songTime
                duration: root.music.songDuration
                color: Theme.waveform
            }
        }
        Repeater {
            model: root.music.beats
            delegate: Rectangle {
                required property real modelData

                x: Math.round(modelData * root.pointsPerSecond)
                width: 1
                height: parent?.height ?? 0
                color: Theme.ringTrack
            }
        }
    }
    Repeater {
        model: Math.floor(root.controller.duration / root.step + 0.001) + 1
        delegate: Item {
            id: tick

            required property int index

            x: Math.round(index * root.step * root.pointsPerSecond)
            height: root.height

            Rectangle {
                width: 1
                height: parent.height - 1
                color: Theme.separator
            }
            Text {
                x: 4
                height: root.rulerHeight
                visible: tick.x + width + 6 < root.width
                text: root.controller.labelOf(tick.index * root.step)
                color: Qt.lighter(Theme.mutedText, 1.5)
                verticalAlignment: Text.AlignVCenter
                font.family: Theme.digitsFamily
                font.pixelSize: Theme.px(10)
            }
        }
    }
}
