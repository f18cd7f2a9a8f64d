// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo

// A wheel with two-digit numbers. It is turned by finger, mouse wheel, arrow keys and digits, or by
// a click on a row.
ListView {
    id: root

    required property string name
    required property int rows
    required property int row // the number to show
    signal picked(int row)
    signal typed(int digit)

    // For screen readers, which look for these names and may write the value.
    property int value: 0
    readonly property int minimumValue: 0
    readonly property int maximumValue: rows - 1
    readonly property int stepSize: 1

    onValueChanged: {
        if (value !== row)
            picked(Math.max(0, Math.min(maximumValue, value)));
        value = row; // if it was out of range
    }

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
    highlightMoveDuration: 140 * Theme.motion
    activeFocusOnTab: true
    keyNavigationEnabled: false
    onMovementEnded: settle()
    onRowChanged: currentIndex = row
    Component.onCompleted: {
        currentIndex = row;
        positionViewAtIndex(row, ListView.SnapPosition);
    }

    Accessible.role: Accessible.SpinBox
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onIncreaseAction: if (row < rows - 1) picked(row + 1)
    Accessible.onDecreaseAction: if (row > 0) picked(row - 1)
    Keys.onUpPressed: if (row > 0) picked(row - 1)
    Keys.onDownPressed: if (row < rows - 1) picked(row + 1)
    Keys.onPressed: event => {
        const digit = event.key - Qt.Key_0;
        event.accepted = digit >= 0 && digit <= 9;
        if (event.accepted)
            typed(digit);
    }

    delegate: Text {
        required property int index

        TapHandler {
            onTapped: {
                root.forceActiveFocus(Qt.MouseFocusReason);
                root.picked(parent.index);
            }
        }
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

    Binding {
        target: root
        property: "value"
        value: root.row
    }
    FocusRing {
        anchors.margins: 0
        shown: root.activeFocus
        anchors.topMargin: (root.height - 30) / 2
        anchors.bottomMargin: (root.height - 30) / 2
    }
    WheelHandler {
        property real turned // sum in eighths of a degree: a touchpad sends parts of a notch

        onWheel: event => {
            turned += event.angleDelta.y;
            const notches = Math.trunc(turned / 120);
            turned -= notches * 120;
            if (notches !== 0)
                root.picked(Math.max(0, Math.min(root.rows - 1, root.row - notches)));
        }
    }
}
