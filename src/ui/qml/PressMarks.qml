// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// A mark on the timeline for each recorded press, so that a beat can be laid under it. A press of its
// time plays the music from there. With the focus, arrow keys choose a mark and Return presses it.
Item {
    id: root

    required property Audio.AudioViewController controller
    required property TimelineScroller timeline
    property int current: 0 // of the keys
    readonly property int count: controller.marks.length
    readonly property real labelWidth: Theme.px(44)

    activeFocusOnTab: count > 0

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Recorded actions")
    Accessible.focusable: true
    Keys.onPressed: event => event.accepted = pressKey(event.key, event.isAutoRepeat)
    onActiveFocusChanged: if (activeFocus) choose(current)

    function choose(index: int): void {
        current = Math.max(0, Math.min(count - 1, index));
        if (current < count)
            timeline.reveal(controller.marks[current].time);
    }
    function pressKey(key: int, isRepeated: bool): bool {
        if (key === Qt.Key_Left || key === Qt.Key_Right)
            choose(current + (key === Qt.Key_Right ? 1 : -1));
        else if (key === Qt.Key_Home || key === Qt.Key_End)
            choose(key === Qt.Key_Home ? 0 : count - 1);
        else if ((key === Qt.Key_Return || key === Qt.Key_Enter) && !isRepeated && current < count)
            controller.seekPreview(controller.marks[current].time);
        else
            return false;
        return true;
    }

    Repeater {
        model: root.controller.marks
        delegate: Item {
            id: mark

            required property Audio.pressMark modelData
            required property int index
            readonly property bool isCurrent: root.activeFocus && index === root.current
            readonly property real room: index + 1 < root.count ? (root.controller.marks[index + 1].time - modelData.time) * root.timeline.pointsPerSecond : root.labelWidth
            readonly property bool hasLabel: room >= root.labelWidth || isCurrent

            x: root.timeline.xOf(modelData.time)
            z: isCurrent ? 1 : 0
            height: root.height

            Accessible.role: Accessible.Button
            Accessible.name: modelData.label + " " + modelData.title
            Accessible.onPressAction: root.controller.seekPreview(modelData.time)

            Rectangle {
                x: -0.5
                width: 1
                height: parent.height
                color: Theme.record
                opacity: 0.8
            }
            Rectangle {
                x: -1.5
                width: mark.hasLabel ? root.labelWidth - 2 : 5
                height: 13
                radius: 2
                color: area.containsPress ? Qt.darker(Theme.record, 1.3) : Theme.record

                Text {
                    anchors.centerIn: parent
                    visible: mark.hasLabel
                    text: mark.modelData.label
                    color: Theme.background
                    font.family: Theme.digitsFamily
                    font.pixelSize: Theme.px(10)
                    font.weight: Font.DemiBold
                }
                FocusRing {
                    anchors.margins: -1
                    shown: mark.isCurrent
                    radius: 3
                }
            }
            MouseArea {
                id: area

                x: -4
                width: Math.max(8, Math.min(root.labelWidth, mark.room) + 2)
                height: 18
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                onClicked: root.controller.seekPreview(mark.modelData.time)
            }
            Tip {
                name: mark.modelData.label + " " + mark.modelData.title
                isAsked: area.containsMouse && !area.pressed
            }
        }
    }
}
