// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// A row of the list of fonts: a name in its own face, below a heading if it begins a section.
Item {
    id: root

    required property int index
    required property string name
    required property Controls.fontFile fontFile
    required property bool isCorrupt
    property Controls.FontPictures pictures
    property bool isCurrent
    property string heading

    signal picked(int index)

    height: 40 + title.height

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: picked(index)

    Text {
        id: title

        height: text !== "" ? 34 : 0
        leftPadding: 14
        verticalAlignment: Text.AlignVCenter
        text: root.heading
        color: Theme.mutedText
        font.pixelSize: Theme.px(11)
        font.weight: Font.DemiBold
    }
    Item {
        anchors.fill: parent
        anchors.topMargin: title.height

        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: 6
            anchors.rightMargin: 6
            radius: Theme.radius
            color: root.isCurrent ? Theme.accent : Theme.text
            opacity: root.isCurrent ? 1 : area.pressed ? 0.14 : area.containsMouse ? 0.07 : 0
        }
        FontName {
            id: sample

            anchors.fill: parent
            anchors.leftMargin: 14
            anchors.rightMargin: root.isCorrupt ? 44 : 14
            size: Theme.px(19)
            pictures: root.pictures
            fontFile: root.fontFile
            text: root.name
        }
        Text {
            anchors.fill: sample
            visible: !sample.isDrawn
            text: root.name
            color: root.isCurrent ? Theme.text : Theme.mutedText
            font.pixelSize: Theme.px(13)
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
        }
        MouseArea {
            id: area

            anchors.fill: parent
            hoverEnabled: true
            onClicked: root.picked(root.index)
        }
        Icon {
            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            width: 20
            height: 20
            visible: root.isCorrupt
            name: "CorruptFont"
        }
        Tip { // beside the list, so that it hides no row
            x: root.width + 8
            y: parent ? (parent.height - implicitHeight) / 2 : 0
            name: root.isCorrupt ? qsTr("This font has crashed Zelvo. It is shown without a bevel.") : root.name
            isAsked: area.containsMouse && root.isCorrupt
        }
    }
}
