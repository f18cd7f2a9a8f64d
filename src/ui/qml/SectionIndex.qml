// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo.Audio as Audio

// The letters of the sections along the right edge. A press or a drag goes to one. Where they have no
// room, some are left out; a drag still meets them.
Item {
    id: root

    required property Audio.AlbumTableViewController controller
    readonly property int count: controller.sectionIndexTitles.length
    property int current: -1
    readonly property int step: Math.max(1, Math.ceil(count * 14 / Math.max(1, height - 16)))
    readonly property real pitch: Math.min(20, (height - 16) / Math.max(1, count))

    signal chosen(int section)

    width: 44
    Accessible.role: Accessible.ScrollBar
    Accessible.name: qsTr("Letters of the albums")

    Item {
        id: letters

        width: parent.width
        height: root.pitch * root.count
        anchors.verticalCenter: parent.verticalCenter

        Repeater {
            model: root.controller.sectionIndexTitles

            Text {
                required property int index
                required property string modelData

                x: root.width - 30
                y: (index + 0.5) * root.pitch - height / 2
                width: 22
                visible: index % root.step === 0
                horizontalAlignment: Text.AlignHCenter
                text: modelData
                color: "white"
                opacity: index === root.current ? 1 : 0.72
                font.pixelSize: 11
                font.weight: index === root.current ? Font.Black : Font.Medium
                Accessible.role: Accessible.Link
                Accessible.name: modelData
                Accessible.onPressAction: root.chosen(index)
            }
        }
    }
    MouseArea {
        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => choose(mouse.y)
        onPositionChanged: mouse => choose(mouse.y)

        function choose(y: real): void {
            const section = Math.floor((y - letters.y) / root.pitch);
            root.chosen(Math.max(0, Math.min(root.count - 1, section)));
        }
    }
}
