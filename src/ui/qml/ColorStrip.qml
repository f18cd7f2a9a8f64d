// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Layouter as Layouter

// View of a SimpleColorPicker: a row of colours.
StripView {
    id: root

    required property Layouter.SimpleColorPicker controller

    strip: controller
    entries: swatches

    Repeater {
        id: swatches

        model: root.controller.colors
        delegate: T.AbstractButton {
            id: swatch

            required property color modelData
            required property int index
            readonly property bool isChosen: root.controller.currentIndex === index

            width: 40
            height: 36
            focusPolicy: Qt.TabFocus
            hoverEnabled: true
            onPressed: root.controller.buttonAction(index)
            Keys.onReturnPressed: root.controller.buttonAction(index)
            onVisualFocusChanged: if (visualFocus) root.centre(true, this)

            Accessible.role: Accessible.ListItem
            Accessible.name: qsTr("Color %1").arg(modelData.toString())
            Accessible.selected: isChosen
            Accessible.onPressAction: root.controller.buttonAction(index)

            background: Item {
                Rectangle {
                    objectName: "edge"
                    anchors.centerIn: parent
                    width: 35
                    height: 36
                    radius: 6
                    scale: swatch.isChosen ? 1 : swatch.hovered ? 0.92 : 0.84
                    color: swatch.modelData
                    // The border makes a dark colour visible on the dark background.
                    border.width: swatch.isChosen ? 2.5 : 1.5
                    border.color: swatch.isChosen ? "white" : Qt.lighter(Theme.mutedText, 1.25)

                    Behavior on scale {
                        NumberAnimation {
                            duration: 100
                        }
                    }
                    FocusRing {
                        shown: swatch.visualFocus
                    }
                }
            }
        }
    }
}
