// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo

// A ButtonStrip.
StripView {
    id: root

    spacing: 3
    entries: buttons

    Repeater {
        id: buttons

        model: root.controller.buttons
        delegate: MyButton {
            required property var modelData

            controller: modelData
            horizontalInset: 12
            height: 36
            role: Accessible.ListItem
            onVisualFocusChanged: if (visualFocus) root.centre(true, this)
        }
    }
}
