// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// View of a ValueLabel: a message that disappears by itself.
Rectangle {
    id: root

    required property Controls.ValueLabel controller

    implicitWidth: message.implicitWidth + 2 * controller.horizontalInset
    implicitHeight: message.implicitHeight + 2 * controller.verticalInset
    visible: !controller.isHidden
    radius: Theme.radius
    color: Theme.bar

    Accessible.role: Accessible.AlertMessage
    Accessible.name: controller.text

    Text {
        id: message

        anchors.centerIn: parent
        width: Math.min(implicitWidth, root.width - 2 * root.controller.horizontalInset)
        text: root.controller.text
        color: Theme.text
        elide: Text.ElideRight
        font.pixelSize: Theme.px(15)
        font.weight: Font.Medium
    }
}
