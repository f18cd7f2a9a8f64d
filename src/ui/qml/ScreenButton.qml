// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// A button in a screen's bars: a picture, or a text in colour `tint` on colour `fill`.
T.AbstractButton {
    id: root

    property string image
    property string name: text
    property string key
    property bool isUsable: true // false also dims; `enabled` alone is off behind an alert, too
    property color tint: Theme.text
    property color fill: "transparent"

    implicitWidth: Math.max(image === "" ? 64 : 44, label.implicitWidth + 24)
    implicitHeight: 44
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    enabled: isUsable
    opacity: isUsable ? 1 : Theme.dimmed

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: clicked()
    Spoken.key: key
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked() }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked() }

    background: Item {
        Rectangle {
            anchors.fill: parent
            anchors.topMargin: 4
            anchors.bottomMargin: 4
            radius: Theme.radius
            color: root.fill

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
    }
    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            width: 24
            height: 24
            visible: name !== ""
            name: root.image
        }
        Text {
            id: label

            anchors.centerIn: parent
            visible: root.image === ""
            text: root.image === "" ? root.text : ""
            color: root.tint
            font.pixelSize: Theme.px(14)
            font.weight: Font.Medium
        }
    }

    Tip {
        name: root.name
        key: root.key
        isAsked: root.hovered && !root.down && (root.key !== "" || root.image !== "")
    }
}
