// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Timeline as Timeline

// An act on a time line. While it is dragged, it is drawn where it would be.
Item {
    id: root

    required property Timeline.TimelineHand hand
    required property int identifier
    required property rect place
    required property color color
    required property string label
    required property string name
    required property bool isHold
    required property bool isGesture
    required property bool isPicked
    readonly property real shift: isPicked ? hand.shift : 0
    readonly property real stretch: hand.stretched === identifier ? hand.stretch : 0

    x: place.x
    y: place.y
    z: isPicked ? 1 : 0
    width: Math.max(4, place.width + stretch)
    height: place.height

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.selectable: true
    Accessible.selected: isPicked
    Accessible.onPressAction: picked()

    signal picked

    Body {
        visible: root.hand.isCopying && root.isPicked && root.hand.isDragging
        opacity: 0.5
    }
    Body {
        x: root.shift
    }

    component Body: Rectangle {
        width: root.width
        height: root.height
        radius: Math.min(4, height / 3)
        color: root.isGesture ? Qt.tint(Theme.row, Qt.alpha(root.color, 0.3)) : root.color
        border.width: root.isPicked ? 2 : root.isGesture ? 1 : 0
        border.color: root.isPicked ? Theme.text : root.color

        TextMetrics {
            id: measured

            text: root.label
            font: caption.font
        }
        Text {
            id: caption

            anchors.fill: parent
            anchors.leftMargin: 5
            anchors.rightMargin: root.isHold ? 8 : 3
            visible: root.height >= font.pixelSize && (measured.advanceWidth <= width || width > Theme.px(32))
            text: root.label
            color: root.isGesture ? Theme.text : Theme.background
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
            font.pixelSize: Theme.px(10)
            font.weight: Font.DemiBold
        }
        Rectangle { // the end that can be dragged
            anchors.right: parent.right
            anchors.rightMargin: 3
            anchors.verticalCenter: parent.verticalCenter
            visible: root.isHold && root.width > 12
            width: 2
            height: parent.height - 4
            radius: 1
            color: Theme.background
        }
    }
}
