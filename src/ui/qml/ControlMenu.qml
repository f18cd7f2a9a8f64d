// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo.Controls as Controls
import Zelvo.Menus as Menus

// View of a ControlMenu: the record button and the buttons next to it.
Row {
    id: root

    required property Menus.ControlMenu controller

    spacing: 2

    RecordButton {
        enabled: root.controller.buttonsEnabled
        alpha: root.controller.alpha
        controller: root.controller.recordButton
    }
    Item {
        width: 6
        height: 1
    }
    Repeater {
        model: root.controller.buttons
        delegate: MyButton {
            required property Controls.MyButton modelData
            // Undo and redo work on the style panel, too.
            readonly property bool isUsable: root.controller.buttonsEnabled || modelData === root.controller.undoButton || modelData === root.controller.redoButton

            controller: modelData
            enabled: isUsable && controller.isEnabled
            alpha: isUsable ? 1 : root.controller.alpha
        }
    }
}
