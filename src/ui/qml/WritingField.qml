// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Layouter as Layouter

// The text field of a LayouterMenu. The stage shows each change at once.
T.TextField {
    id: root

    required property Layouter.LayouterMenu controller
    property bool isReady: false

    leftPadding: 12
    rightPadding: 12
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.text
    font.pixelSize: Theme.px(15)
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    selectByMouse: true
    maximumLength: 200

    Accessible.name: qsTr("Text")

    // With what an input method has not committed yet.
    onDisplayTextChanged: if (isReady) controller.textFieldDidChange(displayText)
    onAccepted: controller.endWriting()
    Keys.onEscapePressed: controller.endWriting()
    onFocusChanged: if (!focus) controller.endWriting() // after a click outside
    Component.onCompleted: {
        text = controller.writtenText;
        forceActiveFocus();
        selectAll();
        isReady = true;
    }

    background: Rectangle {
        radius: Theme.radius
        color: Theme.buttonFill
        border.width: root.activeFocus ? 2 : 0
        border.color: Theme.accent
    }
}
