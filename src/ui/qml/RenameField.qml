// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Imports as Imports

// View of a RenameField, in an alert. The name is selected without its extension.
FocusScope {
    id: root

    required property Imports.RenameField controller

    implicitHeight: 40

    T.TextField {
        id: field

        anchors.fill: parent
        focus: true
        leftPadding: 12
        rightPadding: 12
        color: Theme.text
        selectionColor: Theme.accent
        selectedTextColor: Theme.text
        font.pixelSize: Theme.px(15)
        verticalAlignment: Text.AlignVCenter
        selectByMouse: true
        maximumLength: 255
        Accessible.name: qsTr("Name")

        onTextEdited: root.controller.text = text
        Component.onCompleted: {
            text = root.controller.text;
            const end = text.lastIndexOf(".");
            select(0, end > 0 ? end : text.length);
        }

        background: Rectangle {
            radius: Theme.radius
            color: Theme.buttonFill
            border.width: field.activeFocus ? 2 : 0
            border.color: Theme.accent
        }
    }
}
