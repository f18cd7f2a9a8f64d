// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zelvo
import Zelvo.Layouter as Layouter

// View of a SimpleColorPicker: a row of colours, and before it the button for all others.
Item {
    id: root

    required property Layouter.SimpleColorPicker controller

    // What comes up over the panel gets the keys.
    onEnabledChanged: if (!enabled) controller.picker.keep()

    MyButton {
        id: opener

        // Next to the first colour, but never out of view.
        x: Math.max(0, row.width / 2 - row.contentX)
        z: 1
        width: 40
        height: row.entryHeight
        reach: 4
        horizontalInset: 8
        controller: root.controller.importButton
        Spoken.isExpandable: true
        Spoken.isExpanded: root.controller.picker.isOpen
    }
    StripView {
        id: row

        anchors.fill: parent
        anchors.leftMargin: opener.width + spacing
        spacing: root.controller.spacing
        name: qsTr("Colors")
        strip: root.controller
        entries: swatches

        Repeater {
            id: swatches

            model: root.controller.colors
            delegate: T.AbstractButton {
                id: swatch

                required property color modelData
                required property int index
                readonly property bool isChosen: root.controller.currentIndex === index

                width: 40 - row.spacing
                height: row.height
                opacity: row.shareInView(this)
                focusPolicy: Qt.NoFocus
                hoverEnabled: true
                onPressed: {
                    root.controller.buttonAction(index);
                    row.takeFocus();
                }

                Spoken.role: Accessible.ListItem
                Accessible.name: qsTr("Color %1").arg(modelData.toString())
                Accessible.selectable: true
                Accessible.selected: isChosen
                Accessible.onPressAction: root.controller.buttonAction(index)

                background: Item {
                    Rectangle {
                        objectName: "edge"
                        anchors.fill: parent
                        anchors.topMargin: 3
                        anchors.bottomMargin: 3 + row.height - row.entryHeight
                        radius: 6
                        scale: swatch.isChosen ? 1.15 : swatch.hovered ? 1.06 : 1
                        color: swatch.modelData
                        // A line makes a dark colour visible on the dark background.
                        border.width: swatch.isChosen ? 2.5 : 1
                        border.color: swatch.isChosen ? "white" : Qt.lighter(Theme.mutedText, 1.25)

                        Behavior on scale {
                            NumberAnimation {
                                duration: 100 * Theme.motion
                            }
                        }
                        Behavior on border.width {
                            NumberAnimation {
                                duration: 100 * Theme.motion
                            }
                        }
                        FocusRing {
                            shown: row.showsFocus && swatch.isChosen
                        }
                    }
                }
            }
        }
    }
    ColorPicker {
        controller: root.controller.picker
    }
}
