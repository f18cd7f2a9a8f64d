// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zelvo
import Zelvo.Layouter as Layouter

// View of a FormPanel: two sliders with their names, and two toggles with pictures.
Item {
    id: root

    required property Layouter.FormPanel controller

    RowLayout {
        width: parent.width
        height: 36
        spacing: 9

        Title { text: root.controller.depthSlider.name }
        MySlider {
            Layout.fillWidth: true
            controller: root.controller.depthSlider
        }
        Title { text: root.controller.bevelSlider.name }
        MySlider {
            Layout.fillWidth: true
            controller: root.controller.bevelSlider
        }
        PictureButton { controller: root.controller.profileToggle }
        PictureButton {
            // Equally wide for both words, so that nothing moves under the pointer.
            minimumWidth: Theme.px(165)
            controller: root.controller.fillToggle
        }
    }

    component Title: Text {
        color: Theme.text
        font.pixelSize: Theme.px(13)
        font.weight: Font.DemiBold
    }
}
