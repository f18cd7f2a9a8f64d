// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Layouter as Layouter

// View of a ButtonStrip.
StripView {
    id: root

    required property Layouter.ButtonStrip controller

    strip: controller
    spacing: 3
    entries: buttons

    Repeater {
        id: buttons

        model: root.controller.buttons
        delegate: MyButton {
            required property Controls.MyButton modelData

            controller: modelData
            horizontalInset: 12
            height: 36
            role: Accessible.ListItem
            onVisualFocusChanged: if (visualFocus) root.centre(true, this)
        }
    }
}
