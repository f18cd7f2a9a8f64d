// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// View of a ColorPipette, over the stage: a magnified part of the stage around the pointer. A
// release takes the color of the pixel in the middle.
Item {
    id: root

    required property Layouter.ColorPipette controller
    required property Item stage
    property string picture
    property bool isLooking: false
    property var kept: null // the picture's address is valid as long as this is held

    readonly property int cells: 11 // of the magnifier's sides
    readonly property int cell: 9 // size of a magnified pixel

    function look(): void {
        if (isLooking)
            return;
        isLooking = stage.grabToImage(result => {
            root.isLooking = false;
            root.controller.look(result.image);
            root.kept = result;
            root.picture = result.url;
        });
    }
    function aim(x: real, y: real): void {
        controller.moveTo(Qt.point(x / width, y / height));
    }

    Component.onCompleted: look()

    Timer { // because the stage may move
        running: true
        repeat: true
        interval: 200
        onTriggered: root.look()
    }
    MouseArea {
        id: pointer

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.CrossCursor
        onPositionChanged: mouse => root.aim(mouse.x, mouse.y)
        onPressed: mouse => root.aim(mouse.x, mouse.y)
        onReleased: root.controller.take()
    }
    Rectangle {
        readonly property point place: Qt.point(
            (root.controller.pixel.x + 0.5) / root.controller.pictureSize.width * root.width,
            (root.controller.pixel.y + 0.5) / root.controller.pictureSize.height * root.height)
        readonly property bool isLeft: place.x + 24 + width > root.width
        readonly property bool isBelow: place.y - 24 - height < 0

        x: isLeft ? place.x - 24 - width : place.x + 24
        y: isBelow ? place.y + 24 : place.y - 24 - height
        width: magnifier.width + 8
        height: magnifier.height + hex.height + 8
        visible: root.controller.hasPicture
        color: Theme.row
        radius: Theme.radius
        border.color: Theme.separator

        Item {
            id: magnifier

            x: 4
            y: 4
            width: root.cells * root.cell
            height: width
            clip: true

            Image {
                x: magnifier.width / 2 - (root.controller.pixel.x + 0.5) * root.cell
                y: magnifier.height / 2 - (root.controller.pixel.y + 0.5) * root.cell
                width: root.controller.pictureSize.width * root.cell
                height: root.controller.pictureSize.height * root.cell
                source: root.picture
                smooth: false
                cache: false
            }
            Rectangle {
                anchors.centerIn: parent
                width: root.cell + 2
                height: root.cell + 2
                color: "transparent"
                border.color: "black"
            }
            Rectangle {
                anchors.centerIn: parent
                width: root.cell + 4
                height: root.cell + 4
                color: "transparent"
                border.color: "white"
            }
        }
        Text {
            id: hex

            anchors.horizontalCenter: parent.horizontalCenter
            anchors.top: magnifier.bottom
            height: Theme.px(22)
            text: root.controller.color.toString().toUpperCase()
            color: Theme.text
            font.family: Theme.digitsFamily
            font.pixelSize: Theme.px(12)
            verticalAlignment: Text.AlignVCenter
        }
    }
}
