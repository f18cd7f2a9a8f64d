// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo

// Names a button, and the key that does the same, once the pointer rests on it. In a bar it stands
// outside of all of the bar, so that it hides none of its buttons.
T.ToolTip {
    id: tip

    property string name
    property string key
    property bool isAsked
    property Item ground // what it stands beside
    property real reach
    property bool isBelow // where there is no room above

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
    onAboutToShow: { // by now the button has its place
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
