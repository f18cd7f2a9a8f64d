// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Layouter as Layouter

// View of a LayouterMenu: the tabs for the selected node, and above them the options of a tab.
Item {
    id: root

    required property Layouter.LayouterMenu controller

    implicitHeight: 88
    Keys.onEscapePressed: event => {
        event.accepted = controller.isBackVisible;
        controller.backButtonClicked();
    }

    MyButton {
        x: -6 // the panel's margin belongs to it, too
        width: 40
        leftInset: 6
        leftPadding: 6
        height: parent.height
        horizontalInset: 7
        visible: root.controller.isBackVisible
        controller: root.controller.backButton
    }
    Item {
        x: 37
        width: parent.width - 2 * 37
        height: root.controller.isStripTall ? parent.height : 36

        Loader {
            id: strip

            objectName: "strip"
            anchors.fill: parent
            // A finger may press half of the gap to the tabs, too.
            anchors.bottomMargin: root.controller.isStripTall ? 0 : -9
            visible: !root.controller.isWriting
            Component.onCompleted: show()

            // Sets the strip only once, without a binding: the next strip may have another type, and
            // then this view would get a strip that it cannot show.
            function show(): void {
                source = "";
                if (root.controller.strip)
                    setSource(root.controller.stripView + ".qml", {controller: root.controller.strip});
            }

            Connections {
                target: root.controller

                function onRefreshed(): void {
                    strip.show();
                }
            }
        }
        InspiratorButton {
            anchors.fill: parent
            visible: root.controller.isInspiratorVisible
            controller: root.controller.inspirator
        }
        Loader {
            readonly property bool isWriting: root.controller.isWriting

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, 560)
            height: parent.height
            onIsWritingChanged: {
                if (isWriting)
                    setSource("WritingField.qml", {controller: root.controller});
                else
                    source = "";
            }
        }
    }
    PictureDialog {
        controller: root.controller
    }
    TabStack {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        reach: 5
        name: qsTr("What to style")
        Keys.onUpPressed: strip.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        controller: root.controller.stackView
    }
}
