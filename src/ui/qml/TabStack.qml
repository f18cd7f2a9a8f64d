// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// View of a TabStackView: buttons in a row on one background.
Rectangle {
    id: root

    required property Controls.TabStackView controller
    readonly property real share: (width - controller.spacing * (buttons.count - 1)) / Math.max(1, buttons.count)

    implicitWidth: row.implicitWidth
    implicitHeight: 34
    radius: controller.cornerRadius
    color: controller.bgColor
    border.width: controller.strokeColor.a > 0 ? 1 : 0
    border.color: controller.strokeColor

    Accessible.role: Accessible.PageTabList

    Row {
        id: row

        height: parent.height
        spacing: root.controller.spacing

        Repeater {
            id: buttons

            model: root.controller.arrangedSubviews
            delegate: MyButton {
                required property Controls.MyButton modelData

                controller: modelData
                horizontalInset: root.controller.leftInset
                width: root.controller.fillsEqually ? root.share : implicitWidth
                height: row.height
                role: Accessible.PageTab
            }
        }
    }
}
