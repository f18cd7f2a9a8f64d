// SPDX-License-Identifier: MIT
import QtQuick
import Zelvo.Screens as Screens

// A BlurCover over `source`, which must not contain it. The picture below is taken once, when the
// cover comes.
Item {
    id: root

    required property Screens.BlurCover controller
    required property Item source

    visible: controller.isPresent
    opacity: controller.alpha

    Behavior on opacity {
        NumberAnimation { duration: root.controller.fadeMilliseconds }
    }

    Loader {
        readonly property bool isShown: root.visible

        anchors.fill: parent
        onIsShownChanged: {
            if (isShown)
                setSource("BlurredPicture.qml", { picture: root.source });
            else
                source = "";
        }
    }
}
