// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Menus as Menus

// The loop of a button of the catalogue: what it does, again and again. Each step only moves the sheet
// of frames behind a window of one frame. Where less motion is wanted, the middle frame stands still.
Item {
    id: root

    property string loop
    property bool isRunning: visible
    property alias mipmap: sheet.mipmap // for less than its own size
    property int frame: 0
    readonly property int shown: isRunning && !Theme.isMotionReduced ? frame : columns * rows / 2
    readonly property int columns: Menus.LoopFormat.columns
    readonly property int rows: Math.max(1, Math.round(sheet.implicitHeight / Menus.LoopFormat.frameHeight))

    implicitWidth: Menus.LoopFormat.frameWidth
    implicitHeight: Menus.LoopFormat.frameHeight
    clip: true

    onIsRunningChanged: if (isRunning && !Theme.isMotionReduced) frame = 0

    Image {
        id: sheet

        x: -(root.shown % root.columns) * root.width
        y: -Math.floor(root.shown / root.columns) * root.height
        width: root.columns * root.width
        height: root.rows * root.height
        source: root.loop
        asynchronous: true
    }
    Timer {
        interval: 1000 / Menus.LoopFormat.frameRate
        repeat: true
        running: root.isRunning && sheet.status === Image.Ready && !Theme.isMotionReduced
        onTriggered: root.frame = (root.frame + 1) % (root.columns * root.rows)
    }
}
