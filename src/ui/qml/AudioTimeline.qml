// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// The timeline of the audio editor: the ruler, marks of the recorded presses, and the stretch of the
// song on it. A wheel scrolls; with Ctrl it zooms about the pointer, as two fingers do.
Rectangle {
    id: root

    required property Audio.AudioViewController controller
    readonly property real seconds: Math.max(controller.movieDuration, controller.audioPreRoll + controller.audioEnd - controller.audioIn) + 2
    // Above the ruler is room for the times of the presses, if there are any.
    readonly property real markBand: controller.marks.length > 0 ? 13 : 0

    radius: Theme.radius
    color: Theme.row

    Item {
        id: window

        anchors.fill: parent
        clip: true

        Rectangle { // after the movie there is nothing to hear
            x: scroller.xOf(root.controller.movieDuration) - scroller.contentX
            width: Math.max(0, parent.width - x)
            height: parent.height
            color: Theme.background

            Rectangle {
                width: 1
                height: parent.height
                color: Theme.mutedText
            }
        }
        Audio.RulerView {
            id: ruler

            y: root.markBand - 9
            width: parent.width
            height: 44
            labelSize: Theme.px(10)
            pointsPerSecond: scroller.pointsPerSecond
            beats: root.controller.beats ? root.controller.beats.marks : []
            origin: scroller.inset - scroller.contentX
        }
        TimelineScroller {
            id: scroller

            anchors.fill: parent
            seconds: root.seconds
            restingZoom: ruler.multiplier
            interactive: !pinch.active

            Stretch {
                timeline: scroller
                controller: root.controller
                y: root.markBand + 13
                height: scroller.height - y - 2
            }
            PressMarks {
                timeline: scroller
                controller: root.controller
                height: scroller.height
            }
            Rectangle { // the playhead
                visible: root.controller.isPreviewing
                x: scroller.xOf(root.controller.currentTimerTime) - width / 2
                width: 1.5
                height: scroller.height
                color: "white"
            }
        }
        PinchHandler {
            id: pinch

            property real start: 30

            target: null
            onActiveChanged: if (active) start = scroller.pointsPerSecond
            onActiveScaleChanged: if (active) scroller.zoomTo(start * activeScale, centroid.position.x)
        }
        TimelineWheel {
            orientation: Qt.Horizontal
        }
        TimelineWheel {
            orientation: Qt.Vertical
        }
    }
    Text {
        anchors.fill: parent
        anchors.leftMargin: scroller.inset
        anchors.topMargin: 10
        visible: !root.controller.hasSong
        text: qsTr("Import a song, or drop one on the window")
        color: Theme.text
        font.pixelSize: Theme.px(13)
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    Connections {
        target: root.controller

        function onSongChanged(): void {
            scroller.scrollTo(0);
        }
        function onProgressChanged(): void {
            if (!root.controller.isPreviewing)
                return;
            const x = scroller.xOf(root.controller.currentTimerTime) - scroller.contentX;
            if (x < 0 || x > root.width - scroller.inset)
                scroller.scrollTo(scroller.contentX + x - scroller.inset);
        }
    }

    component TimelineWheel: WheelHandler {
        readonly property bool isLevel: orientation === Qt.Horizontal

        function along(delta: point): real {
            const isMine = isLevel === Math.abs(delta.x) > Math.abs(delta.y);
            return isMine ? (isLevel ? delta.x : delta.y) : 0;
        }
        function turn(by: real, x: real, zooms: bool): void {
            if (zooms)
                scroller.zoomTo(scroller.pointsPerSecond * Math.pow(1.25, by / 120), x);
            else
                scroller.scrollTo(scroller.contentX - by);
        }

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => turn(along(event.pixelDelta) || along(event.angleDelta), event.x, (event.modifiers & Qt.ControlModifier) !== 0)
    }
}
