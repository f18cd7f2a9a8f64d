// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// The bar at the top of a screen: a title in the middle, `leading` on the left, `trailing` on the
// right.
Item {
    id: root

    property string title
    property color titleColor: Theme.mutedText
    property alias leading: leftItems.data
    property alias trailing: rightItems.data

    implicitHeight: 48

    Row {
        id: leftItems

        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
    }
    Text {
        anchors.centerIn: parent
        text: root.title
        color: root.titleColor
        font.pixelSize: Theme.px(16)
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Row {
        id: rightItems

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
    }
}
