// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Menus as Menus

// View of a VideoAlertViewController: the hint movie, or a picture of it, and a text, over the whole
// screen.
FocusScope {
    id: root

    required property Menus.VideoAlertViewController controller
    readonly property rect frame: controller.frameIn(width, height)

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: controller.text
    Keys.onEscapePressed: controller.dismissAction()
    Keys.onBackPressed: controller.dismissAction()
    Keys.onReturnPressed: controller.dismissAction()
    Keys.onEnterPressed: controller.dismissAction()
    Component.onCompleted: controller.viewDidAppear()

    Rectangle {
        anchors.fill: parent
        color: "black"
        opacity: 0.65

        MultiPointTouchArea {
            anchors.fill: parent
        }
        WheelHandler {
            acceptedDevices: PointerDevice.AllDevices
        }
        HoverHandler { // so that the items below show no tooltips
            blocking: true
        }
    }
    Rectangle {
        x: root.frame.x
        y: root.frame.y
        width: root.frame.width
        height: root.frame.height
        color: Theme.background
        border.color: Theme.separator
        radius: Theme.radius

        Item {
            anchors.fill: parent
            anchors.margins: 1
            anchors.bottomMargin: root.controller.barHeight

            Image {
                anchors.fill: parent
                source: root.controller.still
                fillMode: Image.PreserveAspectFit
            }
            Text {
                anchors.fill: parent
                anchors.margins: 24
                visible: movie.item === null || !(movie.item as LoopingMovie).isShowing
                text: root.controller.text
                color: Theme.hint
                style: Text.Outline
                styleColor: Theme.background
                font.pixelSize: Theme.px(18)
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: root.controller.still == "" ? Text.AlignVCenter : Text.AlignBottom
            }
            Loader {
                id: movie

                anchors.fill: parent
                active: root.controller.isPlaying && root.controller.movie != ""
                source: "LoopingMovie.qml"
                onLoaded: (item as LoopingMovie).movie = root.controller.movie
            }
        }
        T.AbstractButton {
            id: ok

            focus: true
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: 1
            height: 43
            text: qsTr("OK")
            hoverEnabled: true
            onClicked: root.controller.dismissAction()
            Accessible.role: Accessible.Button
            Accessible.name: text
            Accessible.onPressAction: clicked()

            background: Rectangle {
                color: ok.down ? Theme.accent : ok.hovered ? Theme.buttonFill : Theme.separator
                radius: Theme.radius

                FocusRing {
                    anchors.margins: 2
                    shown: ok.visualFocus
                }
            }
            contentItem: Text {
                text: ok.text
                color: Theme.text
                font.pixelSize: Theme.px(15)
                font.weight: Font.DemiBold
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
