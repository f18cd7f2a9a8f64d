// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Zelvo
import Zelvo.Controls as Controls

// View of a TabStackView: buttons in a row on one background.
Rectangle {
    id: root

    required property Controls.TabStackView controller
    property string name // of the whole row, for screen readers
    property real reach: 0 // of the buttons
    property real groupGap: 8 // between buttons with other marks
    // The place of the button that had the focus when the row was replaced; negative: none had it.
    property int lostPlace: -1
    readonly property real share: (width - controller.spacing * (buttons.count - 1)) / Math.max(1, buttons.count)

    implicitWidth: row.implicitWidth
    implicitHeight: 34
    radius: controller.cornerRadius
    color: controller.bgColor
    border.width: controller.strokeColor.a > 0 ? 1 : 0
    border.color: controller.strokeColor

    Accessible.role: Accessible.PageTabList
    Accessible.name: name
    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)

    function step(by: int): void {
        for (let i = 0; i < buttons.count; ++i) {
            if (buttons.itemAt(i).activeFocus) {
                buttons.itemAt((i + by + buttons.count) % buttons.count).forceActiveFocus(Qt.TabFocusReason);
                return;
            }
        }
    }
    Connections {
        target: root.controller

        function onFocusAsked(): void {
            let place = 0;
            for (let i = 0; i < buttons.count; ++i)
                place = root.controller.arrangedSubviews[i].isMySelected ? i : place;
            buttons.itemAt(place)?.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Row {
        id: row

        height: parent.height
        spacing: root.controller.spacing

        Repeater {
            id: buttons

            model: root.controller.arrangedSubviews
            onItemRemoved: (index, item) => {
                if (item.activeFocus)
                    root.lostPlace = index;
            }
            onItemAdded: (index, item) => {
                if (root.lostPlace < 0 || index !== Math.min(root.lostPlace, count - 1))
                    return;
                root.lostPlace = -1;
                item.forceActiveFocus(Qt.TabFocusReason);
            }
            delegate: MyButton {
                required property Controls.MyButton modelData
                required property int index
                readonly property Controls.MyButton before: root.controller.arrangedSubviews[index - 1] ?? modelData

                controller: modelData
                gap: Qt.colorEqual(before.markColor, modelData.markColor) ? 0 : root.groupGap
                horizontalInset: root.controller.leftInset
                width: root.controller.fillsEqually ? root.share : implicitWidth
                height: row.height
                reach: root.reach
                role: Accessible.PageTab
            }
        }
    }
}
