// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo.Layouter as Layouter

// The scrolling part of a Strip. Both ends have free space of half the width, so that the first and
// the last entry can scroll to the middle.
Flickable {
    id: root

    required property Layouter.Strip strip
    property alias spacing: row.spacing
    property Repeater entries
    default property alias content: row.data

    contentWidth: row.width + width
    contentHeight: height
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    Accessible.role: Accessible.List

    onWidthChanged: Qt.callLater(centre, false)
    Component.onCompleted: Qt.callLater(centre, false)

    // Scrolls `entry`, or else the selected entry, to the middle.
    function centre(animated: bool, entry: Item): void {
        if (!strip)
            return;
        const item = entry ?? entries?.itemAt(Math.max(0, strip.currentIndex)) ?? null;
        if (!item)
            return;
        scroll.stop();
        const target = item.x + item.width / 2;
        if (!animated) {
            contentX = target;
            return;
        }
        scroll.to = target;
        scroll.start();
    }

    Row {
        id: row

        x: root.width / 2
        height: root.height
    }
    Connections {
        target: root.strip

        function onSelected(): void {
            root.centre(root.strip.isAnimated, null);
        }
    }
    NumberAnimation {
        id: scroll

        target: root
        property: "contentX"
        duration: 150
        easing.type: Easing.InOutQuad
    }
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse
        onWheel: event => {
            const step = event.angleDelta.y !== 0 ? event.angleDelta.y : event.angleDelta.x;
            root.contentX = Math.max(0, Math.min(root.contentWidth - root.width, root.contentX - step));
        }
    }
}
