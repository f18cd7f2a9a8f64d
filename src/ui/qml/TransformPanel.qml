// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo

// A TransformPanel: what to move, and the slider that moves it.
Item {
    id: root

    required property var controller

    TabStack {
        id: choices

        width: Math.max(260, 4 * Theme.px(58))
        height: 36
        controller: root.controller.stackView
    }
    Loader {
        readonly property var slider: root.controller.posRotSlider

        anchors.left: choices.right
        anchors.leftMargin: 9
        anchors.right: parent.right
        height: 36
        onSliderChanged: {
            sourceComponent = null;
            sourceComponent = slider ? knob : null;
        }
        Component.onCompleted: sourceComponent = knob

        Component {
            id: knob

            MySlider {
                controller: root.controller.posRotSlider
            }
        }
    }
}
