// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// The text field of a SliderNumber.
T.TextField {
    id: root

    required property SliderNumber number

    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.text
    font.family: Theme.digitsFamily
    font.pixelSize: Theme.px(13)
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    selectByMouse: true
    maximumLength: 8
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    onAccepted: {
        number.controller.write(text);
        number.leave();
    }
    onFocusChanged: if (!focus) number.isWriting = false
    Keys.onEscapePressed: number.leave()
    Component.onCompleted: {
        text = number.controller.number;
        forceActiveFocus();
        selectAll();
    }
    Accessible.name: number.controller.name
}
