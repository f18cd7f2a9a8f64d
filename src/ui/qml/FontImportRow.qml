// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// A file of the imported fonts: its name, in its own face if that can show it.
SwipeRow {
    id: root

    required property string modelData
    property Controls.FontPictures pictures
    property Controls.fontFile fontFile

    name: modelData

    FontName {
        id: sample

        anchors.fill: parent
        size: Theme.px(19)
        pictures: root.pictures
        fontFile: root.fontFile
        text: root.modelData
    }
    Text {
        anchors.fill: parent
        visible: !sample.isDrawn
        text: root.modelData
        color: Theme.mutedText
        font.pixelSize: Theme.px(14)
        elide: Text.ElideMiddle
        verticalAlignment: Text.AlignVCenter
        textFormat: Text.PlainText
    }
}
