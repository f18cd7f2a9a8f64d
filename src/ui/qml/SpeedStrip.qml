// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Menus as Menus

// View of a SpeedViewController: the nodes on the left, the speeds on the right.
Item {
    id: root

    required property Menus.SpeedViewController controller

    implicitWidth: nodes.implicitWidth + 24 + speeds.width
    implicitHeight: 36
    visible: !controller.isHidden

    Ground {
        anchors.fill: nodes
    }
    Ground {
        anchors.fill: speeds
    }
    Row {
        id: nodes

        anchors.left: parent.left
        spacing: 3

        Repeater {
            model: root.controller.nodesStackView
            delegate: MyButton {
                required property Controls.MyButton modelData

                controller: modelData
                role: Accessible.CheckBox
            }
        }
    }
    TabStack {
        id: speeds

        anchors.right: parent.right
        width: Math.max(298, Theme.px(298))
        height: parent.height
        name: qsTr("Speed")
        controller: root.controller.speedStackView
    }

    // The buttons are transparent. This background makes them readable on a bright stage.
    component Ground: Rectangle {
        radius: Theme.radius
        color: Theme.bar
    }
}
