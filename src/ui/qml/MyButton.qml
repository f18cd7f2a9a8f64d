// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Controls as Controls

// View of a MyButton: a picture or a text on a filled background.
T.AbstractButton {
    id: root

    required property Controls.MyButton controller
    property real horizontalInset: 6
    property int fontWeight: Font.DemiBold
    property real fontSize: 13
    property int role: Accessible.Button
    property bool isToggle: role === Accessible.CheckBox // stays pressed
    readonly property bool isChoice: role === Accessible.PageTab || role === Accessible.ListItem
    property real alpha: 1 // opacity of the background; below 1, picture and text are dimmed
    property real dimmed: Theme.dimmed
    property real reach: 0 // a press this far above or below hits the button, too: fingers are thick
    property bool hasTip: true
    property real gap: 0 // empty space at the left, between groups in a row

    implicitWidth: Math.max(controller.width, label.implicitWidth + 2 * horizontalInset) + gap
    leftInset: gap
    leftPadding: gap
    implicitHeight: controller.height
    enabled: controller.isEnabled
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Accessible.name: controller.name
    Accessible.selectable: isChoice
    Accessible.selected: isChoice && controller.isMySelected
    Accessible.onPressAction: controller.click()
    Spoken.role: role
    Spoken.key: controller.key
    Spoken.isToggle: isToggle
    Spoken.isOn: controller.isMySelected
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) controller.click() }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) controller.click() }
    onClicked: controller.click()
    containmentMask: QtObject {
        function contains(place: point): bool {
            return place.x >= root.gap && place.x < root.width && place.y >= -root.reach && place.y < root.height + root.reach;
        }
    }

    background: Rectangle {
        opacity: root.alpha * (root.controller.isEnabled ? 1 : root.dimmed)
        color: root.controller.fill
        radius: root.controller.cornerRadius

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Theme.text
            opacity: root.down ? 0.22 : root.hovered ? 0.09 : 0
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 3
            radius: 1.5
            color: root.controller.markColor
        }
        FocusRing {
            shown: root.visualFocus
        }
    }
    contentItem: Item {
        Icon {
            anchors.fill: parent
            anchors.leftMargin: root.horizontalInset
            anchors.rightMargin: root.horizontalInset
            anchors.topMargin: 6
            anchors.bottomMargin: 6
            visible: name !== ""
            name: root.controller.image
        }
        Text {
            id: label

            anchors.centerIn: parent
            visible: root.controller.image === ""
            text: root.controller.title
            color: root.controller.textColor
            font.pixelSize: Theme.px(root.fontSize)
            font.weight: root.fontWeight
        }
    }

    Binding {
        target: root.contentItem
        property: "opacity"
        value: root.alpha < 1 || !root.controller.isEnabled ? root.dimmed : 1
    }
    Tip {
        name: root.controller.name
        key: root.controller.key
        isAsked: root.hasTip && root.hovered && !root.down && (key !== "" || root.controller.image !== "" || name !== label.text)
    }
}
