// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// View of a ButtonStrip.
StripView {
    id: root

    required property Layouter.ButtonStrip controller

    strip: controller
    spacing: 3
    entries: buttons
    first: ahead.count > 0 ? ahead.itemAt(0) : null
    isFirstChosen: controller.firstButton?.isMySelected ?? false

    Repeater {
        id: ahead

        model: root.controller.firstButton ? [root.controller.firstButton] : []
        delegate: StripButton {
            required property Layouter.StripButton modelData

            controller: modelData
            fontSize: 15
            horizontalInset: 6
            opacity: root.shareInView(this)
            onVisualFocusChanged: if (visualFocus) root.centre(true, this)
        }
    }
    Repeater {
        id: buttons

        model: root.controller.buttons
        delegate: StripButton {
            required property Layouter.StripButton modelData

            controller: modelData
            height: root.entryHeight
            opacity: root.shareInView(this)
            role: Accessible.ListItem
            focusPolicy: Qt.NoFocus
            showsFocus: root.showsFocus && modelData.isMySelected
            onClicked: root.takeFocus()
        }
    }
}
