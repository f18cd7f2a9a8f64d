// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// The number of a MySlider. When the user types: Return sets the number, Escape cancels.
Rectangle {
    id: root

    required property Controls.MySlider controller
    property bool isWriting: false

    signal done // Return or Escape was pressed

    onIsWritingChanged: {
        if (isWriting)
            field.setSource("SliderField.qml", { number: root });
        else
            field.source = "";
    }

    implicitWidth: Math.max(52, label.implicitWidth + 14)
    implicitHeight: 26
    radius: Theme.radius
    color: Theme.buttonFill
    border.width: isWriting ? 2 : 0
    border.color: Theme.accent

    function leave(): void {
        isWriting = false;
        done();
    }

    Text {
        id: label

        anchors.centerIn: parent
        visible: !root.isWriting
        text: root.controller.text
        color: Theme.text
        font.family: Theme.digitsFamily
        font.pixelSize: Theme.px(13)
    }
    MouseArea {
        anchors.fill: parent
        anchors.topMargin: -8 // for fingers
        anchors.bottomMargin: -8
        visible: !root.isWriting
        cursorShape: Qt.IBeamCursor
        onClicked: root.isWriting = true
    }
    Loader {
        id: field

        anchors.fill: parent
    }
}
