// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo

// A wheel of two-digit numbers: by finger, mouse wheel and keys.
ListView {
    id: root

    required property string name
    required property int rows
    required property int row ///< where it is to stand
    signal picked(int row)

    function settle(): void {
        if (!moving && currentIndex !== row)
            picked(currentIndex);
        currentIndex = row;
    }

    width: 56
    height: parent.height
    clip: true
    model: rows
    snapMode: ListView.SnapToItem
    highlightRangeMode: ListView.StrictlyEnforceRange
    preferredHighlightBegin: (height - 26) / 2
    preferredHighlightEnd: (height + 26) / 2
    highlightMoveDuration: 140
    activeFocusOnTab: true
    keyNavigationEnabled: false
    onMovementEnded: settle()
    onRowChanged: currentIndex = row
    Component.onCompleted: {
        currentIndex = row;
        positionViewAtIndex(row, ListView.SnapPosition);
    }

    Accessible.role: Accessible.SpinBox
    Accessible.name: name + " " + row
    Accessible.onIncreaseAction: if (row < rows - 1) picked(row + 1)
    Accessible.onDecreaseAction: if (row > 0) picked(row - 1)
    Keys.onUpPressed: if (row > 0) picked(row - 1)
    Keys.onDownPressed: if (row < rows - 1) picked(row + 1)

    delegate: Text {
        required property int index

        width: root.width
        height: 26
        text: String(index).padStart(2, "0")
        color: Theme.text
        opacity: ListView.isCurrentItem ? 1 : 0.35
        font.pixelSize: Theme.px(16)
        font.weight: ListView.isCurrentItem ? Font.DemiBold : Font.Normal
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    FocusRing {
        anchors.margins: 0
        shown: root.activeFocus
        anchors.topMargin: (root.height - 30) / 2
        anchors.bottomMargin: (root.height - 30) / 2
    }
    WheelHandler {
        onWheel: event => {
            const next = root.row + (event.angleDelta.y > 0 ? -1 : 1);
            if (next >= 0 && next < root.rows)
                root.picked(next);
        }
    }
}
