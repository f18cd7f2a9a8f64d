// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import QtQuick.Templates as T
import Zelvo
import Zelvo.Menus as Menus

// The search for a button of the catalogue, over the stage. While it is open, it has all keys; a press
// elsewhere closes it.
T.Popup {
    id: root

    required property Menus.ActionsMenu controller

    // Above what belongs to the panel: the time line, speeds and nodes are of use meanwhile.
    readonly property real below: 12 + (barAround(parent)?.reach ?? 0)

    function barAround(item: Item): Bar {
        return !item || item instanceof Bar ? item as Bar : barAround(item.parent);
    }

    y: -height - below
    implicitWidth: contentItem.implicitWidth
    implicitHeight: contentItem.implicitHeight
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    contentItem: ActionSearchView {
        focus: true
        controller: root.controller
        room: Window.height - 94 - 45 - root.below
    }
    onClosed: controller.search.close()
    Component.onCompleted: open()
}
