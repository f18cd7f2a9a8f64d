// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Controls as Controls

// A button of an alert.
T.AbstractButton {
    id: root

    required property Controls.alertChoice modelData

    implicitHeight: Math.max(40, label.implicitHeight + 16)
    text: modelData.title
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked() }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked() }

    background: Rectangle {
        radius: Theme.radius
        color: root.modelData.isDestructive ? Theme.record
             : root.modelData.isCancelling || root.modelData.hasColor ? Theme.buttonFill : Theme.accent

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.text
            opacity: root.down ? 0.22 : root.hovered ? 0.09 : 0
        }
        FocusRing {
            shown: root.visualFocus
        }
    }
    contentItem: Text {
        id: label

        text: root.text
        color: root.modelData.hasColor ? root.modelData.color : Theme.text
        font.pixelSize: Theme.px(14)
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
}
