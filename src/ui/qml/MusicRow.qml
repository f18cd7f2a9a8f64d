// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Audio as Audio

// An album or a song: cover, title, and a smaller line below it if there is one.
Item {
    id: root

    property Audio.CoverPictures covers
    property string picture
    property string text
    property string subText
    property string icon
    property string iconName
    property string note
    property real rightMargin
    property bool isCurrent
    property bool isDimmed

    signal picked

    Accessible.role: Accessible.ListItem
    Accessible.name: text + (subText !== "" ? ", " + subText : "") + (iconName !== "" ? ", " + iconName : "")
    Accessible.focused: isCurrent
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: picked()

    Rectangle {
        anchors.fill: parent
        color: Theme.text
        opacity: area.pressed ? 0.14 : root.isCurrent ? 0.09 : area.containsMouse ? 0.04 : 0
    }
    Rectangle {
        width: 3
        height: parent.height
        color: Theme.text
        visible: root.isCurrent
    }
    Rectangle {
        id: frame

        x: 18
        width: 40
        height: 40
        anchors.verticalCenter: parent.verticalCenter
        radius: width / 12
        color: cover.isDrawn ? "transparent" : Theme.buttonFill

        Icon {
            anchors.centerIn: parent
            width: 22
            height: 22
            visible: !cover.isDrawn
            opacity: 0.5
            name: "MusicNote"
        }
        Audio.CoverItem {
            id: cover

            anchors.fill: parent
            pictures: root.covers
            cover: root.picture
            opacity: root.isDimmed ? Theme.dimmed : 1
        }
    }
    Column {
        anchors.left: frame.right
        anchors.leftMargin: 12
        anchors.right: end.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter

        Text {
            width: parent.width
            text: root.text
            color: root.isDimmed ? Qt.lighter(Theme.mutedText, 1.2) : Theme.text
            font.pixelSize: Theme.px(15)
            elide: Text.ElideRight
            textFormat: Text.PlainText
        }
        Text {
            width: parent.width
            visible: text !== ""
            text: root.subText
            color: Qt.lighter(Theme.mutedText, 1.2) // legible under the pointer, too
            font.pixelSize: Theme.px(12)
            elide: Text.ElideRight
            textFormat: Text.PlainText
        }
    }
    Row {
        id: end

        anchors.right: parent.right
        anchors.rightMargin: Math.max(18, root.rightMargin)
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        Icon {
            width: 22
            height: 22
            visible: root.icon !== ""
            name: root.icon
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: text !== ""
            text: root.note
            color: Qt.lighter(Theme.mutedText, 1.2)
            font.family: Theme.digitsFamily
            font.pixelSize: Theme.px(13)
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        x: 70
        width: parent.width - x
        height: 1
        color: Theme.separator
        opacity: 0.6
    }
    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.picked()
    }
    Tip {
        name: root.iconName
        isAsked: area.containsMouse && root.icon !== "" && area.mouseX > end.x - 12
    }
}
