// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// A tooltip: the name of a button and its key, shown when the pointer rests on the button. It is
// outside of the whole Bar, so that it hides no other button.
T.ToolTip {
    id: tip

    property string name
    property string key
    property bool isAsked
    property Item ground // the item next to the tooltip: the bar, or the button
    property real reach
    property bool isBelow // if there is no room above

    function barAround(item: Item): Item {
        return !item || item instanceof Bar ? item : barAround(item.parent);
    }

    visible: isAsked && Pointer.isInUse
    text: name
    delay: 600
    timeout: 6000
    margins: 6
    padding: 7
    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: {
        const top = ground ? ground.mapToItem(parent, 0, 0).y : 0;
        return isBelow ? top + ground.height + 6 : top - reach - implicitHeight - 6;
    }
    implicitWidth: contentItem.implicitWidth + 2 * padding
    implicitHeight: contentItem.implicitHeight + 2 * padding
    closePolicy: T.Popup.NoAutoClose
    onAboutToShow: { // not earlier, because the button must have its place
        const bar = barAround(parent);
        ground = bar ?? parent;
        reach = bar?.reach ?? 0;
        isBelow = ground.mapToItem(null, 0, 0).y < 60;
    }

    contentItem: Row {
        spacing: 8

        Text {
            text: tip.name
            color: Theme.text
            font.pixelSize: Theme.px(12)
        }
        Text {
            visible: tip.key !== ""
            text: tip.key
            color: Theme.mutedText
            font.pixelSize: Theme.px(12)
        }
    }
    background: Rectangle {
        color: Theme.row
        radius: Theme.radius
        border.color: Theme.separator
    }
}
