// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// A MySlider: a double tap brings its default back.
T.Slider {
    id: root

    required property var controller

    from: controller.minimumValue
    to: controller.maximumValue
    value: controller.value
    implicitWidth: 160
    implicitHeight: 36
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    onMoved: controller.moveTo(value)

    Accessible.role: Accessible.Slider
    Accessible.name: controller.name

    background: Rectangle {
        x: root.leftPadding
        y: (root.height - height) / 2
        width: root.availableWidth
        height: 4
        radius: 2
        color: Theme.buttonFill

        Rectangle {
            width: root.visualPosition * parent.width
            height: parent.height
            radius: parent.radius
            color: Theme.accent
        }
    }
    handle: Rectangle {
        x: root.leftPadding + root.visualPosition * (root.availableWidth - width)
        y: (root.height - height) / 2
        width: 22
        height: 22
        radius: 11
        color: root.pressed ? Qt.darker(Theme.text, 1.15) : Theme.text

        FocusRing {
            radius: parent.radius + 2
            shown: root.visualFocus
            border.color: Theme.accent
        }
    }

    TapHandler {
        onDoubleTapped: root.controller.sliderTapped()
    }
    Tip {
        name: root.controller.name
        visible: root.hovered && !root.pressed
    }
}
