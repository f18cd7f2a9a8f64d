// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A line below the list of albums: while the music is looked through, a moving bar and how many songs
// there are by now; afterwards what could not be read.
Item {
    id: root

    property bool isMoving
    property string text

    height: text !== "" ? 30 : 0
    visible: height > 0
    clip: true
    Accessible.role: Accessible.ProgressBar
    Accessible.name: text

    Rectangle {
        width: parent.width
        height: 2
        visible: root.isMoving
        color: Theme.separator
        clip: true

        Rectangle {
            width: parent.width / 4
            height: parent.height
            color: Theme.accent

            NumberAnimation on x {
                running: root.visible && root.isMoving && !Theme.isMotionReduced
                loops: Animation.Infinite
                from: -root.width / 4
                to: root.width
                duration: 1600
            }
        }
    }
    Text {
        anchors.fill: parent
        anchors.topMargin: 2
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: root.text
        color: Qt.lighter(Theme.mutedText, 1.2)
        font.pixelSize: Theme.px(12)
    }
}
