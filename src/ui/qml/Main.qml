// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Zelvo
import Zelvo.Main as MainScreen

// View of a MainViewController: the window.
Window {
    id: root

    required property MainScreen.MainViewController main

    width: 1280
    height: 720
    minimumWidth: 960
    minimumHeight: 540
    title: main.document.title
    color: "black"
    onClosing: close => {
        close.accepted = main.document.mayClose();
    }
    onWidthChanged: main.setViewSize(Qt.size(width, height))
    onHeightChanged: main.setViewSize(Qt.size(width, height))

    FocusStack {
        anchors.fill: parent
        focus: true

        Keyboard {
            id: keyboard

            anchors.fill: parent
            main: root.main
            window: root

            Stage {
                anchors.fill: parent
                main: root.main
            }
            MainBars {
                anchors.fill: parent
                main: root.main
            }
        }
        BlurCover {
            anchors.fill: parent
            controller: root.main.blurCover
            source: keyboard
        }
        Place {
            anchors.fill: parent
            visible: controller !== null
            controller: root.main.screen
            view: root.main.screenView
        }
        Place {
            anchors.fill: parent
            visible: controller !== null
            controller: root.main.hint
            view: root.main.hint ? "VideoAlert" : ""
        }
        ValueLabel {
            anchors.horizontalCenter: parent.horizontalCenter
            y: root.main.topHeight + 12
            width: Math.min(implicitWidth, parent.width - 24)
            controller: root.main.valueLabel
        }
        LoadingNotice {
            anchors.horizontalCenter: parent.horizontalCenter
            y: root.main.topHeight + 12
            controller: root.main.loading
        }
        AlertHost {
            anchors.fill: parent
            alerts: root.main.alerts
        }
    }
    DocumentDialogs {
        controller: root.main.document
    }
    Connections {
        target: root.main.document

        function onCloseAllowed(): void {
            root.close();
        }
    }
    Shortcut {
        sequence: "Escape"
        enabled: root.main.loading.isLoading && !root.main.alerts.isShowing
        onActivated: root.main.loading.giveUp()
    }
    DropCover {
        readonly property bool isImporting: root.main.screenView === "FontImport" || root.main.screenView === "ObjectImport"

        anchors.fill: parent
        enabled: keyboard.enabled || (isImporting && !root.main.alerts.isShowing)
        main: root.main
    }
    TouchVisualizer {
        anchors.fill: parent
        controller: root.main.visualizer
    }
}
