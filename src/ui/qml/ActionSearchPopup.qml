// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Menus as Menus

// The search for a button of the catalogue, over the stage. While it is open, it has all keys; a press
// elsewhere closes it.
T.Popup {
    id: root

    required property Menus.ActionsMenu controller

    y: -height - 12
    implicitWidth: contentItem.implicitWidth
    implicitHeight: contentItem.implicitHeight
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    contentItem: ActionSearchView {
        focus: true
        controller: root.controller
    }
    onClosed: controller.search.close()
    Component.onCompleted: open()
}
