// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Layouter as Layouter

// The field of an AdvancedColorPicker for a color in hexadecimal digits. Six digits act at once,
// three with Return. What is no color is marked, and changes nothing.
T.TextField {
    id: root

    required property Layouter.AdvancedColorPicker controller
    property bool isWrong: false

    function reset(): void {
        text = controller.hex;
        isWrong = false;
    }

    implicitHeight: 36
    leftPadding: 8
    rightPadding: 8
    color: isWrong ? Theme.record : Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.text
    font.family: Theme.digitsFamily
    font.pixelSize: Theme.px(14)
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    selectByMouse: true
    maximumLength: 16
    inputMethodHints: Qt.ImhNoPredictiveText | Qt.ImhPreferUppercase

    Accessible.name: qsTr("Hex")
    Accessible.description: isWrong ? qsTr("This is no color.") : ""

    onTextEdited: isWrong = !controller.typeHex(text)
    onActiveFocusChanged: {
        if (activeFocus) {
            selectAll();
            return;
        }
        controller.writeHex(text);
        reset();
    }
    // Not accepted, if it is a color: then the key closes the sheet.
    Keys.onReturnPressed: event => {
        isWrong = !controller.writeHex(text);
        event.accepted = isWrong;
    }
    Keys.onEnterPressed: event => {
        isWrong = !controller.writeHex(text);
        event.accepted = isWrong;
    }
    Component.onCompleted: reset()

    background: Rectangle {
        radius: Theme.radius
        color: Theme.buttonFill
        border.width: root.isWrong || root.activeFocus ? 2 : 0
        border.color: root.isWrong ? Theme.record : Theme.accent
    }

    Connections {
        target: root.controller

        function onChanged(): void {
            if (!root.activeFocus)
                root.reset();
        }
    }
}
