// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Window
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Menus as Menus

// View of an ActionsMenu: the six buttons of a tab, and the tabs below them.
Item {
    id: root

    required property Menus.ActionsMenu controller
    readonly property real share: (width - 3 * (actions.count - 1)) / Math.max(1, actions.count)

    implicitHeight: 78
    onWidthChanged: measure.report()
    Component.onCompleted: measure.report()

    Row {
        width: parent.width
        height: 36
        spacing: 3

        Repeater {
            id: actions

            model: root.controller.actionsStackView
            delegate: FuncButton {
                required property Controls.FuncButton modelData

                controller: modelData
                width: root.share
                height: 36
            }
        }
    }
    MyButton {
        id: searchButton

        anchors.left: parent.left
        anchors.bottom: parent.bottom
        controller: root.controller.searchButton
        Spoken.isExpandable: true
        Spoken.isExpanded: root.controller.search.isOpen
    }
    Loader {
        readonly property bool isOpen: root.controller.search.isOpen

        property Item formerFocus // null if that item is gone, as with the tab it was in

        onIsOpenChanged: {
            if (isOpen) {
                formerFocus = Window.activeFocusItem;
                setSource("ActionSearchPopup.qml", {controller: root.controller, parent: root});
                return;
            }
            const isLeft = !(item as ActionSearchPopup)?.visible; // by a press elsewhere
            source = "";
            if (!isLeft)
                formerFocus?.forceActiveFocus(Qt.TabFocusReason);
        }
    }
    TabStack {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        name: qsTr("Groups of actions")
        controller: root.controller.stackView
    }
    MyButton {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        horizontalInset: 5
        controller: root.controller.speedButton
    }

    // Tells the controller the width of all tabs in one row, with the gaps between groups and room for a
    // button on both sides.
    TextMetrics {
        id: measure

        text: root.controller ? root.controller.tabTitles : ""
        font.pixelSize: Theme.px(13)
        font.weight: Font.DemiBold
        onAdvanceWidthChanged: report()

        property bool isOnShow: false

        function report(): void {
            if (root.width <= 0 || !root.controller)
                return;
            root.controller.setWidths(root.width, advanceWidth + 14 * 17 + 5 * 8 + 2 * 40);
            if (!isOnShow)
                root.controller.viewWillAppear();
            isOnShow = true;
        }
    }
}
