// SPDX-License-Identifier: MIT
import QtQuick

// A scrolled timeline. It maps times in seconds to places on its content, and zooms.
Flickable {
    id: root

    required property real seconds // that can be scrolled to
    property real restingZoom: 30 // points a second
    property real pointsPerSecond: restingZoom
    readonly property real inset: 24 // room for a handle at 0
    readonly property real leastZoom: Math.min(restingZoom, (width - 2 * inset) / seconds)
    readonly property real mostZoom: 300

    contentWidth: Math.max(width, xOf(seconds) + inset)
    contentHeight: height
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds

    onLeastZoomChanged: pointsPerSecond = Math.max(leastZoom, pointsPerSecond)

    // On the content.
    function xOf(time: real): real {
        return inset + time * pointsPerSecond;
    }
    function timeAt(x: real): real {
        return (x - inset) / pointsPerSecond;
    }
    function scrollTo(left: real): void {
        cancelFlick();
        contentX = Math.max(0, Math.min(contentWidth - width, left));
    }
    // The time at `x` of the window stays there.
    function zoomTo(zoom: real, x: real): void {
        const time = timeAt(contentX + x);
        pointsPerSecond = Math.max(leastZoom, Math.min(mostZoom, zoom));
        scrollTo(xOf(time) - x);
    }
    function reveal(time: real): void {
        const x = xOf(time) - contentX;
        if (x < inset || x > width - inset)
            scrollTo(xOf(time) - (x < inset ? inset : width - inset));
    }
    // Scrolls on while something is dragged at an edge of the window. False: it is not there.
    function scrollAtEdge(x: real): bool {
        const before = contentX;
        if (x < inset || x > width - inset)
            scrollTo(before + (x < inset ? -10 : 10));
        return contentX !== before;
    }
    function pressKey(key: int, modifiers: int): bool {
        const hasControl = (modifiers & Qt.ControlModifier) !== 0;
        if (key === Qt.Key_PageUp || key === Qt.Key_PageDown)
            scrollTo(contentX + width * (key === Qt.Key_PageUp ? -0.8 : 0.8));
        else if (hasControl && (key === Qt.Key_Plus || key === Qt.Key_Equal))
            zoomTo(pointsPerSecond * 1.25, width / 2);
        else if (hasControl && key === Qt.Key_Minus)
            zoomTo(pointsPerSecond / 1.25, width / 2);
        else if (hasControl && key === Qt.Key_0)
            zoomTo(restingZoom, width / 2);
        else
            return false;
        return true;
    }

    Keys.onPressed: event => event.accepted = pressKey(event.key, event.modifiers)
}
