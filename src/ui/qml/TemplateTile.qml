// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Screens as Screens

// A template: its preview, which runs in a loop, above its name.
Item {
    id: root

    required property string title
    required property string preview
    required property Screens.TemplateRows rows
    required property bool isCurrent

    signal picked

    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.focused: isCurrent
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: picked()

    Item {
        id: tile

        anchors.fill: parent
        anchors.margins: 8
        scale: press.pressed ? 0.97 : 1

        Behavior on scale {
            NumberAnimation { duration: 80 * Theme.motion }
        }
        Rectangle {
            id: frame

            width: parent.width
            height: width * root.rows.frameHeight / root.rows.frameWidth
            radius: Theme.radius
            color: Theme.background
            border.width: 1
            border.color: Theme.separator
            clip: true

            AnimatedSprite {
                anchors.fill: parent
                visible: root.preview !== ""
                source: root.preview
                frameWidth: root.rows.frameWidth
                frameHeight: root.rows.frameHeight
                frameCount: root.rows.frameCount
                frameRate: root.rows.frameRate
                interpolate: false
                running: visible && (!Theme.isMotionReduced || root.isCurrent || hover.hovered)
            }
            Text {
                anchors.centerIn: parent
                visible: root.preview === ""
                text: "+"
                color: Theme.mutedText
                font.pixelSize: Theme.px(34)
            }
            Rectangle {
                anchors.fill: parent
                radius: Theme.radius
                color: "transparent"
                border.width: hover.hovered ? 2 : 0
                border.color: Theme.accentText
            }
        }
        FocusRing {
            anchors.fill: frame
            anchors.margins: -3
            shown: root.isCurrent
        }
        Text {
            anchors.top: frame.bottom
            anchors.topMargin: 6
            width: parent.width
            text: root.title
            color: Theme.text
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
        }
    }
    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse
    }
    TapHandler {
        id: press

        onTapped: root.picked()
    }
}
