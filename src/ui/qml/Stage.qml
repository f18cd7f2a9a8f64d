// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo.Layouter as Layouter
import Zelvo.Main as MainScreen

// The live stage, as large as possible at 16:9.
Item {
    id: root

    required property MainScreen.MainViewController main

    readonly property Layouter.LayouterMenu layouter: main.panel as Layouter.LayouterMenu
    readonly property Layouter.SimpleColorPicker colors: layouter ? layouter.strip as Layouter.SimpleColorPicker : null
    readonly property Layouter.ColorPipette pipette: colors?.picker.pipette ?? null

    MainScreen.StageItem {
        id: stage

        anchors.centerIn: parent
        width: Math.min(parent.width, Math.round(parent.height * 16 / 9))
        height: Math.min(parent.height, Math.round(parent.width * 9 / 16))
        stage: root.main.stage
        opacity: root.main.sceneAlpha
        Accessible.role: Accessible.Graphic
        Accessible.name: qsTr("The stage")

        HoverHandler { cursorShape: root.layouter ? root.layouter.cursor : Qt.ArrowCursor }
        Behavior on opacity {
            NumberAnimation { duration: root.main.sceneFadeMilliseconds }
        }
    }
    Loader {
        readonly property bool isPicking: root.pipette?.isOn ?? false

        anchors.fill: stage
        onIsPickingChanged: {
            if (isPicking)
                setSource("Pipette.qml", {controller: root.pipette, stage: stage});
            else
                source = "";
        }
    }
}
