// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// The scrolling part of a Strip. Both ends have free space of half the width, so that the first and
// the last entry can scroll to the middle. With the focus, arrow keys choose another entry. The view
// may be higher than its entries, because a finger does not aim well.
Flickable {
    id: root

    required property Layouter.Strip strip
    property string name: qsTr("Choices")
    property alias spacing: row.spacing
    property Repeater entries
    property Item first: null // an item ahead of the entries
    property bool isFirstChosen: false
    readonly property real entryHeight: 36
    default property alias content: row.data
    // The focus is shown only to those who use the keyboard.
    property bool showsFocus: false

    contentWidth: row.width + width
    contentHeight: height
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    clip: true

    Accessible.role: Accessible.List
    Accessible.name: name
    Accessible.focusable: true

    onWidthChanged: Qt.callLater(centre, false)
    Component.onCompleted: Qt.callLater(centre, false)
    onActiveFocusChanged: {
        showsFocus = activeFocus;
        if (activeFocus)
            centre(true, null); // it may have been scrolled out of view
    }
    onMovementStarted: scroll.stop()
    Keys.onPressed: event => {
        event.accepted = strip.pressKey(event.key);
        showsFocus = showsFocus || event.accepted;
    }

    // After a tap on an entry, the arrow keys go on from there.
    function takeFocus(): void {
        forceActiveFocus(Qt.MouseFocusReason);
        showsFocus = false;
    }

    // How much of an entry is in view, from 0 to 1. An entry fades as it leaves, so the strip ends
    // softly on any background.
    function shareInView(entry: Item): real {
        const start = row.x + entry.x - contentX;
        const whole = Math.max(1, entry.width);
        return Math.max(0, Math.min(1, (start + whole) / whole, (width - start) / whole));
    }

    // Gives the entries their places now.
    function layOut(): void {
        row.forceLayout();
    }

    // Scrolls `entry`, or else the selected entry, to the middle.
    function centre(animated: bool, entry: Item): void {
        if (!strip)
            return;
        const chosen = isFirstChosen ? first : entries?.itemAt(Math.max(0, strip.currentIndex)) ?? null;
        const item = entry ?? chosen;
        if (item)
            scrollTo(item.x + item.width / 2, animated ? 150 : 0, Easing.InOutQuad);
    }

    function scrollTo(target: real, milliseconds: int, curve: int): void {
        cancelFlick();
        scroll.stop();
        scroll.to = Math.max(0, Math.min(contentWidth - width, target));
        scroll.duration = milliseconds * Theme.motion;
        scroll.easing.type = curve;
        if (scroll.duration > 0)
            scroll.start();
        else
            contentX = scroll.to;
    }

    Row {
        id: row

        x: root.width / 2
        height: root.height
    }
    FocusRing { // if no entry can show the focus
        parent: root
        anchors.margins: 1
        anchors.bottomMargin: root.height - root.entryHeight + 1
        radius: Theme.radius - 1
        shown: root.showsFocus && !root.isFirstChosen && (root.strip?.currentIndex ?? -1) < 0
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
    }
    StripWheel {
        orientation: Qt.Horizontal
    }
    StripWheel {
        orientation: Qt.Vertical
    }

    // A notch of a wheel scrolls softly; a touchpad's small steps follow the finger at once. Of a
    // slanted movement, the longer part counts.
    component StripWheel: WheelHandler {
        readonly property bool isLevel: orientation === Qt.Horizontal

        function along(delta: point): real {
            const isMine = isLevel === Math.abs(delta.x) > Math.abs(delta.y);
            return isMine ? (isLevel ? delta.x : delta.y) : 0;
        }

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            const exact = along(event.pixelDelta);
            const turned = along(event.angleDelta);
            const from = scroll.running ? scroll.to : root.contentX;
            const isNotch = !exact && Math.abs(turned) >= 120;
            if (exact || turned)
                root.scrollTo(from - (exact || turned), isNotch ? 150 : 0, Easing.OutCubic);
        }
    }
}
