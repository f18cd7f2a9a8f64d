// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// The number of a MySlider. While it is written: Return takes it, Escape leaves it as it was.
Rectangle {
    id: root

    required property var controller
    property bool isWriting: false

    signal done // by a key

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
        visible: !root.isWriting
        cursorShape: Qt.IBeamCursor
        onClicked: root.isWriting = true
    }
    Loader {
        anchors.fill: parent
        active: root.isWriting
        sourceComponent: T.TextField {
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.text
            font: label.font
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            selectByMouse: true
            maximumLength: 8
            inputMethodHints: Qt.ImhFormattedNumbersOnly
            onAccepted: {
                root.controller.write(text);
                root.leave();
            }
            onFocusChanged: if (!focus) root.isWriting = false
            Keys.onEscapePressed: root.leave()
            Component.onCompleted: {
                text = root.controller.number;
                forceActiveFocus();
                selectAll();
            }
            Accessible.name: root.controller.name
        }
    }
}
