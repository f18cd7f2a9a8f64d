// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Zelvo

// The window of a MainViewController.
Window {
    id: root

    required property var main

    width: 1280
    height: 720
    minimumWidth: 960
    minimumHeight: 540
    title: "Zelvo"
    color: "black"
    onWidthChanged: main.setViewSize(Qt.size(width, height))
    onHeightChanged: main.setViewSize(Qt.size(width, height))

    // Keys belong to what lies on top; each keeps which of its own has the focus.
    function focusTop(): void {
        (hint.item ?? screen.item ?? keyboard).forceActiveFocus();
    }

    Item {
        id: everything

        anchors.fill: parent

        Keyboard {
            id: keyboard

            anchors.fill: parent
            main: root.main
            window: root
            focus: true
            enabled: !root.main.screen && !root.main.hint
            onEnabledChanged: if (enabled) forceActiveFocus()

            Stage {
                anchors.fill: parent
                main: root.main
            }
            MainBars {
                anchors.fill: parent
                main: root.main
            }
        }
    }
    BlurCover {
        anchors.fill: parent
        controller: root.main.blurCover
        source: everything
    }
    Place {
        id: screen

        anchors.fill: parent
        controller: root.main.screen
        view: root.main.screenView
    }
    Place {
        id: hint

        anchors.fill: parent
        controller: root.main.hint
        view: root.main.hint ? "VideoAlert" : ""
    }
    ValueLabel {
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.main.topHeight + 12
        width: Math.min(implicitWidth, parent.width - 24)
        controller: root.main.valueLabel
    }
    AlertHost {
        anchors.fill: parent
        alerts: root.main.alerts
        onClosed: root.focusTop()
    }
    TouchVisualizer {
        anchors.fill: parent
        controller: root.main.visualizer
    }
    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: drop => drop.urls.forEach(url => root.main.openURL(url))
    }
}
