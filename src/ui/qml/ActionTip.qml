// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// The tooltip of a button of the catalogue: what it does, as a loop, above its name and key. It comes
// sooner than others and stays, because it is watched.
Tip {
    id: tip

    property string loop
    property bool isHold

    visible: isAsked
    delay: 300
    timeout: Pointer.isInUse ? -1 : 10000 // a button keeps the focus long after it was looked at

    contentItem: Column {
        spacing: 6

        Rectangle {
            width: picture.implicitWidth
            height: picture.implicitHeight
            visible: tip.loop !== ""
            color: Theme.background

            ActionLoop {
                id: picture

                objectName: "loop"
                anchors.fill: parent
                loop: tip.visible ? tip.loop : "" // read when it is asked for
                isRunning: tip.visible
            }
        }
        Row {
            spacing: 8

            Text {
                text: tip.name
                color: Theme.text
                font.pixelSize: Theme.px(12)
            }
            Text {
                text: tip.isHold ? qsTr("hold %1").arg(tip.key) : tip.key
                color: Qt.lighter(Theme.mutedText, 1.35)
                font.pixelSize: Theme.px(12)
            }
        }
    }
}
