// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Zelvo
import Zelvo.Layouter as Layouter

// View of a StripButton: a thumbnail or an icon, and a title.
MyButton {
    id: root

    readonly property Layouter.StripButton entry: controller as Layouter.StripButton
    property bool showsFocus: false

    horizontalInset: 10
    reach: 4
    implicitWidth: Math.max(controller.width, face.implicitWidth + 2 * horizontalInset)

    contentItem: Item {
        Row {
            id: face

            anchors.centerIn: parent
            spacing: 7

            Icon {
                width: 20
                height: 20
                anchors.verticalCenter: parent.verticalCenter
                visible: name !== ""
                name: root.controller.image
            }
            Image {
                id: picture

                width: root.entry?.thumbnailSize.width ?? 0
                height: root.entry?.thumbnailSize.height ?? 0
                anchors.verticalCenter: parent.verticalCenter
                visible: width > 0
                source: root.entry?.thumbnail ?? ""
                sourceSize.width: Math.ceil(width * Screen.devicePixelRatio)
                sourceSize.height: Math.ceil(height * Screen.devicePixelRatio)
                asynchronous: true

                Rectangle { // until the picture is there
                    anchors.fill: parent
                    visible: picture.status !== Image.Ready
                    radius: 4
                    color: Theme.mutedText
                    opacity: 0.3
                }
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: root.controller.title
                color: root.controller.textColor
                font.pixelSize: Theme.px(root.fontSize)
                font.weight: root.fontWeight
            }
        }
    }

    FocusRing {
        anchors.margins: 1 // inside, because the strip cuts what is outside
        radius: Theme.radius - 1
        shown: root.showsFocus
    }
}
