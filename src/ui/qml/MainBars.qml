// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Main as MainScreen

// The controls over the stage: the bar at the top, the strip of nodes and speeds, and the panel.
Item {
    id: root

    required property MainScreen.MainViewController main

    Bar {
        id: top

        width: parent.width
        height: root.main.topHeight
        color: Theme.bar

        Ground {}
        Solid {}
        TabStack {
            id: tabs

            x: 9
            y: 6
            height: 36
            name: qsTr("Panel")
            controller: root.main.mainMenu.stackView
        }
        ControlMenu {
            x: tabs.x + tabs.width + 15
            y: 6
            controller: root.main.controlMenu
        }
        MyButton {
            id: helpButton

            anchors.right: documentButton.left
            y: 6
            width: 40
            height: 36
            controller: root.main.help.button
        }
        MyButton {
            id: documentButton

            anchors.right: share.left
            y: 6
            width: 40
            height: 36
            controller: root.main.document.menuButton
            Spoken.isExpandable: true
            Spoken.isExpanded: root.main.document.isMenuOpen

            DocumentMenu {
                x: documentButton.width - width
                controller: root.main.document
            }
        }
        MyButton {
            id: share

            anchors.right: parent.right
            anchors.rightMargin: 3
            y: 6
            width: 40
            height: 36
            controller: root.main.shareButton
            alpha: root.main.shareAlpha
        }
        TimeBar {
            anchors.bottom: parent.bottom
            width: parent.width
            controller: root.main.progressView
        }
    }
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: strip.visible ? strip.top : timeline.top
        anchors.bottomMargin: 14
        width: line.width + 32
        height: line.height + 14
        visible: next.text !== ""
        radius: Theme.radius
        color: Theme.bar

        Row {
            id: line

            anchors.centerIn: parent
            spacing: 12

            Text {
                id: next

                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, root.width - 56 - (putBack.visible ? putBack.width + 12 : 0))
                text: root.main.guidance.text
                color: Theme.text
                elide: Text.ElideRight
                font.pixelSize: Theme.px(13)
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            ScreenButton {
                id: putBack

                visible: root.main.guidance.canPutBack
                height: 30
                text: qsTr("Put Back")
                key: "Ctrl+Z"
                tint: Theme.accentText
                onClicked: root.main.guidance.putBack()
            }
        }
    }
    SpeedStrip {
        id: strip

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: timeline.top
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        anchors.bottomMargin: 7
        controller: root.main.speedViewController
    }
    Timeline {
        id: timeline

        reach: strip.visible ? strip.height + 7 : 0

        anchors.bottom: bottom.top
        width: parent.width
        height: visible ? Math.max(36, Math.min(50, Math.round(parent.height / 14.4))) : 0
        visible: controller.isShown
        controller: root.main.timeline

        Solid {
            z: -1
        }
    }
    Bar {
        id: bottom

        reach: timeline.height + timeline.reach

        anchors.bottom: parent.bottom
        width: parent.width
        height: root.main.bottomHeight
        color: Theme.dimmedPanel

        Ground {}
        Solid {}
        Rectangle {
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Place {
            anchors.fill: parent
            anchors.margins: 6
            anchors.topMargin: 3
            anchors.bottomMargin: 3
            controller: root.main.panel
            view: root.main.panelView
        }
    }

    component Ground: Rectangle {
        anchors.fill: parent
        color: Theme.ground
    }

    // Catches presses between the buttons, so that they do not become gestures on the stage below.
    component Solid: MultiPointTouchArea {
        anchors.fill: parent
    }
}
