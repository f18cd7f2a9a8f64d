// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Layouter as Layouter

// View of a StripButton with the name of a font, in its own face. Until the name is drawn, and if the
// font lacks its letters, it is in the font of the interface.
MyButton {
    id: root

    required property Controls.FontPictures pictures
    readonly property Layouter.StripButton entry: controller as Layouter.StripButton

    property bool showsFocus: false

    horizontalInset: 10
    reach: 4
    focusPolicy: Qt.NoFocus
    role: Accessible.ListItem

    contentItem: Item {
        Icon {
            id: mark

            x: 8
            width: visible ? 18 : 0
            height: 18
            anchors.verticalCenter: parent.verticalCenter
            visible: name !== ""
            name: root.controller.image
        }
        FontName {
            id: sample

            anchors.left: mark.right
            anchors.right: parent.right
            anchors.rightMargin: 8
            height: parent.height
            isCentred: true
            size: Theme.px(18)
            pictures: root.pictures
            fontFile: root.entry.fontFile
            text: root.controller.title
        }
        Text {
            anchors.fill: sample
            visible: !sample.isDrawn
            text: root.controller.title
            color: root.controller.isMySelected ? Theme.text : Theme.mutedText
            font.pixelSize: Theme.px(13)
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
    }

    FocusRing {
        anchors.margins: 1 // inside, because the strip cuts what is outside
        radius: Theme.radius - 1
        shown: root.showsFocus
    }
}
