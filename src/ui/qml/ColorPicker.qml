// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Zelvo
import Zelvo.Layouter as Layouter

// View of an AdvancedColorPicker: a sheet over the panel, so that the stage stays visible. Escape
// takes the former color back; Return, or a press outside, keeps the new one.
T.Popup {
    id: root

    required property Layouter.AdvancedColorPicker controller
    readonly property bool isPicking: controller.pipette.isOn

    function follow(): void {
        if (controller.isOpen)
            open();
        else
            close();
    }

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height - height - 6 : 0
    width: parent ? Math.min(parent.width - 12, Theme.px(760)) : 0
    padding: 12
    implicitHeight: sheet.implicitHeight + 2 * padding
    modal: !isPicking // the pipette needs the pointer on the stage
    focus: true
    // With the policy for Escape, the shortcuts of the main screen are off; but here Escape only
    // ends the pipette.
    closePolicy: isPicking ? T.Popup.CloseOnEscape : T.Popup.CloseOnPressOutside
    onOpened: hues.slider.forceActiveFocus()
    onAboutToHide: controller.keep()
    onAboutToShow: contentItem.parent.Accessible.name = qsTr("Color")
    onIsPickingChanged: {
        if (isPicking)
            aim.forceActiveFocus();
        else
            pipetteButton.forceActiveFocus();
    }
    Component.onCompleted: follow()

    background: Rectangle {
        color: Theme.row
        radius: 10
        border.color: Theme.separator
    }
    contentItem: FocusScope {
        Keys.onEscapePressed: root.controller.cancel()
        Keys.onReturnPressed: root.controller.keep()
        Keys.onEnterPressed: root.controller.keep()

        Bar { // the whole sheet
            anchors.fill: parent
            anchors.margins: -root.padding
            color: "transparent"

            RowLayout {
                id: sheet

                anchors.fill: parent
                anchors.margins: root.padding
                spacing: 18

                ColumnLayout {
                    spacing: 8

                    Row { // before and after
                        Swatch {
                            name: qsTr("Former color %1").arg(root.controller.formerColor.toString())
                            color: root.controller.formerColor
                            onClicked: root.controller.takeFormer()
                        }
                        Swatch {
                            name: qsTr("New color %1").arg(root.controller.currentColor.toString())
                            color: root.controller.currentColor
                            enabled: false
                        }
                    }
                    Row {
                        spacing: 8

                        HexField {
                            width: Theme.px(104)
                            controller: root.controller
                        }
                        MyButton {
                            id: pipetteButton

                            width: 40
                            height: 36
                            horizontalInset: 8
                            controller: root.controller.pipette.button
                        }
                    }
                }
                ColumnLayout {
                    spacing: 0

                    Part { id: hues; view: root.controller.stackView[0] }
                    Part { view: root.controller.stackView[1] }
                    Part { view: root.controller.stackView[2] }
                }
            }
        }
        Item { // takes the keys while the pipette is on
            id: aim

            readonly property var moves: ({
                [Qt.Key_Left]: [-1, 0], [Qt.Key_Right]: [1, 0], [Qt.Key_Up]: [0, -1], [Qt.Key_Down]: [0, 1]
            })

            Accessible.ignored: !root.isPicking
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Pixel %1").arg(root.controller.pipette.color.toString())
            Keys.onPressed: event => {
                const move = moves[event.key];
                const step = event.modifiers & Qt.ShiftModifier ? 10 : 1;
                event.accepted = move !== undefined;
                if (move)
                    root.controller.pipette.moveBy(step * move[0], step * move[1]);
            }
            Keys.onReturnPressed: root.controller.pipette.take()
            Keys.onEnterPressed: root.controller.pipette.take()
            Keys.onEscapePressed: root.controller.pipette.isOn = false
        }
    }

    Connections {
        target: root.controller

        function onOpenChanged(): void {
            root.follow();
        }
    }

    component Swatch: T.AbstractButton {
        id: swatch

        property string name
        property color color

        width: (Theme.px(104) + 48) / 2
        height: 36
        focusPolicy: Qt.TabFocus
        Accessible.name: name
        Accessible.onPressAction: clicked()
        Spoken.role: enabled ? Accessible.Button : Accessible.Graphic
        background: Rectangle {
            objectName: "edge"
            color: swatch.color
            border.color: Theme.mutedText

            FocusRing {
                shown: swatch.visualFocus
            }
        }
        Tip {
            name: swatch.name
            isAsked: swatch.hovered
        }
    }
    component Part: RowLayout {
        id: part

        required property Layouter.GradientSlider view
        property alias slider: slider

        spacing: 10

        Text {
            Layout.preferredWidth: Theme.px(78)
            text: part.view.slider.name
            color: Theme.text
            font.pixelSize: Theme.px(13)
            font.weight: Font.DemiBold
        }
        GradientSlider {
            id: slider

            Layout.fillWidth: true
            model: part.view
        }
        SliderNumber {
            Layout.preferredWidth: Theme.px(62)
            controller: part.view.slider
            onDone: slider.forceActiveFocus(Qt.TabFocusReason)
        }
    }
}
