// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo
import Zelvo.Controls as Controls
import Zelvo.Layouter as Layouter

// View of a TransformPanel: buttons for what to change, and the slider that changes it.
Item {
    id: root

    required property Layouter.TransformPanel controller

    TabStack {
        id: choices

        width: Math.max(260, 4 * Theme.px(58))
        height: 36
        reach: 4
        name: qsTr("What to change")
        controller: root.controller.stackView
    }
    Loader {
        readonly property Controls.MySlider slider: root.controller.posRotSlider

        anchors.left: choices.right
        anchors.leftMargin: 9
        anchors.right: parent.right
        height: 36
        onSliderChanged: setSource("MySlider.qml", { controller: slider })
    }
}
