// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// The dark blur of a BlurCover over `source`, which must not contain it. The picture below is taken
// once, when the cover comes: small pictures of it, each half as large as the one before and smoothed
// as it is drawn, cost next to nothing even in software.
Item {
    id: root

    required property var controller
    required property Item source

    visible: controller.isPresent
    opacity: controller.alpha

    Behavior on opacity {
        NumberAnimation { duration: root.controller.fadeMilliseconds }
    }

    Loader {
        anchors.fill: parent
        active: root.visible

        sourceComponent: Item {
            Smaller { id: half; below: root.source; part: 0.5 }
            Smaller { id: quarter; below: half; part: 0.25 }
            Smaller { id: eighth; below: quarter; part: 0.125 }
            Smaller { id: sixteenth; below: eighth; part: 0.0625; visible: true }
            Rectangle {
                anchors.fill: parent
                color: Theme.background
                opacity: 0.66
            }
        }
    }

    component Smaller: ShaderEffectSource {
        property Item below
        property real part

        anchors.fill: parent
        visible: false
        live: false
        smooth: true
        sourceItem: below
        textureSize: Qt.size(Math.max(1, root.width * part), Math.max(1, root.height * part))
    }
}
