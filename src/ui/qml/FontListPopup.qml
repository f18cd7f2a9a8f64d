// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Layouter as Layouter

// The list of all fonts over the stage. While it is open, it has all keys; a press elsewhere closes
// it.
T.Popup {
    id: root

    required property Layouter.FontStrip controller

    y: -height - 12
    implicitWidth: contentItem.implicitWidth
    implicitHeight: contentItem.implicitHeight
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    contentItem: FontListView {
        focus: true
        controller: root.controller
    }
    onClosed: controller.openList(false)
    Component.onCompleted: {
        contentItem.parent.Accessible.name = qsTr("All fonts");
        open();
    }
}
