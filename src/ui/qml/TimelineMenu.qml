// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Timeline as Timeline

// What can be done with the picked marks of a time line. It opens over the strip.
MenuPopup {
    id: root

    required property Timeline.TimelineMenu controller

    x: controller.place.x
    y: -height - 4
    margins: 6
    implicitWidth: 250
    rowHeight: 30
    visible: controller.isOpen
    onClosed: controller.isOpen = false
    model: controller.rows
    name: qsTr("Selected actions")
    headedFrom: controller.commandCount
    heading: qsTr("Speed")
}
