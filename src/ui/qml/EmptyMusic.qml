// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// In place of an empty list of albums: where the music is looked for, and what else can be done.
Column {
    id: root

    property string title
    property string text
    property bool hasButtons

    signal folderAsked
    signal documentAsked

    spacing: 8

    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 40
        height: 40
        opacity: 0.6
        name: "MusicNote"
    }
    Text {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: root.title
        color: Theme.text
        font.pixelSize: Theme.px(15)
        font.weight: Font.Medium
    }
    Text {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WrapAtWordBoundaryOrAnywhere
        textFormat: Text.PlainText
        text: root.text
        color: Qt.lighter(Theme.mutedText, 1.2)
        font.pixelSize: Theme.px(13)
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: root.hasButtons
        topPadding: 8
        spacing: 12

        ScreenButton {
            text: qsTr("Open Folder")
            fill: Theme.buttonFill
            onClicked: root.folderAsked()
        }
        ScreenButton {
            text: qsTr("Documents")
            fill: Theme.buttonFill
            onClicked: root.documentAsked()
        }
    }
}
