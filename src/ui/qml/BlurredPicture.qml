// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A dark, blurred picture of an item as it looks now. It is made from smaller and smaller pictures,
// each half as large as the one before, because that is fast even without a GPU.
Item {
    id: root

    required property Item picture

    Smaller { id: half; below: root.picture; part: 0.5 }
    Smaller { id: quarter; below: half; part: 0.25 }
    Smaller { id: eighth; below: quarter; part: 0.125 }
    Smaller { id: sixteenth; below: eighth; part: 0.0625; visible: true }
    Rectangle {
        anchors.fill: parent
        color: Theme.background
        opacity: 0.66
    }

    component Smaller: ShaderEffectSource {
        property Item below
        property real part

        anchors.fill: parent
        visible: false
        live: false
        smooth: true
        sourceItem: below
        textureSize.width: Math.max(1, width * part)
        textureSize.height: Math.max(1, height * part)
    }
}
